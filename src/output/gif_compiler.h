#pragma once

#include <functional>
#include <string>

namespace kirameki {

// Compiles the frames stem_F[..].gif of a complete capture of frameCount frames into one
// animated GIF that loops forever, delayHundredths per frame, in frame order (direction 0,
// anticlockwise) or reversed (direction 1, clockwise). progress(i, N) is called before each
// frame is loaded and once more at the end. Returns true when the file was written; on
// failure nothing is written and message says why (naming the first missing frame).
bool CompileAnimatedGif(const std::string& stem, int frameCount, int delayHundredths, int direction,
                        const std::string& output, const std::function<void(int, int)>& progress,
                        std::string& message);

}  // namespace kirameki
