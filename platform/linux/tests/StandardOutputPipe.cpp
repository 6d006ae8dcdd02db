#include "platform/linux/tests/StandardOutputPipe.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <stdexcept>

namespace vornix::platform::linux::testing {

StandardOutputPipe::StandardOutputPipe() {
    std::fflush(stdout);
    saved_ = ::dup(1);
    if (saved_ < 0 || ::pipe2(pipe_, O_CLOEXEC | O_NONBLOCK) != 0 || ::dup2(pipe_[1], 1) < 0) {
        throw std::runtime_error("standard output cannot be redirected");
    }
}

StandardOutputPipe::~StandardOutputPipe() {
    std::fflush(stdout);
    ::dup2(saved_, 1);
    ::close(saved_);
    ::close(pipe_[0]);
    ::close(pipe_[1]);
}

const std::string& StandardOutputPipe::read() {
    char buffer[4096];
    ssize_t n = 0;
    while ((n = ::read(pipe_[0], buffer, sizeof buffer)) > 0) {
        text_.append(buffer, static_cast<std::size_t>(n));
    }
    return text_;
}

}  // namespace vornix::platform::linux::testing
