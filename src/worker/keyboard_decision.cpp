#include "worker/keyboard_decision.h"

#include <array>
#include <cstddef>

namespace kirameki {
namespace {

// The bits in the order they are tested; a later match overrides an earlier one, so Left beats
// Right, Up beats Left, Down beats Up and Z beats X.
constexpr std::array<int, 6> kTestOrder = {kMaskRight, kMaskLeft, kMaskUp,
                                           kMaskDown,  kMaskX,    kMaskZ};

// One row of codes in the test order above; 0 where the bit has no code in that row.
using CodeRow = std::array<int, 6>;
constexpr CodeRow kLightRayRow = {1012, 1013, 1014, 1015, 0, 0};
constexpr CodeRow kDRow = {1105, 1115, 1125, 1135, 0, 0};
constexpr CodeRow kTRow = {1205, 1205, 1205, 1205, 1205, 1205};
constexpr CodeRow kViewPointRow = {1006, 1007, 1008, 1009, 1010, 1011};

int RotationCode(int mask, bool shiftOrL, bool d, bool t) {
    const CodeRow& row = shiftOrL ? kLightRayRow : d ? kDRow : t ? kTRow : kViewPointRow;
    int code = 0;
    for (std::size_t i = 0; i < kTestOrder.size(); ++i) {
        if ((mask & kTestOrder[i]) != 0 && row[i] != 0) {
            code = row[i];
        }
    }
    return code;
}

}  // namespace

int KeyMask(const KeyStateTable& keys) {
    int mask = 0;
    mask |= keys.IsDown(Key::kLeft) ? kMaskLeft : 0;
    mask |= keys.IsDown(Key::kRight) ? kMaskRight : 0;
    mask |= keys.IsDown(Key::kUp) ? kMaskUp : 0;
    mask |= keys.IsDown(Key::kDown) ? kMaskDown : 0;
    mask |= keys.IsDown(Key::kX) ? kMaskX : 0;
    mask |= keys.IsDown(Key::kZ) ? kMaskZ : 0;
    return mask;
}

KeyboardActions DecideKeyboardActions(KeyboardPollState& state, int mask, bool shiftOrL, bool d,
                                      bool t) {
    KeyboardActions actions;
    const int complement = ~mask;
    if (complement != state.previousComplement) {
        state.previousComplement = complement;
        actions.stop = state.previousMask != 0;
    }
    if (mask != state.previousMask) {
        state.previousMask = mask;
        if (mask != 0) {
            actions.rotation = RotationCode(mask, shiftOrL, d, t);
        }
    }
    return actions;
}

}  // namespace kirameki
