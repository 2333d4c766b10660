#include "render/polygon_fill.h"

#include <algorithm>
#include <cmath>

namespace kirameki {

void FillConvexPolygon(FrameImage& image, const ScreenPoint* points, int count, std::uint32_t rgb) {
    if (count < 1)
        return;
    int top = points[0].y, bottom = points[0].y;
    for (int i = 1; i < count; ++i) {
        top = std::min(top, points[i].y);
        bottom = std::max(bottom, points[i].y);
    }
    top = std::max(top, 0);
    bottom = std::min(bottom, image.Height() - 1);
    for (int y = top; y <= bottom; ++y) {
        double left = 1e300, right = -1e300;
        for (int i = 0; i < count; ++i) {
            const ScreenPoint a = points[i], b = points[(i + 1) % count];
            if ((y < std::min(a.y, b.y)) || (y > std::max(a.y, b.y)))
                continue;
            if (a.y == b.y) {
                left = std::min({left, double(a.x), double(b.x)});
                right = std::max({right, double(a.x), double(b.x)});
                continue;
            }
            const double x = a.x + double(y - a.y) * (b.x - a.x) / double(b.y - a.y);
            left = std::min(left, x);
            right = std::max(right, x);
        }
        if (left > right)
            continue;
        const int from = std::max(0, int(std::lround(left)));
        const int to = std::min(image.Width() - 1, int(std::lround(right)));
        for (int x = from; x <= to; ++x)
            image.SetPixel(x, y, rgb);
    }
}

void PaintPreview(FrameImage& image, const PreviewPolygons& preview, std::uint32_t background) {
    image.Fill(background);
    for (int i = 0; i < preview.facesDrawn; ++i)
        FillConvexPolygon(image, preview.polygons[i].points.data(), preview.polygons[i].count,
                          preview.polygons[i].colour);
}

}  // namespace kirameki
