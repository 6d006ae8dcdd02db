#pragma once

#include <string>

namespace vornix::platform::linux::testing {

// Sends standard output into a pipe for as long as it lives, so a test can read the diagnostics
// lines as they come while it keeps a main loop turning.
class StandardOutputPipe {
public:
    StandardOutputPipe();
    ~StandardOutputPipe();
    StandardOutputPipe(const StandardOutputPipe&) = delete;
    StandardOutputPipe& operator=(const StandardOutputPipe&) = delete;

    // Takes in what has been written so far, without waiting, and returns all of it.
    const std::string& read();
    const std::string& text() const { return text_; }

private:
    int saved_ = -1;
    int pipe_[2] = {-1, -1};
    std::string text_;
};

}  // namespace vornix::platform::linux::testing
