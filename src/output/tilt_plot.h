#pragma once

#include <vector>

#include "render/frame_image.h"
#include "render/light_study.h"

namespace kirameki {

// The tilt study as a chart: ISO and COS brightness, leakage and the head's shadow in
// percent over the tilts, with a grid every 10 percent and every tick of tilt, a scale and a
// legend. White ground, 480 by 300 pixels.
FrameImage DrawTiltPlot(const std::vector<LightFigures>& tilts);

}  // namespace kirameki
