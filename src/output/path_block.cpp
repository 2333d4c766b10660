#include "output/path_block.h"

#include <cstdio>

namespace kirameki {

void SplitPath(const std::string& path, PathBlock& block) {
    const std::size_t slash = path.rfind('/');
    const std::size_t nameStart = slash == std::string::npos ? 0 : slash + 1;
    const std::size_t dot = path.rfind('.');
    const bool hasExtension = dot != std::string::npos && dot > nameStart;
    block.drive.clear();
    block.directory = path.substr(0, nameStart);
    block.name = path.substr(nameStart, (hasExtension ? dot : path.size()) - nameStart);
    block.extension = hasExtension ? path.substr(dot) : std::string();
    block.fullPath = path;
    block.initialFolder = block.drive + block.directory;
}

void ChoosePath(const std::string& path, PathBlock& block) {
    SplitPath(path, block);
    block.fullPath = block.directory + block.name;
}

int FrameIndexWidth(int frameCount) {
    const int last = frameCount - 1;
    return 1 + (last > 9) + (last > 99) + (last > 999);
}

std::string FrameFileName(const std::string& stem, int index, int frameCount) {
    char digits[32];
    std::snprintf(digits, sizeof digits, "%0*d", FrameIndexWidth(frameCount), index);
    return stem + "_F[" + digits + "].gif";
}

}  // namespace kirameki
