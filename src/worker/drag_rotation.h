#pragma once

#include "render/view_state.h"

namespace kirameki {

// A drag of (dx, dy) panel pixels turns about the screen's axes: across the whole panel
// (`span` pixels) is half a turn. Dragging right turns the front to the right, dragging
// down turns it down.
void TurnByDrag(OrientationFrame& frame, int dx, int dy, int span);

// The light-ray area's drag: across turns about the view's Y axis, up and down about the
// light's own X axis, as the held keys do.
void TurnLightByDrag(OrientationFrame& light, int dx, int dy, int span);

}  // namespace kirameki
