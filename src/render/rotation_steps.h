#pragma once

#include <optional>

#include "render/view_state.h"

namespace kirameki {

// One round of a held rotation turns by pi/64, so 128 rounds make a full turn.
inline constexpr double kRotationStepAngle = 3.14159265358979323846 / 64.0;

enum class TurnAxis { kNone, kY, kX, kZ };

// What one rotation identifier (a button or a key combination) turns.
struct RotationKind {
    TurnAxis axis = TurnAxis::kNone;  // kNone: the round only redraws
    int sense = 0;                    // +1 or -1
    bool light = false;               // turns the light ray instead of the stone or view point
};

// 1006/1007 Y, 1008/1009 X, 1010/1011 Z (positive, negative); 1012..1015 the light as
// 1006..1009; 1105, 1115, 1125, 1135 as 1006..1009; anything else redraws only.
RotationKind ClassifyRotation(int identifier);

// The step frame of one round: the axis (0, 0, -1) and its second axis (1, 0, 0), turned
// by the step angle about the given axis. Nullopt when the kind turns nothing.
std::optional<OrientationFrame> StepFrame(const RotationKind& kind,
                                          double angle = kRotationStepAngle);

}  // namespace kirameki
