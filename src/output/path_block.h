#pragma once

#include <string>

namespace kirameki {

// A chosen file path taken apart: the folder (with its trailing '/'), the name without
// extension and the extension with its dot; the full path, which after a capture or
// position file is chosen holds the path without its extension (the stem of the frame
// files); and the folder the file dialog opens in next time. Paths are UTF-8: '/' and '.'
// never occur inside a multi-byte character, so the split never cuts one.
struct PathBlock {
    std::string drive;  // always empty: kept for the record's shape
    std::string directory;
    std::string name;
    std::string extension;
    std::string fullPath;
    std::string initialFolder;
};

// Splits the path into the block and sets the initial folder to drive plus directory.
void SplitPath(const std::string& path, PathBlock& block);

// Splits the path, then cuts the extension off the full path.
void ChoosePath(const std::string& path, PathBlock& block);

// The number of digits of a frame index: 1, plus one each for N-1 above 9, 99 and 999.
// Never more than 4, so indices from 10000 on overflow the field, as they always have.
int FrameIndexWidth(int frameCount);

// stem + "_F[" + index zero-padded to the width + "].gif"
std::string FrameFileName(const std::string& stem, int index, int frameCount);

}  // namespace kirameki
