#include "render/light_study.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <numbers>

#include "render/preview_geometry.h"
#include "render/render_threads.h"

namespace kirameki {

namespace {

constexpr double kDegree = std::numbers::pi / 180.0;
// How the frame renderer maps light to a channel without a highlight: 40 + light * 1600.
constexpr double kFloor = 40.0, kGain = 1600.0;

double LightOf(std::uint32_t pixel, int channel) {
    return (double((pixel >> (8 * channel)) & 0xFF) - kFloor) / kGain / kEnvironmentUnit;
}

double Luminance(std::uint32_t pixel) {
    return 0.2126 * LightOf(pixel, 0) + 0.7152 * LightOf(pixel, 1) + 0.0722 * LightOf(pixel, 2);
}

// Renders the posed stone in one lighting, counting the pictures made.
class PassRenderer {
  public:
    PassRenderer(const LightStudySetup& setup, const GemModel& model, Vec3 light,
                 TracerWorkAreas& work, const AbortPoll& abort,
                 const std::function<void(int, int)>& progress, int total)
        : setup_(setup),
          model_(model),
          light_(light),
          work_(work),
          abort_(abort),
          progress_(progress),
          total_(total) {}

    bool Render(const LightSetup& lighting, int spectral, FrameImage& image) {
        RenderParameters p = setup_.parameters;
        p.light = lighting;
        p.spectralSamples = spectral;
        p.fire = false;
        p.highQuality = false;
        p.backColour = {0, 0, 0};
        const RenderGeometry geometry{setup_.size, ScaleForSize(setup_.size)};
        SilentRenderSink sink;
        const bool done =
            RenderFrame(p, model_, light_, geometry, work_, image, sink, abort_, threads_) == 1;
        if (progress_)
            progress_(++done_, total_);
        return done;
    }

