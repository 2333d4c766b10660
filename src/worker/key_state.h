#pragma once

#include <atomic>

namespace kirameki {

// The keys that turn the view point and the light ray.
enum class Key { kLeft, kRight, kUp, kDown, kX, kZ, kShift, kL, kD, kT };

// Which keys are down. The main window writes it from its key press and release events; the
// keyboard thread reads it. Every call may come from any thread.
class KeyStateTable {
  public:
    void SetDown(Key key, bool down);
    bool IsDown(Key key) const;
    // The window lost the focus: it will not see the releases, so every key counts as up.
    void ReleaseAll();

  private:
    std::atomic<unsigned> bits_{0};
};

}  // namespace kirameki
