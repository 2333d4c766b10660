#pragma once

#include <string>

#include "output/picture_writers.h"
#include "output/scene_state.h"
#include "render/frame_image.h"

namespace kirameki {

// Saves a rendered picture as a screen shot: trimmed when the settings' trimming is on, in
// the format given, with the flat background exact, and, when asked, the Position-Info
// record of the scene beside it (the picture's stem + ".gpi"). False with one clear line in
// error when either file could not be written; nothing is then claimed.
bool SaveScreenShot(const FrameImage& picture, const std::string& path, PictureFormat format,
                    const SceneState& scene, bool withPositionInfo, std::string& error);

}  // namespace kirameki
