#pragma once

#include <cstdio>
#include <mutex>
#include <string>
#include <vector>

namespace vornix::platform::doubles {

// One ordered record of what the doubles were asked to do, shared by all of them, so that a test
// can assert a sequence that spans several ports. Lines the code under test writes to standard
// output inside captureOutput() are recorded too, as "stdout: <line>", in their place.
class EventLog {
public:
    EventLog() = default;
    ~EventLog();
    EventLog(const EventLog&) = delete;
    EventLog& operator=(const EventLog&) = delete;

    void record(std::string event);

    // Runs `work` with standard output captured into the log.
    template <class Work>
    void captureOutput(Work&& work) {
        startCapture();
        try {
            work();
        } catch (...) {
            stopCapture();
            throw;
        }
        stopCapture();
    }

    std::vector<std::string> entries() const;
    void clear();

private:
    void startCapture();
    void stopCapture();
    // Moves what was written to standard output since the last call into the log.
    void drainLocked();

    mutable std::mutex mutex_;
    std::vector<std::string> entries_;
    std::FILE* capture_ = nullptr;
    int savedOutput_ = -1;
    long readOffset_ = 0;
    std::string partialLine_;
};

}  // namespace vornix::platform::doubles
