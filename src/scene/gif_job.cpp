#include "scene/gif_job.h"

#include "output/path_block.h"

namespace kirameki {

GifJob MakeGifJob(const std::string& recordPath, int frameCount, int delay, int direction,
                  const std::string& output, const AnimationFormat& format) {
    PathBlock block;
    ChoosePath(recordPath, block);
    return {block.fullPath, frameCount,
            delay,          direction == 1 ? 1 : 0,
            output,         RecordedFrameSize(recordPath),
            format};
}

GifCompiled RunGifJob(const GifJob& job, const std::function<void(int, int)>& progress,
                      std::string& message) {
    return CompileAnimation(job.stem, job.frameCount, job.frameSize, job.delay, job.direction,
                            job.output, job.format, progress, message);
}

}  // namespace kirameki
