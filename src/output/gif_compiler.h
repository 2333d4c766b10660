#pragma once

#include <functional>
#include <string>

#include "output/gif_files.h"

namespace kirameki {

// Compiles the frames stem_F[..].gif of a complete capture of frameCount frames into one
// animated GIF that loops forever, delayHundredths per frame, in frame order (direction 0,
// anticlockwise) or reversed (direction 1, clockwise). progress(i, N) is called before each
// frame is loaded and once more at the end. Every frame must have the size given (zero: the
// size of the first frame loaded). Answers kSaved when the file was written; otherwise nothing
// is written and message says why, naming the first frame in loading order that is missing
// or damaged.
enum class GifCompiled { kSaved, kFrameProblem, kWriteFailed };
GifCompiled CompileAnimatedGif(const std::string& stem, int frameCount, const FrameSize& frameSize,
                               int delayHundredths, int direction, const std::string& output,
                               const std::function<void(int, int)>& progress, std::string& message);

// The kind of file the frames are compiled into: the 256-colour animated GIF, or an animated
// WebP in full colour (each frame keeps its own palette), lossless or lossy at a quality.
struct AnimationFormat {
    bool webp = false;
    int webpQuality = -1;  // lossless when negative, else 0..100
};

// CompileAnimatedGif into the format given.
GifCompiled CompileAnimation(const std::string& stem, int frameCount, const FrameSize& frameSize,
                             int delayHundredths, int direction, const std::string& output,
                             const AnimationFormat& format,
                             const std::function<void(int, int)>& progress, std::string& message);

// The size of the frames a capture record describes: its picture size, trimmed when trimming
// is on. Zero when the record cannot be read.
FrameSize RecordedFrameSize(const std::string& recordPath);

}  // namespace kirameki
