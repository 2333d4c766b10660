#include "scene/screen_shot.h"

#include "output/capture_info.h"
#include "output/path_block.h"
#include "scene/render_settings.h"

namespace kirameki {

bool SaveScreenShot(const FrameImage& picture, const std::string& path, PictureFormat format,
                    const SceneState& scene, bool withPositionInfo, std::string& error) {
    const Trim& trim = scene.settings.trim;
    const FrameImage trimmed =
        trim.on ? Trimmed(picture, trim.top, trim.bottom, trim.left, trim.right) : FrameImage();
    if (!WritePicture(path, trim.on ? trimmed : picture, format, BackgroundColourOf(scene.settings),
                      error))
        return false;
    if (!withPositionInfo)
        return true;
    PathBlock block;
    ChoosePath(path, block);
    return WriteCaptureInfo(block.fullPath + ".gpi", scene, error);
}

}  // namespace kirameki
