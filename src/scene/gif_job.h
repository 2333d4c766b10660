#pragma once

#include <functional>
#include <string>

#include "output/gif_compiler.h"

namespace kirameki {

// An animated GIF to compile from the frames of a complete capture.
struct GifJob {
    std::string stem;  // the record's path without its extension
    int frameCount = 0;
    int delay = 4;      // hundredths of a second a frame
    int direction = 0;  // 0 anticlockwise (frame order), 1 clockwise
    std::string output;
    FrameSize frameSize;  // what every frame must measure (zero: as the first)
    AnimationFormat format;
};

// The job for the record at recordPath, whose frames measure what the record's picture size
// and trimming make them.
GifJob MakeGifJob(const std::string& recordPath, int frameCount, int delay, int direction,
                  const std::string& output, const AnimationFormat& format = {});

GifCompiled RunGifJob(const GifJob& job, const std::function<void(int, int)>& progress,
                      std::string& message);

}  // namespace kirameki
