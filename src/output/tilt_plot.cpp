#include "output/tilt_plot.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <string>

namespace kirameki {

namespace {

constexpr int kWidth = 480, kHeight = 300;
constexpr int kLeft = 48, kRight = 16, kTop = 40, kBottom = 36;
constexpr int kGlyphScale = 2;

// A 3 by 5 pixel font for the few characters a chart needs: each row three bits, the top row
// first.
struct Glyph {
    char c;
    std::array<std::uint8_t, 5> rows;
};
constexpr Glyph kGlyphs[] = {
    {'0', {7, 5, 5, 5, 7}}, {'1', {2, 6, 2, 2, 7}}, {'2', {7, 1, 7, 4, 7}}, {'3', {7, 1, 7, 1, 7}},
    {'4', {5, 5, 7, 1, 1}}, {'5', {7, 4, 7, 1, 7}}, {'6', {7, 4, 7, 5, 7}}, {'7', {7, 1, 1, 1, 1}},
    {'8', {7, 5, 7, 5, 7}}, {'9', {7, 5, 7, 1, 7}}, {'-', {0, 0, 7, 0, 0}}, {'%', {5, 1, 2, 4, 5}},
    {'A', {2, 5, 7, 5, 5}}, {'C', {7, 4, 4, 4, 7}}, {'D', {6, 5, 5, 5, 6}}, {'E', {7, 4, 6, 4, 7}},
    {'G', {7, 4, 5, 5, 7}}, {'H', {5, 5, 7, 5, 5}}, {'I', {7, 2, 2, 2, 7}}, {'K', {5, 5, 6, 5, 5}},
    {'L', {4, 4, 4, 4, 7}}, {'O', {7, 5, 5, 5, 7}}, {'S', {7, 4, 7, 1, 7}}, {'T', {7, 2, 2, 2, 2}},
    {'U', {5, 5, 5, 5, 7}}, {'N', {5, 7, 7, 5, 5}}, {'R', {6, 5, 6, 5, 5}}, {'B', {6, 5, 6, 5, 6}},
    {'Y', {5, 5, 2, 2, 2}}, {'P', {7, 5, 7, 4, 4}},
};

class Canvas {
  public:
    explicit Canvas(FrameImage& image) : image_(image) {}

    void Dot(int x, int y, std::uint32_t colour) {
        if (x >= 0 && y >= 0 && x < kWidth && y < kHeight)
            image_.SetPixel(x, y, colour);
    }
    void Box(int x0, int y0, int x1, int y1, std::uint32_t colour) {
        for (int y = y0; y <= y1; ++y)
            for (int x = x0; x <= x1; ++x)
                Dot(x, y, colour);
    }
    // A line two pixels wide; dashed when `dash` is non-zero (pixels on, then off).
    void Line(double x0, double y0, double x1, double y1, std::uint32_t colour, int dash = 0) {
        const int steps = int(std::ceil(std::max(std::abs(x1 - x0), std::abs(y1 - y0)))) + 1;
        for (int i = 0; i <= steps; ++i) {
            if (dash && (i / dash) % 2)
                continue;
            const double t = double(i) / steps;
            const int x = int(std::lround(x0 + (x1 - x0) * t));
            const int y = int(std::lround(y0 + (y1 - y0) * t));
            Box(x, y, x + 1, y + 1, colour);
        }
    }
    // Text with its top-left corner at (x, y); right-aligned to x when `right`.
    void Text(int x, int y, const std::string& text, std::uint32_t colour, bool right = false) {
        const int advance = 4 * kGlyphScale;
        if (right)
            x -= int(text.size()) * advance;
        for (const char c : text) {
            for (const Glyph& g : kGlyphs)
                if (g.c == c)
                    for (int row = 0; row < 5; ++row)
                        for (int col = 0; col < 3; ++col)
                            if (g.rows[std::size_t(row)] & (4 >> col))
                                Box(x + col * kGlyphScale, y + row * kGlyphScale,
                                    x + col * kGlyphScale + kGlyphScale - 1,
                                    y + row * kGlyphScale + kGlyphScale - 1, colour);
            x += advance;
        }
    }

  private:
    FrameImage& image_;
};

}  // namespace

FrameImage DrawTiltPlot(const std::vector<LightFigures>& tilts) {
    FrameImage image(kWidth, kHeight);
    Canvas canvas(image);
    const std::uint32_t white = PackRgb(255, 255, 255), grid = PackRgb(222, 222, 222),
                        ink = PackRgb(40, 40, 40);
    canvas.Box(0, 0, kWidth - 1, kHeight - 1, white);
    if (tilts.empty())
        return image;
    const double low = tilts.front().tilt, high = tilts.back().tilt;
    const double span = high > low ? high - low : 1.0;
    const auto px = [&](double tilt) {
        return kLeft + (tilt - low) / span * (kWidth - kLeft - kRight - 1);
    };
    const auto py = [&](double percent) {
        return kTop + (100.0 - percent) / 100.0 * (kHeight - kTop - kBottom - 1);
    };
    for (int p = 0; p <= 100; p += 10) {
        canvas.Line(px(low), py(p), px(high), py(p), p == 0 ? ink : grid);
        if (p % 20 == 0)
            canvas.Text(kLeft - 6, int(py(p)) - 5, std::to_string(p) + "%", ink, true);
    }
    for (const LightFigures& f : tilts) {
        canvas.Line(px(f.tilt), py(0), px(f.tilt), py(100), f.tilt == 0.0 ? ink : grid);
        char label[16];
        std::snprintf(label, sizeof label, "%d", int(std::lround(f.tilt)));
        const int width = int(std::string(label).size()) * 4 * kGlyphScale;
        canvas.Text(int(px(f.tilt)) - width / 2, kHeight - kBottom + 6, label, ink);
    }
    struct Series {
        const char* name;
        double LightFigures::*field;
        std::uint32_t colour;
        int dash;
    };
    const Series series[] = {
        {"ISO", &LightFigures::isoBrightness, PackRgb(0, 0, 0), 0},
        {"COS", &LightFigures::cosBrightness, PackRgb(0, 140, 70), 0},
        {"LEAK", &LightFigures::leakage, PackRgb(200, 30, 30), 6},
        {"HEAD", &LightFigures::headShadow, PackRgb(40, 70, 210), 6},
    };
    int legend = kLeft;
    for (const Series& s : series) {
        for (std::size_t i = 1; i < tilts.size(); ++i)
            canvas.Line(px(tilts[i - 1].tilt), py(tilts[i - 1].*s.field), px(tilts[i].tilt),
                        py(tilts[i].*s.field), s.colour, s.dash);
        canvas.Box(legend, 12, legend + 13, 21, s.colour);
        canvas.Text(legend + 20, 12, s.name, ink);
        legend += 24 + int(std::string(s.name).size()) * 4 * kGlyphScale + 16;
    }
    canvas.Text(kWidth - kRight, 12, "TILT", ink, true);
    return image;
}

}  // namespace kirameki
