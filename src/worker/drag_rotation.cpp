#include "worker/drag_rotation.h"

#include <algorithm>
#include <cmath>

#include "render/rotation_steps.h"

namespace kirameki {

void TurnByDrag(OrientationFrame& frame, int dx, int dy, int span) {
    const double perPixel = 3.14159265358979323846 / std::max(span, 1);
    if (dx != 0)
        RotationStep(frame,
                     *StepFrame({TurnAxis::kY, dx > 0 ? 1 : -1, false}, std::abs(dx) * perPixel));
    if (dy != 0)
        RotationStep(frame,
                     *StepFrame({TurnAxis::kX, dy > 0 ? -1 : 1, false}, std::abs(dy) * perPixel));
}

void TurnLightByDrag(OrientationFrame& light, int dx, int dy, int span) {
    const double perPixel = 3.14159265358979323846 / std::max(span, 1);
    if (dx != 0)
        RotationStep(light,
                     *StepFrame({TurnAxis::kY, dx > 0 ? 1 : -1, false}, std::abs(dx) * perPixel));
    if (dy != 0)
        LocalRotationStep(
            light, *StepFrame({TurnAxis::kX, dy > 0 ? -1 : 1, false}, std::abs(dy) * perPixel));
}

}  // namespace kirameki
