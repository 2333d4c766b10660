#include "render/light_study.h"

#include <gtest/gtest.h>

#include <memory>

#include "model/design.h"
#include "model/design_solid.h"
#include "model/model_builder.h"
#include "render/wavelength_fire.h"

namespace kirameki {
namespace {

// A round brilliant on 96 teeth with the pavilion at `pavilion` degrees.
std::unique_ptr<GemModel> Round(double pavilion) {
    const double g = 0.015, rad = 3.14159265358979 / 180.0;
    const auto through = [&](double a, double r, double h) {
        return r * std::sin(a * rad) + h * std::cos(a * rad);
    };
    const double culet = g + std::tan(pavilion * rad);
    std::string text = "GemCad 5.0\ng 96 0\n";
    text += "a 90 1 0 6 12 18 24 30 36 42 48 54 60 66 72 78 84 90\n";
    text += "a 34.5 " + std::to_string(through(34.5, 1.0, g)) + " 0 12 24 36 48 60 72 84\n";
    text += "a 0 " + std::to_string(g + 0.394 * std::tan(34.5 * rad)) + " 0\n";
    text += "a 21 " + std::to_string(through(21.0, 0.56, g + 0.394 * std::tan(34.5 * rad))) +
            " 6 18 30 42 54 66 78 90\n";
    const double lower = std::atan(culet - g) / rad;
    text += "a -" + std::to_string(lower) + " " + std::to_string(through(lower, 1.0, g)) +
            " 0 12 24 36 48 60 72 84\n";
    const DesignRead read = ReadDesignText(text);
    EXPECT_TRUE(read.ok) << read.error;
    const SolidBuild build = BuildDesignSolid(read.design);
    EXPECT_TRUE(build.ok) << build.error;
    auto model = std::make_unique<GemModel>();
    std::string error;
    EXPECT_TRUE(FillModel(build.solid, *model, error)) << error;
    return model;
}

LightStudy Study(const GemModel& stone, double index, LightStudySetup setup = {}) {
    setup.parameters.stoneIndex = index;
    setup.size = 96;
    setup.tiltSteps = 5;
    auto work = std::make_unique<TracerWorkAreas>();
    LightStudy study;
    EXPECT_TRUE(RunLightStudy(setup, stone, {0.0, 0.0, 1.0}, *work, study, {}, {}));
    return study;
}

TEST(LightStudy, FiguresFollowThePhysics) {
    const auto ideal = Round(41.0), window = Round(25.0);
    const LightStudy diamond = Study(*ideal, 2.42), quartz = Study(*ideal, 1.54);
    LightStudySetup open;  // no head in the way: the pavilion's work alone
    open.headShadow = 0.0;
    const LightStudy windowed = Study(*window, 2.42, open), air = Study(*ideal, 1.0);
    const LightStudy unshaded = Study(*ideal, 2.42, open);
    for (const LightStudy* s : {&diamond, &quartz, &windowed, &air}) {
        const LightFigures& f = s->faceUp;
        EXPECT_LE(f.isoBrightness, 100.0 + 1e-9);  // never more light than it receives
        EXPECT_NEAR(f.asetGreen + f.asetRed + f.asetBlue + f.asetBlack, 100.0, 1e-6);
    }
    // Without refraction the eye looks straight through to the dark below.
    EXPECT_LT(air.faceUp.isoBrightness, 1.0);
    EXPECT_GT(air.faceUp.leakage, 99.0);
    EXPECT_GT(diamond.faceUp.isoBrightness, quartz.faceUp.isoBrightness);
    EXPECT_GT(windowed.faceUp.leakage, unshaded.faceUp.leakage + 10.0);
    EXPECT_LT(windowed.faceUp.isoBrightness, unshaded.faceUp.isoBrightness);
    EXPECT_GE(unshaded.faceUp.isoBrightness, diamond.faceUp.isoBrightness);

    LightStudySetup wider;
    wider.headShadow = 30.0;
    EXPECT_LE(Study(*ideal, 2.42, wider).faceUp.isoBrightness, diamond.faceUp.isoBrightness);

    // Tilting either way across a stone with a mirror plane there reads the same.
    const auto& tilts = diamond.tilts;
    ASSERT_EQ(tilts.size(), 5u);
    EXPECT_NEAR(tilts[0].isoBrightness, tilts[4].isoBrightness, 0.5);
    EXPECT_NEAR(tilts[1].leakage, tilts[3].leakage, 0.5);
}

TEST(LightStudy, TheAsetPictureOfAnEightFoldStoneTurnsIntoItself) {
    const auto stone = Round(41.0);
    const LightStudy study = Study(*stone, 2.42);
    const FrameImage& aset = study.aset;
    const int n = aset.Width();
    long differing = 0, shown = 0;
    // A quarter turn about the pixel the rays are centred on.
    const int c = n / 2;
    for (int y = 1; y < n; ++y)
        for (int x = 1; x < n; ++x) {
            const std::uint32_t a = aset.Pixel(x, y), b = aset.Pixel(2 * c - y, x);
            shown += a != 0;
            differing += a != b;
        }
    EXPECT_LT(double(differing), 0.06 * double(shown));
}

TEST(SpectralFire, EqualLightIsExactlyWhiteAndDispersionSpreadsTheIndex) {
    const SpectralFire fire(8, 2.417, 0.044);
    double light[8];
    for (const double level : {0.0, 0.013, 0.1375, 0.77})
        for (int count : {4, 8, 17, 32}) {
            const SpectralFire f(count, 1.76, 0.0);
            std::fill(light, light + 8, level);
            double many[32];
            std::fill(many, many + 32, level);
            const auto rgb = f.Compose(many);
            EXPECT_EQ(rgb[0], level);
            EXPECT_EQ(rgb[1], level);
            EXPECT_EQ(rgb[2], level);
            EXPECT_EQ(f.IndexAt(0), f.IndexAt(count - 1));
        }
    EXPECT_NEAR(fire.IndexAt(0) - fire.IndexAt(7), 0.044 * 1.1, 0.02);
    EXPECT_GT(fire.IndexAt(0), fire.IndexAt(7));  // blue bends more
    // Light only at the red end looks red.
    std::fill(light, light + 8, 0.0);
    light[7] = 1.0;
    const auto red = fire.Compose(light);
    EXPECT_GT(red[0], red[1]);
    EXPECT_GT(red[0], red[2]);
}

}  // namespace
}  // namespace kirameki
