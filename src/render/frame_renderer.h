#pragma once

#include <array>
#include <cstdint>
#include <functional>

#include "model/gem_model.h"
#include "render/frame_image.h"
#include "render/render_threads.h"
#include "render/tracer.h"

namespace kirameki {

// Everything a frame is rendered with, read from the settings and the stone choice at the
// moment the render starts.
struct RenderParameters {
    std::array<double, 3> stoneColour{};  // absorption of the current colour
    double outerIndex = 1.0;
    double stoneIndex = 2.42;
    double fireSpread = 0.025;  // the stone's coefficient
    std::int32_t depth = 8;     // 1..20
    bool highQuality = false;
    bool fire = true;
    std::array<std::int32_t, 3> backColour{};
    std::array<std::int32_t, 3> lightVolumes{100, 100, 100};
    std::int32_t narrowMainLight = 0;
    LightSetup light;  // the classic three lights unless a standard model is chosen
    // Spectral fire instead of the three fire samples: this many wavelengths from 400 to
    // 700 nm (0: off), each at the stone's index for it from its dispersion.
    int spectralSamples = 0;
    double dispersion = 0.044;  // n(430.8 nm) - n(686.7 nm), the B-G dispersion
    int threads = 0;            // 0: every core
};

// The picture's size and scale: a square of `size` pixels, `scale` pixels per model unit.
struct RenderGeometry {
    int size = 270;
    int scale = 126;
};

// The three notifications of a render, always called on the thread that runs RenderFrame.
class RenderSink {
  public:
    virtual ~RenderSink() = default;
    virtual void RenderStarted() = 0;
    virtual void RenderProgress(int percent) = 0;
    // Rows first..last (inclusive, from the top) of the picture are final. Called as rows
    // complete, top to bottom, except in high quality, which shows the picture at the end.
    virtual void RowsRendered(const FrameImage& image, int first, int last) = 0;
    virtual void RenderFinished() = 0;
};

// A sink that tells nothing: for frames that are used only when finished (the command line,
// a light study, the live view).
class SilentRenderSink : public RenderSink {
  public:
    void RenderStarted() override {}
    void RenderProgress(int) override {}
    void RowsRendered(const FrameImage&, int, int) override {}
    void RenderFinished() override {}
};

// Called once per row before the row is rendered; answers true when an abort was asked for.
using AbortPoll = std::function<bool()>;

// Pixel scale of a picture of the given size: round((size - 19) * 0.5).
int ScaleForSize(int size);

// The fire samples: index factors 1 - spread, 1, 1 + spread and their channel weights.
inline constexpr int kFireSamples = 3;
inline constexpr double kFireWeights[kFireSamples][3] = {
    {0.6, 0.25, 0.0},
    {0.15, 0.5, 0.0},
    {0.25, 0.25, 1.0},
};

// One pixel's colour (red | green << 8 | blue << 16) from the tracer's results; `hit`
// false gives the back colour as it stands.
std::uint32_t MapPixel(bool hit, double highlight, double red, double green, double blue,
                       const std::array<std::int32_t, 3>& backColour);

// One pixel with fire: the tracer is called at the index times 1 - spread, 1 and
// 1 + spread, its colours weighted per channel; sampling stops at the first miss, and if the
// last sample made missed the pixel is the back colour even when earlier samples hit. The
// highlight is the last sample's. `trace(index, results)` answers whether the ray hit.
template <typename Trace>
std::uint32_t FirePixel(Trace&& trace, double stoneIndex, double spread,
                        const std::array<std::int32_t, 3>& backColour) {
    const double half = (kFireSamples - 1) / 2.0;
    double sums[3] = {0.0, 0.0, 0.0};
    TraceResults r;
    bool hit = false;
    for (int i = 0; i < kFireSamples; ++i) {
        const double factor = (i - half) * (spread / half) + 1.0;
        hit = trace(stoneIndex * factor, r);
        if (!hit)
            break;
        sums[0] += r.colour[0] * kFireWeights[i][0];
        sums[1] += r.colour[1] * kFireWeights[i][1];
        sums[2] += r.colour[2] * kFireWeights[i][2];
    }
    return MapPixel(hit, r.highlight, sums[0], sums[1], sums[2], backColour);
}

// Ray-traces the model (view vertices and face data of the current orientation) into the
// image, which is resized to the geometry's size when it differs. Returns 1 when every row
// was rendered and 0 after an abort; the image then holds the partial picture. The picture
// is the same whatever the number of threads. The rows are traced on `threads`, which the
// caller keeps from frame to frame.
int RenderFrame(const RenderParameters& parameters, const GemModel& model, Vec3 lightDirection,
                const RenderGeometry& geometry, TracerWorkAreas& work, FrameImage& image,
                RenderSink& sink, const AbortPoll& abortPoll, RenderThreads& threads);

// The same with threads of its own, made for this frame only.
int RenderFrame(const RenderParameters& parameters, const GemModel& model, Vec3 lightDirection,
                const RenderGeometry& geometry, TracerWorkAreas& work, FrameImage& image,
                RenderSink& sink, const AbortPoll& abortPoll);

}  // namespace kirameki
