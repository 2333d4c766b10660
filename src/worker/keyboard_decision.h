#pragma once

#include <optional>

#include "worker/key_state.h"

namespace kirameki {

// Key mask bits of the keys that select a rotation.
inline constexpr int kMaskLeft = 1;
inline constexpr int kMaskRight = 2;
inline constexpr int kMaskUp = 4;
inline constexpr int kMaskDown = 8;
inline constexpr int kMaskX = 16;
inline constexpr int kMaskZ = 32;

// What one poll remembers for the next: the mask and its complement (~mask), both 0 at start.
struct KeyboardPollState {
    int previousMask = 0;
    int previousComplement = 0;
};

// What one poll posts to the worker, in this order: first the stop, then the rotation code
// (posted with the AnimateRotation command). Code 0 when no key of the mask has a code in the
// row chosen by the modifiers.
struct KeyboardActions {
    bool stop = false;
    std::optional<int> rotation;
};

// The mask of the rotation keys that are down.
int KeyMask(const KeyStateTable& keys);

// One poll round. Row of codes by priority: Shift or L (light ray), then D, then T, then none
// (view point). Holding the same keys posts nothing; any change stops the rotation in force
// (when some key was down) and starts the new one (when some key is still down).
KeyboardActions DecideKeyboardActions(KeyboardPollState& state, int mask, bool shiftOrL, bool d,
                                      bool t);

}  // namespace kirameki
