#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "output/indexed_image.h"
#include "output/palette_reduction.h"  // Trimmed, for the callers that trim before writing
#include "render/frame_image.h"

namespace kirameki {

// The picture formats of a screen shot; the number is the save dialog's filter index.
enum class PictureFormat : int {
    kBmp24 = 1,
    kBmp16 = 2,
    kBmp8 = 3,
    kPng24 = 4,
    kPng16 = 5,
    kPng8 = 6,
    kGif8 = 7
};

struct PictureFormatFilter {
    PictureFormat format;
    const char* text;
    const char* pattern;
};

// The save dialog's filters, in filter order.
inline constexpr std::array<PictureFormatFilter, 7> kPictureFormatFilters{{
    {PictureFormat::kBmp24, "Bitmap 24bit FullColor (*.bmp)", "*.bmp"},
    {PictureFormat::kBmp16, "Bitmap 16bit HighColor (*.bmp)", "*.bmp"},
    {PictureFormat::kBmp8, "Bitmap 256 Colors (*.bmp)", "*.bmp"},
    {PictureFormat::kPng24, "PNG 24bit FullColor (*.png)", "*.png"},
    {PictureFormat::kPng16, "PNG 16bit HighColor (*.png)", "*.png"},
    {PictureFormat::kPng8, "PNG 256 Colors (*.png)", "*.png"},
    {PictureFormat::kGif8, "GIF 256 Colors (*.gif)", "*.gif"},
}};

// The full-colour format of a file extension ("bmp", ".PNG" or a whole file name): BMP and PNG
// give their 24-bit formats, GIF its only one; any other extension gives nothing.
std::optional<PictureFormat> PictureFormatForExtension(std::string_view extension);

// Writes the picture in the given format: the 24-bit formats as they are, the 16-bit ones
// after the 5-5-5 reduction (a true 16-bit BMP; a 24-bit PNG of the reduced colours), the
// 256-colour ones after the palette reduction and the background repair against the packed
// background colour. On failure error holds one clear line and no file is left behind.
bool WritePicture(const std::string& path, const FrameImage& image, PictureFormat format,
                  std::uint32_t background, std::string& error);

// Writes the picture as a 24-bit PNG.
bool WritePng24(const std::string& path, const FrameImage& image, std::string& error);

// Writes a 256-colour picture as an 8-bit BMP with run-length (BI_RLE8) compression.
bool WriteBmp8Rle(const std::string& path, const IndexedImage& image, std::string& error);

}  // namespace kirameki
