#include "output/gif_files.h"

#include <gif_lib.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

#include "output/atomic_file.h"
#include "output/file_reading.h"
#include "render/frame_image.h"

namespace kirameki {

namespace {

struct MapDeleter {
    void operator()(ColorMapObject* map) const { GifFreeMapObject(map); }
};
using ColourMap = std::unique_ptr<ColorMapObject, MapDeleter>;

// The palette as a colour map of the next power of two (at least 2) entries.
ColourMap MakeColourMap(const std::vector<std::uint32_t>& palette) {
    int size = 2;
    while (size < int(palette.size()))
        size *= 2;
    std::vector<GifColorType> colours(size, GifColorType{0, 0, 0});
    for (std::size_t i = 0; i < palette.size(); ++i)
        colours[i] = GifColorType{GifByteType(RedOf(palette[i])), GifByteType(GreenOf(palette[i])),
                                  GifByteType(BlueOf(palette[i]))};
    return ColourMap(GifMakeMapObject(size, colours.data()));
}

int WriteToFile(GifFileType* gif, const GifByteType* bytes, int length) {
    return int(std::fwrite(bytes, 1, std::size_t(length), static_cast<std::FILE*>(gif->UserData)));
}

bool PutLoopExtension(GifFileType* gif) {
    static constexpr GifByteType kName[] = {'N', 'E', 'T', 'S', 'C', 'A', 'P', 'E', '2', '.', '0'};
    static constexpr GifByteType kLoopForever[] = {1, 0, 0};
    return EGifPutExtensionLeader(gif, APPLICATION_EXT_FUNC_CODE) == GIF_OK &&
           EGifPutExtensionBlock(gif, sizeof kName, kName) == GIF_OK &&
           EGifPutExtensionBlock(gif, sizeof kLoopForever, kLoopForever) == GIF_OK &&
           EGifPutExtensionTrailer(gif) == GIF_OK;
}

bool PutDelay(GifFileType* gif, int delay) {
    GraphicsControlBlock control{};
    control.DisposalMode = DISPOSE_DO_NOT;
    control.UserInputFlag = false;
    control.DelayTime = delay;
    control.TransparentColor = NO_TRANSPARENT_COLOR;
    GifByteType bytes[4];
    const std::size_t length = EGifGCBToExtension(&control, bytes);
    return EGifPutExtension(gif, GRAPHICS_EXT_FUNC_CODE, int(length), bytes) == GIF_OK;
}

bool PutFrame(GifFileType* gif, const IndexedImage& frame, const ColorMapObject* localMap) {
    if (EGifPutImageDesc(gif, 0, 0, frame.width, frame.height, false, localMap) != GIF_OK)
        return false;
    // The encoder masks the line in place, so it gets a copy.
    std::vector<GifPixelType> line(frame.width);
    for (int y = 0; y < frame.height; ++y) {
        std::copy_n(frame.pixels.begin() + std::ptrdiff_t(y) * frame.width, frame.width,
                    line.begin());
        if (EGifPutLine(gif, line.data(), frame.width) != GIF_OK)
            return false;
    }
    return true;
}

// One frame with a global map, or (animated) a looping file whose frames carry local maps; the
// first frame's palette is also the global map, for readers that look only there.
bool EncodeGif(std::FILE* file, const IndexedImage* frames, std::size_t count, bool animated,
               int delay) {
    int code = 0;
    GifFileType* gif = EGifOpen(file, WriteToFile, &code);
    if (gif == nullptr)
        return false;
    EGifSetGifVersion(gif, true);
    const IndexedImage& first = frames[0];
    ColourMap global = MakeColourMap(first.palette);
    bool ok = global && EGifPutScreenDesc(gif, first.width, first.height, 8, first.pixels[0],
                                          global.get()) == GIF_OK;
    if (ok && animated)
        ok = PutLoopExtension(gif);
    for (std::size_t i = 0; ok && i < count; ++i) {
        ColourMap local;
        if (animated) {
            local = MakeColourMap(frames[i].palette);
            ok = local && PutDelay(gif, delay);
        }
        ok = ok && PutFrame(gif, frames[i], local.get());
    }
    return EGifCloseFile(gif, &code) == GIF_OK && ok;
}

bool Refuse(const std::string& path, const std::string& why, std::string& error) {
    error = "Cannot write " + path + ": " + why;
    return false;
}

struct MemoryReader {
    const std::vector<std::uint8_t>& bytes;
    std::size_t offset = 0;
};

int ReadFromMemory(GifFileType* gif, GifByteType* out, int length) {
    auto* reader = static_cast<MemoryReader*>(gif->UserData);
    const std::size_t n =
        std::min(std::size_t(std::max(length, 0)), reader->bytes.size() - reader->offset);
    std::copy_n(reader->bytes.begin() + std::ptrdiff_t(reader->offset), n, out);
    reader->offset += n;
    return int(n);
}

struct GifCloser {
    void operator()(GifFileType* gif) const {
        int code = 0;
        DGifCloseFile(gif, &code);
    }
};

// A frame of another size than the capture's, or larger than any this program writes, is
// refused from its header, before a single pixel is decoded.
std::string SizeProblem(int width, int height, const FrameSize& expected) {
    if (expected.width > 0 && (width != expected.width || height != expected.height))
        return "the picture is " + std::to_string(width) + " x " + std::to_string(height) +
               " pixels, not " + std::to_string(expected.width) + " x " +
               std::to_string(expected.height);
    if (width <= 0 || height <= 0 || width > kMaxPictureSide || height > kMaxPictureSide)
        return "the picture's declared size " + std::to_string(width) + " x " +
               std::to_string(height) + " is not one this program writes";
    return {};
}

// The most bytes a GIF of the size can take: LZW codes are at most 12 bits a pixel, plus the
// colour map, extensions and block headers.
std::size_t ByteLimit(const FrameSize& expected) {
    const auto w = std::size_t(expected.width > 0 ? expected.width : kMaxPictureSide);
    const auto h = std::size_t(expected.height > 0 ? expected.height : kMaxPictureSide);
    return w * h * 2 + 65536;
}

const char* GifError(const GifFileType* gif, int code) {
    const char* text = GifErrorString(gif != nullptr ? gif->Error : code);
    return text != nullptr ? text : "not a readable GIF file";
}

// Reads the first picture; on failure answers the reason.
std::string DecodeFirstPicture(const std::vector<std::uint8_t>& bytes, const FrameSize& expected,
                               IndexedImage& out) {
    MemoryReader reader{bytes};
    int code = 0;
    std::unique_ptr<GifFileType, GifCloser> gif(DGifOpen(&reader, ReadFromMemory, &code));
    if (!gif)
        return GifError(nullptr, code);
    if (std::string problem = SizeProblem(gif->SWidth, gif->SHeight, expected); !problem.empty())
        return problem;
    for (;;) {
        GifRecordType type = UNDEFINED_RECORD_TYPE;
        if (DGifGetRecordType(gif.get(), &type) != GIF_OK)
            return GifError(gif.get(), 0);
        if (type == TERMINATE_RECORD_TYPE)
            return "the file holds no picture";
        if (type == IMAGE_DESC_RECORD_TYPE)
            break;
        if (type != EXTENSION_RECORD_TYPE)
            return "unknown record in the file";
        int function = 0;
        GifByteType* block = nullptr;
        if (DGifGetExtension(gif.get(), &function, &block) != GIF_OK)
            return GifError(gif.get(), 0);
        while (block != nullptr)
            if (DGifGetExtensionNext(gif.get(), &block) != GIF_OK)
                return GifError(gif.get(), 0);
    }
    if (DGifGetImageDesc(gif.get()) != GIF_OK)
        return GifError(gif.get(), 0);
    const GifImageDesc& desc = gif->Image;
    if (desc.Left != 0 || desc.Top != 0 || desc.Width != gif->SWidth ||
        desc.Height != gif->SHeight || desc.Width <= 0 || desc.Height <= 0)
        return "the first picture does not cover the whole screen";
    // No GIF packs more than 4096 pixels into one byte; a larger claim is a corrupt header.
    if (double(desc.Width) * desc.Height > 4096.0 * double(bytes.size()))
        return "the picture size does not match the file";
    const ColorMapObject* map = desc.ColorMap != nullptr ? desc.ColorMap : gif->SColorMap;
    if (map == nullptr || map->ColorCount <= 0 || map->ColorCount > 256)
        return "the picture has no colour map";
    const int w = desc.Width, h = desc.Height;
    std::vector<std::uint8_t> pixels(std::size_t(w) * h);
    static constexpr int kStart[] = {0, 4, 2, 1}, kStep[] = {8, 8, 4, 2};
    const int passes = desc.Interlace ? 4 : 1;
    for (int pass = 0; pass < passes; ++pass)
        for (int y = desc.Interlace ? kStart[pass] : 0; y < h;
             y += desc.Interlace ? kStep[pass] : 1)
            if (DGifGetLine(gif.get(), pixels.data() + std::size_t(y) * w, w) != GIF_OK)
                return GifError(gif.get(), 0);
    for (const std::uint8_t index : pixels)
        if (index >= map->ColorCount)
            return "a pixel names a colour outside the colour map";
    out.width = w;
    out.height = h;
    out.pixels = std::move(pixels);
    out.palette.clear();
    for (int i = 0; i < map->ColorCount; ++i)
        out.palette.push_back(
            PackRgb(map->Colors[i].Red, map->Colors[i].Green, map->Colors[i].Blue));
    return {};
}

}  // namespace

bool WriteGif(const std::string& path, const IndexedImage& image, std::string& error) {
    if (const std::string problem = IndexedImageProblem(image); !problem.empty())
        return Refuse(path, problem, error);
    return WriteFileAtomically(
        path, [&](std::FILE* file) { return EncodeGif(file, &image, 1, false, 0); }, error);
}

std::string DecodeGifBytes(const std::vector<std::uint8_t>& bytes, const FrameSize& expected,
                           IndexedImage& out) {
    return DecodeFirstPicture(bytes, expected, out);
}

FrameState ReadFrameGif(const std::string& path, const FrameSize& expected, IndexedImage& out,
                        std::string& error) {
    const FileBytes file = ReadRegularFile(path, ByteLimit(expected));
    std::string reason = file.error;
    if (file.outcome == FileBytes::Outcome::kRead)
        reason = file.longer ? "the file is larger than a picture of its size can be"
                             : DecodeGifBytes(file.bytes, expected, out);
    if (reason.empty())
        return FrameState::kGood;
    error = "Cannot read " + path + ": " + reason;
    return file.outcome == FileBytes::Outcome::kMissing ? FrameState::kMissing
                                                        : FrameState::kDamaged;
}

bool ReadGif(const std::string& path, IndexedImage& out, std::string& error) {
    return ReadFrameGif(path, {}, out, error) == FrameState::kGood;
}

bool WriteAnimatedGif(const std::string& path, const std::vector<IndexedImage>& frames,
                      int delayHundredths, std::string& error) {
    if (frames.empty())
        return Refuse(path, "there are no frames", error);
    for (const IndexedImage& frame : frames) {
        if (const std::string problem = IndexedImageProblem(frame); !problem.empty())
            return Refuse(path, problem, error);
        if (frame.width != frames[0].width || frame.height != frames[0].height)
            return Refuse(path, "the frames differ in size", error);
    }
    const int delay = std::clamp(delayHundredths, 0, 65535);
    return WriteFileAtomically(
        path,
        [&](std::FILE* file) { return EncodeGif(file, frames.data(), frames.size(), true, delay); },
        error);
}

}  // namespace kirameki
