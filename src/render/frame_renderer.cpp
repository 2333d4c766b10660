#include "render/frame_renderer.h"

#include <algorithm>
#include <cmath>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

#include "render/optics.h"
#include "render/wavelength_fire.h"

namespace kirameki {

namespace {

constexpr double kRayStartZ = -1.1;
constexpr double kHighlightGain = 1000.0;
constexpr double kColourGain = 1600.0;
constexpr double kFloor = 20.0;
constexpr double kColourCap = 240.0;
constexpr double kPixelCap = 255.0;

// std::lround for a channel value in [0, 255], without the library call: the fraction
// v - trunc(v) is exact, so halves round up exactly as lround rounds them. Not a number
// counts as 0.
int RoundChannel(double v) {
    if (!(v >= 0.0))
        return 0;
    const int whole = int(v);
    return v - double(whole) >= 0.5 ? whole + 1 : whole;
}

int ClampByte(long value) {
    return int(std::clamp(value, 0L, 255L));
}

// Renders the pixels of one row of the working picture.
class RowRenderer {
  public:
    RowRenderer(const RenderParameters& p, const TraceScene& scene, FrameImage& image, int scale,
                const SpectralFire* spectral)
        : p_(p),
          scene_(scene),
          spectral_(spectral),
          image_(image),
          centreX_(std::lround(image.Width() * 0.5)),
          centreY_(std::lround(image.Height() * 0.5)),
          scale_(double(scale)),
          r0_(optics::NormalReflectance(p.outerIndex, p.stoneIndex)),
          fireIndices_(FireIndices(p)) {}

    // Renders one row with the path memory of the calling thread: with fire, the three
    // samples of each pixel as one bundle; with spectral fire, the wavelengths of each pixel
    // four at a time; without, neighbouring pixels four at a time.
    void Render(int py, TracerBundleMemory& memory) const {
        const double oy = -double(py - centreY_) / scale_;
        const int width = image_.Width();
        if (spectral_) {
            for (int px = 0; px < width; ++px)
                image_.SetPixel(
                    px, py,
                    SpectralPixel({double(px - centreX_) / scale_, oy, kRayStartZ}, memory));
            return;
        }
        RayBundle bundle;
        BundleResults results;
        if (p_.fire) {
            bundle.count = kFireSamples;
            bundle.stoneIndices = fireIndices_;
            for (int px = 0; px < width; ++px) {
                const Vec3 origin = {double(px - centreX_) / scale_, oy, kRayStartZ};
                bundle.origins.fill(origin);
                TraceBundle(bundle, p_.outerIndex, r0_, scene_, memory, results);
                int sample = 0;
                const auto traced = [&](double, TraceResults& r) {
                    r = results.rays[std::size_t(sample)];
                    return results.hits[std::size_t(sample++)] != 0;
                };
                image_.SetPixel(
                    px, py,
                    kirameki::FirePixel(traced, p_.stoneIndex, p_.fireSpread, p_.backColour));
            }
            return;
        }
        bundle.stoneIndices.fill(p_.stoneIndex);
        for (int px = 0; px < width; px += kBundleRays) {
            bundle.count = std::min(kBundleRays, width - px);
            for (int i = 0; i < bundle.count; ++i)
                bundle.origins[std::size_t(i)] = {double(px + i - centreX_) / scale_, oy,
                                                  kRayStartZ};
            TraceBundle(bundle, p_.outerIndex, r0_, scene_, memory, results);
            for (int i = 0; i < bundle.count; ++i) {
                const TraceResults& r = results.rays[std::size_t(i)];
                image_.SetPixel(px + i, py,
                                MapPixel(results.hits[std::size_t(i)] != 0, r.highlight,
                                         r.colour[0], r.colour[1], r.colour[2], p_.backColour));
            }
        }
    }

  private:
    // The stone index of each fire sample, as the fire rule works it out.
    static std::array<double, kBundleRays> FireIndices(const RenderParameters& p) {
        std::array<double, kBundleRays> indices{};
        indices.fill(p.stoneIndex);
        int sample = 0;
        const auto note = [&](double index, TraceResults&) {
            indices[std::size_t(sample++)] = index;
            return true;
        };
        kirameki::FirePixel(note, p.stoneIndex, p.fireSpread, p.backColour);
        return indices;
    }

