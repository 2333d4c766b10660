#include "render/view_state.h"

#include <cmath>

namespace kirameki {

namespace {

int Sign(double c) {
    return (c > 0.0) - (c < 0.0);
}

// c / sqrt(d2) formed so that a zero numerator yields exactly zero.
double SignedRoot(double c, double d2) {
    return Sign(c) * std::sqrt(c * c / d2);
}

Vec3 Renormalised(Vec3 v) {
    const double d2 = Dot(v, v);
    return {SignedRoot(v.x, d2), SignedRoot(v.y, d2), SignedRoot(v.z, d2)};
}

}  // namespace

void Decompose(OrientationFrame& frame) {
    const Vec3 A = frame.AxisA, B = frame.AxisB;
    double C0, S0, C1, S1, p, q;
    if (std::abs(A.y) > 1.0 / std::sqrt(2.0)) {
        frame.FrameFlag = 1;
        const double r = std::sqrt(A.z * A.z + A.y * A.y);
        C0 = -A.z / r;
        S0 = A.y / r;
        C1 = r;
        S1 = -A.x;
        const double t = B.z * C0 - B.y * S0;
        p = B.z * S0 + B.y * C0;
        q = B.x * C1 - t * S1;
        frame.FrameCos[2] = SignedRoot(q, p * p + q * q);
        frame.FrameSin[2] = SignedRoot(p, p * p + q * q);
    } else {
        frame.FrameFlag = 0;
        const double r = std::sqrt(A.z * A.z + A.x * A.x);
        C0 = r;
        S0 = -A.y;
        C1 = -A.z / r;
        S1 = A.x / r;
        const double t = B.z * C1 - B.x * S1;
        p = B.z * S1 + B.x * C1;
        q = B.y * C0 - t * S0;
        frame.FrameCos[2] = SignedRoot(p, p * p + q * q);
        frame.FrameSin[2] = SignedRoot(q, p * p + q * q);
    }
    frame.FrameCos[0] = C0;
    frame.FrameSin[0] = S0;
    frame.FrameCos[1] = C1;
    frame.FrameSin[1] = S1;
}

Vec3 ApplyFrame(const OrientationFrame& frame, Vec3 v) {
    const double C0 = frame.FrameCos[0], C1 = frame.FrameCos[1], C2 = frame.FrameCos[2];
    const double S0 = frame.FrameSin[0], S1 = frame.FrameSin[1], S2 = frame.FrameSin[2];
    const double x1 = v.x * C2 + v.y * S2;
    const double y1 = -v.x * S2 + v.y * C2;
    if (frame.FrameFlag == 1) {
        const double z1 = -x1 * S1 + v.z * C1;
        const double x2 = x1 * C1 + v.z * S1;
        return {x2, -z1 * S0 + y1 * C0, z1 * C0 + y1 * S0};
    }
    const double z1 = -y1 * S0 + v.z * C0;
    const double y2 = y1 * C0 + v.z * S0;
    return {-z1 * S1 + x1 * C1, y2, z1 * C1 + x1 * S1};
}

namespace {

// Sets the frame to the rotation that carries (0, 0, -1) to a and (1, 0, 0) to x.
void SetFromImages(OrientationFrame& frame, Vec3 a, Vec3 x) {
    frame.AxisA = Renormalised(a);
    Decompose(frame);  // the first two plane rotations depend on AxisA alone
    const double C0 = frame.FrameCos[0], C1 = frame.FrameCos[1];
    const double S0 = frame.FrameSin[0], S1 = frame.FrameSin[1];
    // x taken back through those two rotations leaves the in-plane pair (x1, y1).
    double x1, y1;
    if (frame.FrameFlag == 1) {
        const double t = x.z * C0 - x.y * S0;
        y1 = x.z * S0 + x.y * C0;
        x1 = x.x * C1 - t * S1;
    } else {
        const double t = x.z * C1 - x.x * S1;
        x1 = x.z * S1 + x.x * C1;
        y1 = x.y * C0 - t * S0;
    }
    OrientationFrame chain = frame;
    chain.FrameCos[2] = 1.0;
    chain.FrameSin[2] = 0.0;
    frame.AxisB = Renormalised(ApplyFrame(chain, {x1, -y1, 0.0}));
    Decompose(frame);
}

}  // namespace

void RotationStep(OrientationFrame& frame, const OrientationFrame& step) {
    SetFromImages(frame, ApplyFrame(step, frame.AxisA),
                  ApplyFrame(step, ApplyFrame(frame, {1.0, 0.0, 0.0})));
}

void LocalRotationStep(OrientationFrame& frame, const OrientationFrame& step) {
    SetFromImages(frame, ApplyFrame(frame, step.AxisA),
                  ApplyFrame(frame, ApplyFrame(step, {1.0, 0.0, 0.0})));
}

OrientationFrame MakeFrame(Vec3 axisA, Vec3 axisB) {
    OrientationFrame frame;
    frame.AxisA = axisA;
    frame.AxisB = axisB;
    Decompose(frame);
    return frame;
}

Vec3 LightDirectionOf(const OrientationFrame& light) {
    return -light.AxisA;
}

ViewState InitialViewState() {
    ViewState state;
    // A quarter turn less the tilt about X carries the stone's axis (model Y) to
    // (0, sin 30, -cos 30): the crown faces the eye and leans back.
    const double tilt = 30.0 * std::acos(-1.0) / 180.0;
    state.object = MakeFrame({0.0, -std::cos(tilt), -std::sin(tilt)}, {1.0, 0.0, 0.0});
    // The light comes from the upper left, from the viewer's side.
    const Vec3 towardLight = Normalized({-0.45, 0.6, -0.66});
    const Vec3 across = Normalized(Cross({0.0, 1.0, 0.0}, towardLight));
    state.light = MakeFrame(towardLight, across);
    state.LightDirection = LightDirectionOf(state.light);
    return state;
}

void TransformVertices(const ViewState& state, GemModel& model) {
    for (int i = 0; i < model.VertexCount; ++i)
        model.ViewVertices[i] =
            ApplyFrame(state.view, ApplyFrame(state.object, model.ModelVertices[i]));
}

}  // namespace kirameki
