#include "output/png_writer.h"

#include <png.h>

#include <csetjmp>
#include <vector>

#include "output/atomic_file.h"

namespace kirameki {

namespace {

bool WritePngRows(std::FILE* file, const FrameImage& image) {
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    if (png == nullptr)
        return false;
    png_infop info = png_create_info_struct(png);
    std::vector<png_byte> row(std::size_t(image.Width()) * 3);
    if (info == nullptr || setjmp(png_jmpbuf(png))) {
        png_destroy_write_struct(&png, &info);
        return false;
    }
    png_init_io(png, file);
    png_set_IHDR(png, info, image.Width(), image.Height(), 8, PNG_COLOR_TYPE_RGB,
                 PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_write_info(png, info);
    for (int y = 0; y < image.Height(); ++y) {
        const std::uint8_t* bgr = image.Row(y);
        for (int x = 0; x < image.Width(); ++x) {
            row[3 * x] = bgr[3 * x + 2];
            row[3 * x + 1] = bgr[3 * x + 1];
            row[3 * x + 2] = bgr[3 * x];
        }
        png_write_row(png, row.data());
    }
    png_write_end(png, nullptr);
    png_destroy_write_struct(&png, &info);
    return true;
}

}  // namespace

bool WritePng24(const std::string& path, const FrameImage& image, std::string& error) {
    return WriteFileAtomically(
        path, [&](std::FILE* file) { return WritePngRows(file, image); }, error);
}

}  // namespace kirameki
