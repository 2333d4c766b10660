#include "render/rotation_steps.h"

#include <cmath>

namespace kirameki {

RotationKind ClassifyRotation(int identifier) {
    switch (identifier) {
        case 1006:
        case 1105:
            return {TurnAxis::kY, +1, false};
        case 1007:
        case 1115:
            return {TurnAxis::kY, -1, false};
        case 1008:
        case 1125:
            return {TurnAxis::kX, +1, false};
        case 1009:
        case 1135:
            return {TurnAxis::kX, -1, false};
        case 1010:
            return {TurnAxis::kZ, +1, false};
        case 1011:
            return {TurnAxis::kZ, -1, false};
        case 1012:
            return {TurnAxis::kY, +1, true};
        case 1013:
            return {TurnAxis::kY, -1, true};
        case 1014:
            return {TurnAxis::kX, +1, true};
        case 1015:
            return {TurnAxis::kX, -1, true};
        default:
            return {};
    }
}

std::optional<OrientationFrame> StepFrame(const RotationKind& kind, double angle) {
    const double s = kind.sense * std::sin(angle);
    const double c = std::cos(angle);
    switch (kind.axis) {
        case TurnAxis::kY:
            return MakeFrame({s, 0.0, -c}, {c, 0.0, s});
        case TurnAxis::kX:
            return MakeFrame({0.0, s, -c}, {1.0, 0.0, 0.0});
        case TurnAxis::kZ:
            return MakeFrame({0.0, 0.0, -1.0}, {c, s, 0.0});
        case TurnAxis::kNone:
            break;
    }
    return std::nullopt;
}

}  // namespace kirameki
