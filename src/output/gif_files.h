#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "output/indexed_image.h"

namespace kirameki {

// Writes one picture as a GIF89a file with a global colour map holding its palette (padded
// with black to a power of two). Answers false with one line in error, leaving no file, when
// the picture is not writable or the file cannot be written.
bool WriteGif(const std::string& path, const IndexedImage& image, std::string& error);

// The largest side of a picture this program writes or reads back (512 pixels, never
// enlarged by trimming).
constexpr int kMaxPictureSide = 512;

// The size a frame must have; zero: any size up to kMaxPictureSide.
struct FrameSize {
    int width = 0;
    int height = 0;
};

enum class FrameState { kGood, kMissing, kDamaged };

// Reads the first picture of a GIF file, with the colour map that applies to it (its own, else
// the global one) as palette. Interlaced pictures are read in their true row order. Only a
// regular file is read, and only as many bytes as a picture of the expected size can take;
// the declared size is checked before anything is decoded. A first picture that does not
// cover the whole logical screen is refused, as is any file that is short, corrupt, of
// another size or names colours outside its map: kDamaged, or kMissing when there is no
// file, with one line in error.
FrameState ReadFrameGif(const std::string& path, const FrameSize& expected, IndexedImage& out,
                        std::string& error);

// The decoding of ReadFrameGif over bytes already read: empty when good, else the reason.
std::string DecodeGifBytes(const std::vector<std::uint8_t>& bytes, const FrameSize& expected,
                           IndexedImage& out);

// ReadFrameGif of a picture of any size: true when it is good.
bool ReadGif(const std::string& path, IndexedImage& out, std::string& error);

// Writes the frames as one animated GIF that loops forever: a looping application extension
// (loop count 0), then every frame with a graphics control extension carrying the delay in
// hundredths of a second (clamped into 0..65535) and its own local colour map, so each frame
// keeps its exact palette. The frames must be writable and all of one size.
bool WriteAnimatedGif(const std::string& path, const std::vector<IndexedImage>& frames,
                      int delayHundredths, std::string& error);

}  // namespace kirameki
