#pragma once

#include <array>
#include <cstdint>

#include "model/gem_model.h"

namespace kirameki {

// An orientation kept as two unit axes and their decomposition into three plane rotations.
// The identity frame has AxisA = (0, 0, -1) and AxisB = (1, 0, 0); applying a frame to
// (0, 0, -1) always gives AxisA.
struct OrientationFrame {
    Vec3 AxisA{0.0, 0.0, -1.0};
    Vec3 AxisB{1.0, 0.0, 0.0};
    std::int32_t FrameFlag = 0;  // 1 when decomposed by the steep variant
    std::array<double, 3> FrameCos{1.0, 1.0, 1.0};
    std::array<double, 3> FrameSin{0.0, 0.0, 0.0};
};

// Recomputes FrameFlag, FrameCos and FrameSin from AxisA and AxisB.
void Decompose(OrientationFrame& frame);

// Turns v by the frame.
Vec3 ApplyFrame(const OrientationFrame& frame, Vec3 v);

// Turns the frame by the step frame about the fixed view axes: AxisA is carried by the step,
// both axes are renormalised and the frame is decomposed again. The decomposition reads the
// in-plane angle of AxisB mirrored, so AxisB is set to the vector that makes the turned
// frame apply exactly the step after the old frame: a held turn is then a steady rotation
// and 128 rounds of pi/64 come back to the start.
void RotationStep(OrientationFrame& frame, const OrientationFrame& step);

// The same turn about the frame's own axes (the stone turning about its own axes): the step
// axes are carried through the current frame first.
void LocalRotationStep(OrientationFrame& frame, const OrientationFrame& step);

// A frame built from two axes and decomposed.
OrientationFrame MakeFrame(Vec3 axisA, Vec3 axisB);

// The orientation of the stone (object), of the view point and of the light ray.
// ViewVertices = view(object(ModelVertices)).
struct ViewState {
    OrientationFrame object;
    OrientationFrame view;
    OrientationFrame light;
    Vec3 LightDirection;  // the direction the main light travels, in view coordinates
};

// The orientation a stone is first shown in: crown toward the eye, tilted back by 30
// degrees so that table and crown facets both read; the light from the upper left, in front.
ViewState InitialViewState();

// The light travels against the light frame's first axis.
Vec3 LightDirectionOf(const OrientationFrame& light);

// Carries the model's vertices into view coordinates.
void TransformVertices(const ViewState& state, GemModel& model);

}  // namespace kirameki