    // The pixel traced at each wavelength of the spectral fire, the wavelengths in bundles
    // of one origin; the back colour when a wavelength misses the stone, as with the three
    // fire samples.
    std::uint32_t SpectralPixel(Vec3 origin, TracerBundleMemory& memory) const {
        std::array<double, SpectralFire::kMaxSamples> light{};
        double highlight = 0.0;
        RayBundle bundle;
        BundleResults results;
        bundle.origins.fill(origin);
        for (int first = 0; first < spectral_->Count(); first += kBundleRays) {
            bundle.count = std::min(kBundleRays, spectral_->Count() - first);
            for (int k = 0; k < bundle.count; ++k)
                bundle.stoneIndices[std::size_t(k)] = spectral_->IndexAt(first + k);
            TraceBundle(bundle, p_.outerIndex, r0_, scene_, memory, results);
            for (int k = 0; k < bundle.count; ++k) {
                const int i = first + k;
                if (!results.hits[std::size_t(k)])
                    return MapPixel(false, 0.0, 0.0, 0.0, 0.0, p_.backColour);
                const TraceResults& r = results.rays[std::size_t(k)];
                light[std::size_t(i)] = r.colour[std::size_t(spectral_->ChannelOf(i))];
                if (i == spectral_->Middle())
                    highlight = r.highlight;
            }
        }
        const std::array<double, 3> rgb = spectral_->Compose(light.data());
        return MapPixel(true, highlight, rgb[0], rgb[1], rgb[2], p_.backColour);
    }

    const RenderParameters& p_;
    const TraceScene& scene_;
    const SpectralFire* spectral_;
    FrameImage& image_;
    long centreX_;
    long centreY_;
    double scale_;
    double r0_;
    std::array<double, kBundleRays> fireIndices_;
};

// Runs the rows on the calling thread and on threads - 1 helpers. The calling thread
// releases the rows one at a time in order, polling for an abort before each, and reports
// them as they complete; any thread takes the next released row. Rather than wait for the
// helpers, the calling thread renders a row itself whenever a few released rows wait
// untaken, so a frame costs no sleeping and waking beyond its start and end. An abort stops
// the releasing; the rows released before it (a few a thread) are still drawn.
class RowScheduler {
  public:
    RowScheduler(int rows, int threads, const RowRenderer& renderer, RenderThreads& pool)
        : rows_(rows),
          backlog_(4 * threads),
          done_(std::size_t(rows), 0),
          renderer_(renderer),
          pool_(pool) {
        pool_.Start(threads - 1, [this] {
            TracerBundleMemory memory;  // this thread's last paths, to guess the next ones
            while (TakeAndRender(memory, true)) {
            }
        });
    }
    ~RowScheduler() {
        Stop();
        pool_.Wait();
    }
    RowScheduler(const RowScheduler&) = delete;
    RowScheduler& operator=(const RowScheduler&) = delete;

    // Lets one more row be taken; renders released rows on the calling thread while the
    // backlog is full.
    void Release(TracerBundleMemory& memory) {
        int waiting;
        {
            std::lock_guard lock(mutex_);
            waiting = ++released_ - taken_;
        }
        wake_.notify_one();
        while (waiting >= backlog_ && TakeAndRender(memory, false)) {
            std::lock_guard lock(mutex_);
            waiting = released_ - taken_;
        }
    }

    // Renders on the calling thread every released row that no helper has taken.
    void Finish(TracerBundleMemory& memory) {
        while (TakeAndRender(memory, false)) {
        }
    }

    // No row is taken after this.
    void Stop() {
        {
            std::lock_guard lock(mutex_);
            stopping_ = true;
        }
        wake_.notify_all();
    }

    // Waits until every row taken is finished; called once no more rows will be taken.
    void Drain() {
        std::unique_lock lock(mutex_);
        finished_.wait(lock, [&] { return completed_ == taken_; });
    }

    // The count of finished rows and the length of the finished run from the top.
    void Finished(int& completed, int& prefix) {
        std::lock_guard lock(mutex_);
        while (prefix_ < rows_ && done_[std::size_t(prefix_)])
            ++prefix_;
        completed = completed_;
        prefix = prefix_;
    }

  private:
    // Takes the next released row and renders it; false when there is none to take (a
    // helper first waits for one, until every row is released or the render stops).
    bool TakeAndRender(TracerBundleMemory& memory, bool wait) {
        int row;
        {
            std::unique_lock lock(mutex_);
            if (wait)
                wake_.wait(lock,
                           [&] { return stopping_ || taken_ < released_ || released_ == rows_; });
            if (stopping_ || taken_ >= released_)
                return false;
            row = taken_++;
        }
        renderer_.Render(row, memory);
        bool idle;
        {
            std::lock_guard lock(mutex_);
            done_[std::size_t(row)] = 1;
            ++completed_;
            idle = completed_ == taken_;
        }
        if (idle)
            finished_.notify_all();
        return true;
    }

