#pragma once

#include <array>

namespace kirameki {

// Spectral fire: a pixel traced at several wavelengths across the visible range, each at the
// stone's own index for it, and the results summed to sRGB through the CIE 1931
// colour-matching functions, so that dispersion shows as spectral colours.
class SpectralFire {
  public:
    static constexpr int kMinSamples = 4;
    static constexpr int kMaxSamples = 32;

    // `samples` wavelengths (kept within 4..32) at the middles of equal steps from 400 to
    // 700 nm, for a stone of index `stoneIndex` at the sodium line (589.3 nm) and B-G
    // dispersion `dispersion` (n at 430.8 nm minus n at 686.7 nm), by Cauchy's formula.
    SpectralFire(int samples, double stoneIndex, double dispersion);

    int Count() const { return count_; }
    double Wavelength(int i) const { return wavelength_[std::size_t(i)]; }
    double IndexAt(int i) const { return index_[std::size_t(i)]; }
    // Which colour channel of a trace stands for sample i's wavelength (a coloured stone
    // absorbs by channel): red from 590 nm, green from 490 nm, blue below.
    int ChannelOf(int i) const { return channel_[std::size_t(i)]; }
    // The sample nearest the sodium line, whose highlight the pixel shows.
    int Middle() const { return middle_; }

    // The linear red, green and blue of the samples' light. Equal light at every sample
    // gives exactly that light in every channel: white stays white to the last bit.
    std::array<double, 3> Compose(const double* light) const;

  private:
    int count_ = 0;
    int middle_ = 0;
    std::array<double, kMaxSamples> wavelength_{};
    std::array<double, kMaxSamples> index_{};
    std::array<int, kMaxSamples> channel_{};
    // Each sample's share of each channel; every channel's shares sum to 1.
    std::array<std::array<double, 3>, kMaxSamples> share_{};
};

// The CIE 1931 2-degree colour-matching functions x, y and z at a wavelength in nm, from
// the multi-lobe Gaussian fit of Wyman, Sloan and Shirley (within a few percent).
std::array<double, 3> ColourMatching(double wavelength);

}  // namespace kirameki
