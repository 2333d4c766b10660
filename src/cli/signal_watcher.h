#pragma once

#include <atomic>
#include <thread>

namespace kirameki::cli {

// Turns SIGINT and SIGTERM into a flag that a long job polls, as the Abort button does in
// the viewer. The signals are blocked in every thread and taken by a watcher thread with
// sigwait, so nothing runs inside a signal handler. Construct it before starting threads.
class SignalWatcher {
  public:
    SignalWatcher();
    ~SignalWatcher();
    SignalWatcher(const SignalWatcher&) = delete;
    SignalWatcher& operator=(const SignalWatcher&) = delete;

    bool Interrupted() const { return interrupted_.load(); }

  private:
    std::atomic<bool> interrupted_{false};
    std::atomic<bool> stopping_{false};
    std::thread watcher_;
};

}  // namespace kirameki::cli
