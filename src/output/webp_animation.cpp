#include "output/webp_animation.h"

#include <webp/encode.h>
#include <webp/mux.h>

#include <algorithm>
#include <cstdint>
#include <memory>

#include "output/atomic_file.h"

namespace kirameki {

namespace {

struct EncoderDeleter {
    void operator()(WebPAnimEncoder* encoder) const { WebPAnimEncoderDelete(encoder); }
};

// One frame as a WebP picture in RGBA.
bool ToPicture(const IndexedImage& frame, WebPPicture& picture) {
    std::vector<std::uint8_t> rgba(frame.pixels.size() * 4);
    for (std::size_t i = 0; i < frame.pixels.size(); ++i) {
        const std::uint32_t colour = frame.palette[frame.pixels[i]];
        rgba[4 * i] = std::uint8_t(colour & 0xff);
        rgba[4 * i + 1] = std::uint8_t((colour >> 8) & 0xff);
        rgba[4 * i + 2] = std::uint8_t((colour >> 16) & 0xff);
        rgba[4 * i + 3] = 0xff;
    }
    picture.use_argb = 1;
    picture.width = frame.width;
    picture.height = frame.height;
    return WebPPictureImportRGBA(&picture, rgba.data(), frame.width * 4) != 0;
}

}  // namespace

bool WriteAnimatedWebP(const std::string& path, const std::vector<IndexedImage>& frames,
                       int delayHundredths, int quality, std::string& error) {
    const std::string cannot = "Cannot write " + path + ": ";
    if (frames.empty()) {
        error = cannot + "there are no frames";
        return false;
    }
    for (const IndexedImage& frame : frames) {
        if (const std::string problem = IndexedImageProblem(frame); !problem.empty()) {
            error = cannot + problem;
            return false;
        }
        if (frame.width != frames[0].width || frame.height != frames[0].height) {
            error = cannot + "the frames differ in size";
            return false;
        }
    }
    WebPAnimEncoderOptions options;
    WebPConfig config;
    if (!WebPAnimEncoderOptionsInit(&options) || !WebPConfigInit(&config)) {
        error = cannot + "the WebP library does not match its headers";
        return false;
    }
    options.anim_params.loop_count = 0;  // for ever
    options.allow_mixed = 0;
    if (quality < 0) {
        WebPConfigLosslessPreset(&config, 6);
    } else {
        config.lossless = 0;
        config.quality = float(std::min(quality, 100));
        config.method = 4;
    }
    std::unique_ptr<WebPAnimEncoder, EncoderDeleter> encoder(
        WebPAnimEncoderNew(frames[0].width, frames[0].height, &options));
    if (!encoder) {
        error = cannot + "out of memory";
        return false;
    }
    const int delay = std::max(1, std::clamp(delayHundredths, 0, 65535) * 10);
    int timestamp = 0;
    for (const IndexedImage& frame : frames) {
        WebPPicture picture;
        if (!WebPPictureInit(&picture)) {
            error = cannot + "the WebP library does not match its headers";
            return false;
        }
        const bool added = ToPicture(frame, picture) &&
                           WebPAnimEncoderAdd(encoder.get(), &picture, timestamp, &config);
        WebPPictureFree(&picture);
        if (!added) {
            error = cannot + WebPAnimEncoderGetError(encoder.get());
            return false;
        }
        timestamp += delay;
    }
    WebPData data;
    WebPDataInit(&data);
    if (!WebPAnimEncoderAdd(encoder.get(), nullptr, timestamp, nullptr) ||
        !WebPAnimEncoderAssemble(encoder.get(), &data)) {
        error = cannot + WebPAnimEncoderGetError(encoder.get());
        WebPDataClear(&data);
        return false;
    }
    const bool written = WriteFileAtomically(
        path,
        [&](std::FILE* file) { return std::fwrite(data.bytes, 1, data.size, file) == data.size; },
        error);
    WebPDataClear(&data);
    return written;
}

}  // namespace kirameki