  private:
    const LightStudySetup& setup_;
    const GemModel& model_;
    Vec3 light_;
    TracerWorkAreas& work_;
    const AbortPoll& abort_;
    const std::function<void(int, int)>& progress_;
    int total_;
    int done_ = 0;
    RenderThreads threads_;  // kept for every picture of the study
};

enum Pass { kBelow, kLow, kMid, kHigh, kHead, kCos, kSpectral, kPasses };

// Measures the posed stone; its fire (spectral colour in the classic light) only when asked,
// since the spectral picture costs as much as all the others.
bool MeasureOrientation(const LightStudySetup& setup, PassRenderer& renderer, bool withFire,
                        std::array<FrameImage, kPasses>& pictures, LightFigures& figures) {
    const LightSetup base{LightingModel::kRegions, setup.headShadow, setup.asetLow, setup.asetHigh,
                          0};
    const unsigned regions[] = {kSkyBelow, kSkyLow, kSkyMid, kSkyHigh, kSkyHead};
    for (int pass = kBelow; pass <= kHead; ++pass) {
        LightSetup lighting = base;
        lighting.regions = regions[pass];
        if (!renderer.Render(lighting, 0, pictures[std::size_t(pass)]))
            return false;
    }
    LightSetup cosine = base;
    cosine.model = LightingModel::kCos;
    if (!renderer.Render(cosine, 0, pictures[kCos]))
        return false;
    if (withFire && !renderer.Render({}, setup.spectralSamples, pictures[kSpectral]))
        return false;

    // A white diffuser's light under the whole hemisphere: the head's shadow darkens the
    // stone, not the measure.
    const double isoDiffuser = 1.0, cosDiffuser = 2.0 / 3.0;
    const FrameImage& low = pictures[kLow];
    double sums[kPasses] = {};
    double isoSum = 0.0, cosSum = 0.0, chromaSum = 0.0;
    long outline = 0, dark = 0, fiery = 0;
    for (int y = 0; y < low.Height(); ++y)
        for (int x = 0; x < low.Width(); ++x) {
            if (low.Pixel(x, y) == 0)  // the back colour: the ray missed the stone
                continue;
            ++outline;
            double light[kPasses];
            for (int pass = kBelow; pass <= kCos; ++pass)
                light[pass] = Luminance(pictures[std::size_t(pass)].Pixel(x, y));
            for (int pass = kBelow; pass <= kHead; ++pass)
                sums[pass] += light[pass];
            const double iso = light[kLow] + light[kMid] + light[kHigh];
            isoSum += iso;
            cosSum += light[kCos];
            dark += iso < setup.contrastLevel * isoDiffuser;
            if (!withFire)
                continue;
            const std::uint32_t shown = pictures[kSpectral].Pixel(x, y);
            double top = 0.0, bottom = 1e9;
            for (int c = 0; c < 3; ++c) {
                const double level = std::max(LightOf(shown, c), 0.0);
                top = std::max(top, level);
                bottom = std::min(bottom, level);
            }
            const double chroma = top > 0.0 ? (top - bottom) / top : 0.0;
            chromaSum += chroma;
            fiery += chroma > setup.fireChroma && top > setup.fireLevel;
        }
    if (outline == 0)
        return true;
    const double traced = sums[kBelow] + sums[kLow] + sums[kMid] + sums[kHigh] + sums[kHead];
    const double share = traced > 0.0 ? 100.0 / traced : 0.0;
    const double n = double(outline);
    figures.isoBrightness = 100.0 * isoSum / n / isoDiffuser;
    figures.cosBrightness = 100.0 * cosSum / n / cosDiffuser;
    figures.leakage = sums[kBelow] * share;
    figures.headShadow = sums[kHead] * share;
    figures.asetGreen = sums[kLow] * share;
    figures.asetRed = sums[kMid] * share;
    figures.asetBlue = (sums[kHigh] + sums[kHead]) * share;
    figures.asetBlack = sums[kBelow] * share;
    figures.contrast = 100.0 * double(dark) / n;
    if (withFire) {
        figures.fire = 100.0 * double(fiery) / n;
        figures.meanChroma = 100.0 * chromaSum / n;
    }
    return true;
}

void AddInto(LightFigures& sum, const LightFigures& f, double weight) {
    sum.isoBrightness += weight * f.isoBrightness;
    sum.cosBrightness += weight * f.cosBrightness;
    sum.leakage += weight * f.leakage;
    sum.headShadow += weight * f.headShadow;
    sum.asetGreen += weight * f.asetGreen;
    sum.asetRed += weight * f.asetRed;
    sum.asetBlue += weight * f.asetBlue;
    sum.asetBlack += weight * f.asetBlack;
    sum.contrast += weight * f.contrast;
}

}  // namespace

void PoseStone(GemModel& model, double spin, double tilt) {
    const double cs = std::cos(spin * kDegree), ss = std::sin(spin * kDegree);
    const double ct = std::cos(tilt * kDegree), st = std::sin(tilt * kDegree);
    for (int i = 0; i < model.VertexCount; ++i) {
        const Vec3 m = model.ModelVertices[std::size_t(i)];
        // Turned about the stone's axis (Y), then face-up: the crown toward the viewer (-z).
        const Vec3 turned = {cs * m.x + ss * m.z, m.y, -ss * m.x + cs * m.z};
        const Vec3 up = {turned.x, turned.z, -turned.y};
        model.ViewVertices[std::size_t(i)] = {up.x, ct * up.y - st * up.z, st * up.y + ct * up.z};
    }
    WriteAllFaceData(model);
}

bool RunLightStudy(const LightStudySetup& setup, const GemModel& stone, Vec3 lightDirection,
                   TracerWorkAreas& work, LightStudy& study, const AbortPoll& abortPoll,
                   const std::function<void(int, int)>& progress) {
    const int steps = std::max(1, setup.tiltSteps | 1);
    auto model = std::make_unique<GemModel>(stone);
    PassRenderer renderer(setup, *model, lightDirection, work, abortPoll, progress,
                          steps * (kPasses - 1) + 3);
    std::array<FrameImage, kPasses> pictures;
    study = LightStudy{};
    const int middle = steps / 2;
    for (int i = 0; i < steps; ++i) {
        const double tilt = steps == 1 ? 0.0 : setup.tiltMax * (i - middle) / middle;
        PoseStone(*model, setup.spin, tilt);
        LightFigures figures;
        figures.tilt = tilt;
        if (!MeasureOrientation(setup, renderer, i == middle, pictures, figures))
            return false;
        study.tilts.push_back(figures);
        AddInto(study.tiltAverage, figures, 1.0 / steps);  // fire is measured face-up only
        if (i != middle)
            continue;
        study.faceUp = figures;
        study.cos = pictures[kCos];
        study.spectral = pictures[kSpectral];
        const LightSetup iso{LightingModel::kIso, setup.headShadow, setup.asetLow, setup.asetHigh,
                             0};
        LightSetup aset = iso;
        aset.model = LightingModel::kAset;
        if (!renderer.Render(iso, 0, study.iso) || !renderer.Render(aset, 0, study.aset))
            return false;
    }
    // The usual tilt figure: how far ISO brightness moves between face-up, T/2 and T.
    double low = 1e300, high = -1e300;
    for (const int i : {middle, middle + middle / 2, steps - 1}) {
        low = std::min(low, study.tilts[std::size_t(i)].isoBrightness);
        high = std::max(high, study.tilts[std::size_t(i)].isoBrightness);
    }
    study.isoSpread = high - low;
    study.tiltAverage.tilt = 0.0;
    return true;
}

}  // namespace kirameki
