#include "worker/key_state.h"

namespace kirameki {
namespace {

unsigned Bit(Key key) {
    return 1u << static_cast<unsigned>(key);
}

}  // namespace

// Each key is one bit of one atomic word; no ordering with other data is needed.
void KeyStateTable::SetDown(Key key, bool down) {
    if (down) {
        bits_.fetch_or(Bit(key), std::memory_order_relaxed);
    } else {
        bits_.fetch_and(~Bit(key), std::memory_order_relaxed);
    }
}

bool KeyStateTable::IsDown(Key key) const {
    return (bits_.load(std::memory_order_relaxed) & Bit(key)) != 0;
}

void KeyStateTable::ReleaseAll() {
    bits_.store(0, std::memory_order_relaxed);
}

}  // namespace kirameki
