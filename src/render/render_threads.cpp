#include "render/render_threads.h"

#include <algorithm>

namespace kirameki {

RenderThreads::~RenderThreads() {
    {
        std::lock_guard lock(mutex_);
        quitting_ = true;
    }
    start_.notify_all();
    for (std::thread& thread : threads_)
        thread.join();
}

void RenderThreads::Start(int count, std::function<void()> task) {
    count = std::max(count, 0);
    {
        std::lock_guard lock(mutex_);
        while (int(threads_.size()) < count) {
            const int index = int(threads_.size());
            threads_.emplace_back([this, index] { Loop(index); });
        }
        task_ = std::move(task);
        count_ = count;
        running_ = count;
        ++generation_;
    }
    start_.notify_all();
}

void RenderThreads::Wait() {
    std::unique_lock lock(mutex_);
    done_.wait(lock, [&] { return running_ == 0; });
    task_ = nullptr;
}

void RenderThreads::Loop(int index) {
    std::uint64_t seen = 0;
    for (;;) {
        {
            std::unique_lock lock(mutex_);
            start_.wait(lock, [&] { return quitting_ || generation_ != seen; });
            if (quitting_)
                return;
            seen = generation_;
            if (index >= count_)
                continue;
        }
        // The task stays set until every thread of the job has come back.
        task_();
        bool last;
        {
            std::lock_guard lock(mutex_);
            last = --running_ == 0;
        }
        if (last)
            done_.notify_all();
    }
}

}  // namespace kirameki