    const int rows_;
    const int backlog_;
    std::vector<char> done_;
    const RowRenderer& renderer_;
    std::mutex mutex_;
    std::condition_variable wake_;
    std::condition_variable finished_;
    int released_ = 0;
    int taken_ = 0;
    int completed_ = 0;
    int prefix_ = 0;
    bool stopping_ = false;
    RenderThreads& pool_;
};

int ThreadCount(int requested) {
    if (requested > 0)
        return requested;
    return std::max(1, int(std::thread::hardware_concurrency()));
}

}  // namespace

int ScaleForSize(int size) {
    return int(std::lround((size - 19) * 0.5));
}

std::uint32_t MapPixel(bool hit, double highlight, double red, double green, double blue,
                       const std::array<std::int32_t, 3>& backColour) {
    if (!hit)
        return PackRgb(ClampByte(backColour[0]), ClampByte(backColour[1]),
                       ClampByte(backColour[2]));
    const double h = highlight * kHighlightGain + kFloor;
    int channels[3];
    const double intensities[3] = {red, green, blue};
    for (int c = 0; c < 3; ++c) {
        double v = intensities[c] * kColourGain + kFloor;
        if (v > kColourCap)
            v = kColourCap;
        if (v < 0.0)
            v = 0.0;
        v += h;
        if (v > kPixelCap)
            v = kPixelCap;
        channels[c] = RoundChannel(v);
    }
    return PackRgb(channels[0], channels[1], channels[2]);
}

int RenderFrame(const RenderParameters& parameters, const GemModel& model, Vec3 lightDirection,
                const RenderGeometry& geometry, TracerWorkAreas& work, FrameImage& image,
                RenderSink& sink, const AbortPoll& abortPoll) {
    RenderThreads pool;
    return RenderFrame(parameters, model, lightDirection, geometry, work, image, sink, abortPoll,
                       pool);
}

int RenderFrame(const RenderParameters& parameters, const GemModel& model, Vec3 lightDirection,
                const RenderGeometry& geometry, TracerWorkAreas& work, FrameImage& image,
                RenderSink& sink, const AbortPoll& abortPoll, RenderThreads& pool) {
    TraceScene scene;
    scene.lightDirection = lightDirection;
    scene.faceCount = model.FaceCount;
    scene.faceTable = model.FaceTable.data();
    scene.work = &work;
    scene.vertexCount = model.VertexCount;
    scene.viewVertices = model.ViewVertices.data();
    scene.depth = parameters.depth;
    scene.stoneColour = parameters.stoneColour;
    scene.backColour = parameters.backColour;
    scene.lightVolumes = parameters.lightVolumes;
    scene.narrowMainLight = parameters.narrowMainLight;
    scene.light = parameters.light;
    PrepareTracer(scene);

    const int size = geometry.size;
    if (image.Width() != size || image.Height() != size)
        image.Create(size, size);
    sink.RenderStarted();
    sink.RenderProgress(0);

    // High quality renders at twice the size and scale and shrinks the picture at the end.
    const int factor = parameters.highQuality ? 2 : 1;
    FrameImage large;
    if (factor == 2)
        large.Create(2 * size, 2 * size);
    FrameImage& target = factor == 2 ? large : image;
    const int rows = target.Height();
    const int scale = int(std::lround(geometry.scale * double(factor)));
    std::optional<SpectralFire> spectral;
    if (parameters.spectralSamples > 0)
        spectral.emplace(parameters.spectralSamples, parameters.stoneIndex, parameters.dispersion);
    const RowRenderer renderer(parameters, scene, target, scale, spectral ? &*spectral : nullptr);

    bool aborted = false;
    int lastPercent = 0, shown = 0;
    const auto report = [&](int completed, int prefix) {
        const int percent = int(std::lround((completed * 100.0) / rows));
        if (percent > lastPercent) {
            sink.RenderProgress(percent);
            lastPercent = percent;
        }
        if (factor == 1 && prefix > shown) {
            sink.RowsRendered(image, shown, prefix - 1);
            shown = prefix;
        }
    };
    {
        const int threads = ThreadCount(parameters.threads);
        RowScheduler scheduler(rows, threads, renderer, pool);
        TracerBundleMemory memory;  // the calling thread's last paths
        for (int py = 0; py < rows; ++py) {
            int completed, prefix;
            scheduler.Finished(completed, prefix);
            report(completed, prefix);
            if (abortPoll && abortPoll()) {
                aborted = true;
                break;
            }
            scheduler.Release(memory);
        }
        scheduler.Finish(memory);  // every row that passed its poll is drawn
        scheduler.Drain();
        int completed, prefix;
        scheduler.Finished(completed, prefix);
        report(completed, prefix);
    }
    if (factor == 2) {
        large.ReduceByHalf(image);
        sink.RowsRendered(image, 0, size - 1);
    }
    sink.RenderFinished();
    return aborted ? 0 : 1;
}

}  // namespace kirameki
