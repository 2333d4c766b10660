#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

#include "model/vec3.h"

namespace kirameki {

// The light a stone is seen in. Classic: the three lights below. The others are standard
// lighting models for judging how a design performs, all fixed to the viewer, who looks
// along +z from -z (so the face-up stone's girdle plane is z = 0 and "above" is -z):
// - ISO: a uniform hemisphere above the girdle plane, nothing below;
// - COS: the same hemisphere, its radiance the cosine of the angle from straight above;
// - ASET: the light coloured by where it comes from: green below the lower elevation
//   (45 degrees), red up to the upper one (75), blue above (the observer's own
//   obstruction), black from below the girdle plane;
// - Regions: full light from the chosen regions of the sky only, for measuring shares.
// A head shadow (a cone around the viewing direction that the observer's head blocks) can
// darken any of them.
enum class LightingModel : std::uint8_t { kClassic, kIso, kCos, kAset, kRegions };

// The regions of the sky around the viewer, as bits.
enum SkyRegion : unsigned {
    kSkyBelow = 1,  // below the girdle plane: light that leaks
    kSkyLow = 2,    // above it, below the lower ASET elevation
    kSkyMid = 4,    // between the ASET elevations
    kSkyHigh = 8,   // above the upper elevation, outside the head shadow
    kSkyHead = 16,  // in the head shadow
};

struct LightSetup {
    LightingModel model = LightingModel::kClassic;
    double headShadow = 0.0;  // half-angle in degrees of the head's cone, 0 for none
    double asetLow = 45.0;    // elevations in degrees of the ASET colour boundaries
    double asetHigh = 75.0;
    unsigned regions = 0;  // SkyRegion bits, for the Regions model
};

// The full light of the standard models: the value a perfect white diffuser returns under
// the unobstructed hemisphere, and the largest the frame renderer shows without clipping
// ((255 - 40) / 1600: its floor and gain).
inline constexpr double kEnvironmentUnit = 0.134375;

// The light around the stone, as seen along a direction leaving it. Three lights, each
// scaled by its volume in percent:
// - the main light, a broad soft light travelling along the light direction (a jeweller's
//   lamp above and in front of the stone), whose mirror image is the white highlight;
// - the back light, behind the stone, seen by rays that leave it away from the viewer;
// - the fill light, a dim even light from everywhere, a little brighter from above.
// The back colour tints the light arriving from nowhere in particular. Values are in the
// units of the frame renderer's colour gain: about 0.14 reads as full brightness.
class Lighting {
  public:
    Lighting() = default;
    Lighting(Vec3 lightDirection, const std::array<std::int32_t, 3>& volumes,
             const std::array<std::int32_t, 3>& backColour, bool narrowMainLight,
             const LightSetup& setup = {})
        : toLight_(-lightDirection),
          main_(kMainPeak * volumes[0] / 100.0),
          back_(kBackPeak * volumes[1] / 100.0),
          fill_(kFillLevel * volumes[2] / 100.0),
          highlightExponent_(narrowMainLight ? kNarrowHighlightExponent : kHighlightExponent) {
        for (int c = 0; c < 3; ++c)
            backColour_[c] = kBackColourGain * backColour[c] / 255.0;
        // cos^6 averaged over the sphere is 1/14; the back light's squared cosine 1/6.
        const double even = main_ / 14.0 + back_ / 6.0 + fill_ * 0.625;
        classicAverage_ = {even + backColour_[0], even + backColour_[1], even + backColour_[2]};
        SetUp(setup);
    }

    // Whether the light is the classic three lights with nothing blocked.
    bool IsClassic() const { return model_ == LightingModel::kClassic && !headShadowOn_; }

    // Which region of the sky a direction leaving the stone looks at.
    unsigned RegionOf(Vec3 e) const {
        const double up = -e.z;  // the sine of the elevation above the girdle plane
        if (!(up > 0.0))
            return kSkyBelow;
        if (headShadowOn_ && up >= cosHead_)
            return kSkyHead;
        return up < sinLow_ ? kSkyLow : up < sinHigh_ ? kSkyMid : kSkyHigh;
    }

    // The main light's mirror image in a surface reflecting toward `reflected`, 0..volume.
    double Highlight(Vec3 reflected) const {
        if (model_ != LightingModel::kClassic || (headShadowOn_ && RegionOf(reflected) == kSkyHead))
            return 0.0;
        // Below this the lobe is under a millionth of its peak: skip the power.
        const double facing = Dot(reflected, toLight_);
        return facing > kHighlightCutoff
                   ? (main_ / kMainPeak) * std::pow(facing, highlightExponent_)
                   : 0.0;
    }

    // What a surface reflection shows besides the highlight.
    std::array<double, 3> Surroundings(Vec3 e) const {
        return IsClassic() ? ClassicSurroundings(e) : Environment(e, false);
    }

    // All the light arriving along -e, for a ray leaving the stone along e.
    std::array<double, 3> Radiance(Vec3 e) const {
        return IsClassic() ? ClassicRadiance(e) : Environment(e, true);
    }

    // The mean light over all directions, for light whose path is not followed to the end.
    const std::array<double, 3>& Average() const {
        return IsClassic() ? classicAverage_ : environmentAverage_;
    }

    // The terms of Radiance, for code that works it out for several directions at once.
    struct Terms {
        Vec3 toLight;
        double main, back, fill;
        std::array<double, 3> backColour;
    };
    Terms RadianceTerms() const { return {toLight_, main_, back_, fill_, backColour_}; }

  private:
    static constexpr double kMainPeak = 0.30;
    static constexpr double kBackPeak = 0.05;
    static constexpr double kFillLevel = 0.025;
    static constexpr double kBackColourGain = 0.08;
    static constexpr double kHighlightExponent = 120.0;
    static constexpr double kNarrowHighlightExponent = 800.0;
    static constexpr double kHighlightCutoff = 0.89;  // 0.89^120 is about 1e-6

    std::array<double, 3> ClassicSurroundings(Vec3 e) const {
        const double even = back_ * Back(e) + fill_ * Fill(e);
        return {even + backColour_[0], even + backColour_[1], even + backColour_[2]};
    }
    std::array<double, 3> ClassicRadiance(Vec3 e) const {
        const double facing = std::max(Dot(e, toLight_), 0.0);
        const double f2 = facing * facing;
        const double key = main_ * f2 * f2 * f2;  // a soft lamp: cos^6 about its axis
        std::array<double, 3> light = ClassicSurroundings(e);
        for (double& channel : light)
            channel += key;
        return light;
    }

    // Behind the stone: rays leaving away from the viewer (+z).
    static double Back(Vec3 e) { return e.z > 0.0 ? e.z * e.z : 0.0; }
    static double Fill(Vec3 e) { return 0.5 + 0.5 * std::max(e.y, 0.0); }

    void SetUp(const LightSetup& setup);
    // The light of the standard models, or the classic light with the head's shadow; the
    // classic main light's lamp only along the path inside the stone (`lamp`).
    std::array<double, 3> Environment(Vec3 e, bool lamp) const;

    LightingModel model_ = LightingModel::kClassic;
    bool headShadowOn_ = false;
    double cosHead_ = 1.0;
    double sinLow_ = 0.0;
    double sinHigh_ = 0.0;
    unsigned regions_ = 0;
    std::array<double, 3> environmentAverage_{};
    std::array<double, 3> classicAverage_{};
    Vec3 toLight_;
    double main_ = 0.0;
    double back_ = 0.0;
    double fill_ = 0.0;
    double highlightExponent_ = kHighlightExponent;
    std::array<double, 3> backColour_{};
};

}  // namespace kirameki
