#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>
#include <variant>

#include "output/capture_loop.h"
#include "render/light_study.h"
#include "scene/gif_job.h"

namespace kirameki {

// What a command carries besides its argument: the whole job, so that nothing is left in a
// mailbox for the worker to find later (a poll that eats the command eats its job too).
using CommandPayload = std::variant<std::monostate, CaptureRun, GifJob, LightStudySetup>;

// A message for a thread: its number, two parameters and a command's job.
struct ThreadMessage {
    int message = 0;
    int wParam = 0;
    int lParam = 0;
    CommandPayload payload;
};

// A thread's first-in first-out message queue. Get waits for the next message; Peek takes
// and removes one without waiting, whatever it is (the caller looks at it afterwards).
class MessageQueue {
  public:
    void Post(ThreadMessage message);
    // False once Quit was called and the queue is empty: the thread should end.
    bool Get(ThreadMessage& message);
    std::optional<ThreadMessage> Peek();
    void Quit();

  private:
    std::mutex mutex_;
    std::condition_variable arrived_;
    std::deque<ThreadMessage> messages_;
    bool quitting_ = false;
};

// A manual-reset event: once set it stays set until reset.
class ManualResetEvent {
  public:
    explicit ManualResetEvent(bool signalled) : set_(signalled) {}
    void Set();
    void Reset();
    // True when the event is set, waiting at most the time-out for it.
    bool Wait(std::chrono::milliseconds timeout);
    bool IsSet();

  private:
    std::mutex mutex_;
    std::condition_variable changed_;
    bool set_;
};

}  // namespace kirameki
