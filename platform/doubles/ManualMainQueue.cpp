#include "platform/doubles/ManualMainQueue.hpp"

#include <algorithm>

namespace vornix::platform::doubles {

ManualMainQueue::ManualMainQueue() : mainThread_(std::this_thread::get_id()) {}

void ManualMainQueue::async(Work work) {
    std::lock_guard lock(mutex_);
    tasks_.push_back({now_, nextSequence_++, std::move(work)});
}

void ManualMainQueue::asyncAfter(double seconds, Work work) {
    std::lock_guard lock(mutex_);
    tasks_.push_back({now_ + seconds, nextSequence_++, std::move(work)});
}

bool ManualMainQueue::isMainThread() const { return std::this_thread::get_id() == mainThread_; }

bool ManualMainQueue::takeDue(double limit, Task& task) {
    std::lock_guard lock(mutex_);
    auto earliest = std::min_element(tasks_.begin(), tasks_.end(), [](const Task& a, const Task& b) {
        return a.deadline != b.deadline ? a.deadline < b.deadline : a.sequence < b.sequence;
    });
    if (earliest == tasks_.end() || earliest->deadline > limit) {
        return false;
    }
    task = std::move(*earliest);
    tasks_.erase(earliest);
    now_ = std::max(now_, task.deadline);
    return true;
}

std::size_t ManualMainQueue::runReady() { return advance(0.0); }

std::size_t ManualMainQueue::advance(double seconds) {
    double limit;
    {
        std::lock_guard lock(mutex_);
        limit = now_ + seconds;
    }
    std::size_t ran = 0;
    Task task;
    while (takeDue(limit, task)) {
        task.work();
        ++ran;
    }
    std::lock_guard lock(mutex_);
    now_ = limit;
    return ran;
}

double ManualMainQueue::now() const {
    std::lock_guard lock(mutex_);
    return now_;
}

std::size_t ManualMainQueue::pending() const {
    std::lock_guard lock(mutex_);
    return tasks_.size();
}

}  // namespace vornix::platform::doubles
