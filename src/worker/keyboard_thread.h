#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

#include "worker/key_state.h"
#include "worker/keyboard_decision.h"
#include "worker/worker_commands.h"

namespace kirameki {

// Where the keyboard thread sends its messages: the worker's queue.
class WorkerPoster {
  public:
    virtual ~WorkerPoster() = default;
    // The command message (kWorkerCommandMessage) with a command code and its argument.
    virtual void PostCommand(int command, int argument) = 0;
    // The stop-animation message (kStopAnimationMessage).
    virtual void PostStop() = 0;
};

// Polls the key table at a fixed period and turns changes of the held rotation keys into one
// rotation command for the worker, preceded by a stop when keys were already held. Runs from
// construction until Stop() or destruction.
//
// Pause(), Resume() and Stop() may be called from any thread. Pause() returns only once a poll
// under way has finished, so nothing is posted after it returns until Resume(); the key changes
// made meanwhile are not seen, and the first poll after Resume() compares against the keys held
// before the pause. The poster is called with an internal lock held: it must not call back into
// this object.
class KeyboardThread {
  public:
    KeyboardThread(const KeyStateTable& keys, WorkerPoster& poster,
                   std::chrono::milliseconds period = std::chrono::milliseconds(100));
    ~KeyboardThread();

    KeyboardThread(const KeyboardThread&) = delete;
    KeyboardThread& operator=(const KeyboardThread&) = delete;

    void Pause();
    void Resume();
    // Wakes the thread from its sleep and joins it. Call from one thread only; idempotent.
    void Stop();

  private:
    void Run();
    void Poll();

    const KeyStateTable& keys_;
    WorkerPoster& poster_;
    const std::chrono::milliseconds period_;

    std::mutex mutex_;
    std::condition_variable wake_;
    bool paused_ = false;    // guarded by mutex_
    bool stopping_ = false;  // guarded by mutex_
    KeyboardPollState state_;

    std::thread thread_;  // last: starts once everything above is set up
};

}  // namespace kirameki
