#include "output/gif_compiler.h"

#include <vector>

#include "output/gif_files.h"
#include "output/messages.h"
#include "output/path_block.h"

namespace kirameki {

bool CompileAnimatedGif(const std::string& stem, int frameCount, int delayHundredths, int direction,
                        const std::string& output, const std::function<void(int, int)>& progress,
                        std::string& message) {
    std::vector<IndexedImage> frames(frameCount > 0 ? std::size_t(frameCount) : 0);
    for (int i = 0; i < frameCount; ++i) {
        if (progress)
            progress(i, frameCount);
        const int frame = direction == 1 ? frameCount - 1 - i : i;
        const std::string path = FrameFileName(stem, frame, frameCount);
        std::string error;
        if (!ReadGif(path, frames[i], error)) {
            message = messages::Format(messages::kMissingFrame, path);
            return false;
        }
    }
    std::string error;
    if (!WriteAnimatedGif(output, frames, delayHundredths, error)) {
        message = error;
        return false;
    }
    if (progress)
        progress(frameCount, frameCount);
    message = messages::Format(messages::kAnimationSaved, output);
    return true;
}

}  // namespace kirameki
