#include "platform/doubles/EventLog.hpp"

#include <unistd.h>

#include <stdexcept>

namespace vornix::platform::doubles {

EventLog::~EventLog() {
    if (capture_ != nullptr) {
        stopCapture();
    }
}

void EventLog::record(std::string event) {
    std::lock_guard lock(mutex_);
    drainLocked();
    entries_.push_back(std::move(event));
}

std::vector<std::string> EventLog::entries() const {
    std::lock_guard lock(mutex_);
    return entries_;
}

void EventLog::clear() {
    std::lock_guard lock(mutex_);
    entries_.clear();
}

void EventLog::startCapture() {
    std::lock_guard lock(mutex_);
    if (capture_ != nullptr) {
        throw std::logic_error("standard output is already being captured");
    }
    std::fflush(stdout);
    capture_ = std::tmpfile();
    if (capture_ == nullptr) {
        throw std::runtime_error("no temporary file to capture standard output into");
    }
    savedOutput_ = ::dup(STDOUT_FILENO);
    ::dup2(::fileno(capture_), STDOUT_FILENO);
    readOffset_ = 0;
    partialLine_.clear();
}

void EventLog::stopCapture() {
    std::lock_guard lock(mutex_);
    drainLocked();
    if (!partialLine_.empty()) {
        entries_.push_back("stdout: " + partialLine_);
        partialLine_.clear();
    }
    std::fflush(stdout);
    ::dup2(savedOutput_, STDOUT_FILENO);
    ::close(savedOutput_);
    std::fclose(capture_);
    capture_ = nullptr;
    savedOutput_ = -1;
}

void EventLog::drainLocked() {
    if (capture_ == nullptr) {
        return;
    }
    std::fflush(stdout);
    char buffer[4096];
    ssize_t got;
    while ((got = ::pread(::fileno(capture_), buffer, sizeof buffer, readOffset_)) > 0) {
        readOffset_ += got;
        partialLine_.append(buffer, static_cast<std::size_t>(got));
    }
    std::size_t start = 0;
    for (std::size_t end; (end = partialLine_.find('\n', start)) != std::string::npos; start = end + 1) {
        entries_.push_back("stdout: " + partialLine_.substr(start, end - start));
    }
    partialLine_.erase(0, start);
}

}  // namespace vornix::platform::doubles
