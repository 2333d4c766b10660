#include "render/wavelength_fire.h"

#include <algorithm>
#include <cmath>

namespace kirameki {

namespace {

double Lobe(double x, double mean, double below, double above) {
    const double t = (x - mean) / (x < mean ? below : above);
    return std::exp(-0.5 * t * t);
}

constexpr double kSodium = 589.3, kBlueLine = 430.8, kRedLine = 686.7;

}  // namespace

std::array<double, 3> ColourMatching(double w) {
    return {1.056 * Lobe(w, 599.8, 37.9, 31.0) + 0.362 * Lobe(w, 442.0, 16.0, 26.7) -
                0.065 * Lobe(w, 501.1, 20.4, 26.2),
            0.821 * Lobe(w, 568.8, 46.9, 40.5) + 0.286 * Lobe(w, 530.9, 16.3, 31.1),
            1.217 * Lobe(w, 437.0, 11.8, 36.0) + 0.681 * Lobe(w, 459.0, 26.0, 13.8)};
}

SpectralFire::SpectralFire(int samples, double stoneIndex, double dispersion)
    : count_(std::clamp(samples, kMinSamples, kMaxSamples)) {
    // Cauchy: n = a + b / w^2, with b from the B-G dispersion and a from the sodium index.
    const double b = dispersion / (1.0 / (kBlueLine * kBlueLine) - 1.0 / (kRedLine * kRedLine));
    const double a = stoneIndex - b / (kSodium * kSodium);
    std::array<double, 3> totals{};
    for (int i = 0; i < count_; ++i) {
        const auto k = std::size_t(i);
        const double w = 400.0 + (i + 0.5) * 300.0 / count_;
        wavelength_[k] = w;
        index_[k] = a + b / (w * w);
        channel_[k] = w >= 590.0 ? 0 : w >= 490.0 ? 1 : 2;
        const std::array<double, 3> xyz = ColourMatching(w);
        // XYZ to linear sRGB.
        share_[k] = {3.2406 * xyz[0] - 1.5372 * xyz[1] - 0.4986 * xyz[2],
                     -0.9689 * xyz[0] + 1.8758 * xyz[1] + 0.0415 * xyz[2],
                     0.0557 * xyz[0] - 0.2040 * xyz[1] + 1.0570 * xyz[2]};
        for (int c = 0; c < 3; ++c)
            totals[std::size_t(c)] += share_[k][std::size_t(c)];
        if (std::abs(w - kSodium) < std::abs(wavelength_[std::size_t(middle_)] - kSodium))
            middle_ = i;
    }
    // Scaled so that light equal at every wavelength is white of the same level.
    for (int i = 0; i < count_; ++i)
        for (int c = 0; c < 3; ++c)
            share_[std::size_t(i)][std::size_t(c)] /= totals[std::size_t(c)];
}

std::array<double, 3> SpectralFire::Compose(const double* light) const {
    // The mean plus each channel's weighting of the departures from it: with no departure
    // every channel is the mean exactly, whatever the rounding of the shares.
    double spread = 0.0;
    for (int i = 1; i < count_; ++i)
        spread += light[i] - light[0];
    const double mean = light[0] + spread / count_;
    std::array<double, 3> rgb = {mean, mean, mean};
    for (int i = 0; i < count_; ++i) {
        const double departure = light[i] - mean;
        if (departure != 0.0)
            for (int c = 0; c < 3; ++c)
                rgb[std::size_t(c)] += share_[std::size_t(i)][std::size_t(c)] * departure;
    }
    return rgb;
}

}  // namespace kirameki
