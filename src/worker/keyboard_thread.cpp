#include "worker/keyboard_thread.h"

namespace kirameki {

KeyboardThread::KeyboardThread(const KeyStateTable& keys, WorkerPoster& poster,
                               std::chrono::milliseconds period)
    : keys_(keys), poster_(poster), period_(period), thread_([this] { Run(); }) {}

KeyboardThread::~KeyboardThread() {
    Stop();
}

void KeyboardThread::Pause() {
    std::lock_guard lock(mutex_);
    paused_ = true;
}

void KeyboardThread::Resume() {
    {
        std::lock_guard lock(mutex_);
        paused_ = false;
    }
    wake_.notify_all();
}

void KeyboardThread::Stop() {
    {
        std::lock_guard lock(mutex_);
        stopping_ = true;
    }
    wake_.notify_all();
    if (thread_.joinable()) {
        thread_.join();
    }
}

void KeyboardThread::Run() {
    std::unique_lock lock(mutex_);
    for (;;) {
        wake_.wait(lock, [this] { return stopping_ || !paused_; });
        if (stopping_) {
            return;
        }
        // Polled with the lock held, so that a Pause() returns only after the poll's posts.
        Poll();
        if (wake_.wait_for(lock, period_, [this] { return stopping_; })) {
            return;
        }
    }
}

void KeyboardThread::Poll() {
    const bool shiftOrL = keys_.IsDown(Key::kShift) || keys_.IsDown(Key::kL);
    const KeyboardActions actions = DecideKeyboardActions(
        state_, KeyMask(keys_), shiftOrL, keys_.IsDown(Key::kD), keys_.IsDown(Key::kT));
    if (actions.stop) {
        poster_.PostStop();
    }
    if (actions.rotation) {
        poster_.PostCommand(kAnimateRotation, *actions.rotation);
    }
}

}  // namespace kirameki
