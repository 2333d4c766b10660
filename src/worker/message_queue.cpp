#include "worker/message_queue.h"

#include <utility>

namespace kirameki {

void MessageQueue::Post(ThreadMessage message) {
    {
        std::lock_guard lock(mutex_);
        messages_.push_back(std::move(message));
    }
    arrived_.notify_one();
}

bool MessageQueue::Get(ThreadMessage& message) {
    std::unique_lock lock(mutex_);
    arrived_.wait(lock, [&] { return !messages_.empty() || quitting_; });
    if (messages_.empty())
        return false;
    message = messages_.front();
    messages_.pop_front();
    return true;
}

std::optional<ThreadMessage> MessageQueue::Peek() {
    std::lock_guard lock(mutex_);
    if (messages_.empty())
        return std::nullopt;
    const ThreadMessage message = messages_.front();
    messages_.pop_front();
    return message;
}

bool MessageQueue::HasMessage() {
    std::lock_guard lock(mutex_);
    return !messages_.empty() || quitting_;
}

bool MessageQueue::WaitForMessage(std::chrono::milliseconds timeout) {
    std::unique_lock lock(mutex_);
    return arrived_.wait_for(lock, timeout, [&] { return !messages_.empty() || quitting_; });
}

void MessageQueue::Quit() {
    {
        std::lock_guard lock(mutex_);
        quitting_ = true;
    }
    arrived_.notify_all();
}

void ManualResetEvent::Set() {
    {
        std::lock_guard lock(mutex_);
        set_ = true;
    }
    changed_.notify_all();
}

void ManualResetEvent::Reset() {
    std::lock_guard lock(mutex_);
    set_ = false;
}

bool ManualResetEvent::Wait(std::chrono::milliseconds timeout) {
    std::unique_lock lock(mutex_);
    return changed_.wait_for(lock, timeout, [&] { return set_; });
}

bool ManualResetEvent::IsSet() {
    std::lock_guard lock(mutex_);
    return set_;
}

}  // namespace kirameki
