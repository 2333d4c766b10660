#include "output/gif_compiler.h"

#include <vector>

#include "output/capture_info.h"
#include "output/gif_files.h"
#include "output/messages.h"
#include "output/palette_reduction.h"
#include "output/path_block.h"
#include "output/webp_animation.h"

namespace kirameki {

GifCompiled CompileAnimatedGif(const std::string& stem, int frameCount, const FrameSize& frameSize,
                               int delayHundredths, int direction, const std::string& output,
                               const std::function<void(int, int)>& progress,
                               std::string& message) {
    return CompileAnimation(stem, frameCount, frameSize, delayHundredths, direction, output, {},
                            progress, message);
}

GifCompiled CompileAnimation(const std::string& stem, int frameCount, const FrameSize& frameSize,
                             int delayHundredths, int direction, const std::string& output,
                             const AnimationFormat& format,
                             const std::function<void(int, int)>& progress, std::string& message) {
    // Grown frame by frame: a damaged record may claim more frames than memory could hold,
    // and the first one missing ends the loading.
    std::vector<IndexedImage> frames;
    FrameSize expected = frameSize;
    for (int i = 0; i < frameCount; ++i) {
        if (progress)
            progress(i, frameCount);
        const int frame = direction == 1 ? frameCount - 1 - i : i;
        const std::string path = FrameFileName(stem, frame, frameCount);
        std::string error;
        IndexedImage& loaded = frames.emplace_back();
        const FrameState state = ReadFrameGif(path, expected, loaded, error);
        if (state == FrameState::kMissing) {
            message = messages::Format(messages::kMissingFrame, path);
            return GifCompiled::kFrameProblem;
        }
        if (state == FrameState::kDamaged) {
            message = messages::Format(messages::kDamagedFrame, error);
            return GifCompiled::kFrameProblem;
        }
        expected = {loaded.width, loaded.height};
    }
    std::string error;
    const bool written =
        format.webp ? WriteAnimatedWebP(output, frames, delayHundredths, format.webpQuality, error)
                    : WriteAnimatedGif(output, frames, delayHundredths, error);
    if (!written) {
        message = error;
        return GifCompiled::kWriteFailed;
    }
    if (progress)
        progress(frameCount, frameCount);
    message = messages::Format(
        format.webp ? messages::kAnimatedWebPSaved : messages::kAnimationSaved, output);
    return GifCompiled::kSaved;
}

FrameSize RecordedFrameSize(const std::string& recordPath) {
    AppSettings settings;
    ViewState view;
    CaptureState capture;
    SceneState scene{settings, view, capture};
    if (!ReadCaptureInfo(recordPath, scene, false).opened || settings.imageSize < 1 ||
        settings.imageSize > kMaxPictureSide)
        return {};
    const auto [width, height] = TrimmedSize(settings.imageSize, settings.imageSize,
                                             settings.trim.on != 0, settings.trim.Margins());
    return {width, height};
}

}  // namespace kirameki
