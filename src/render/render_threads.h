#pragma once

#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace kirameki {

// The threads that trace the rows of a frame, made when first needed and kept for the next
// frames: a frame of the live view or a capture lasts a few milliseconds, and making and
// joining its threads each time would cost a noticeable part of that. One job runs at a
// time; its owner starts it, does its own part, and waits for it.
class RenderThreads {
  public:
    RenderThreads() = default;
    ~RenderThreads();
    RenderThreads(const RenderThreads&) = delete;
    RenderThreads& operator=(const RenderThreads&) = delete;

    // Runs `task` once on each of `count` threads (none: the owner does all the work) and
    // returns at once. The job before must have been waited for.
    void Start(int count, std::function<void()> task);
    // Returns when every thread of the job has come back from its task.
    void Wait();

  private:
    void Loop(int index);

    std::mutex mutex_;
    std::condition_variable start_;
    std::condition_variable done_;
    std::function<void()> task_;
    std::uint64_t generation_ = 0;  // counts the jobs started
    int count_ = 0;                 // the threads of the current job
    int running_ = 0;               // of those, the ones still in the task
    bool quitting_ = false;
    std::vector<std::thread> threads_;
};

}  // namespace kirameki
