#pragma once

#include <sys/types.h>

#include <cstdio>
#include <string>
#include <vector>

namespace vornix::platform::linux::testing {

// A helper process a test starts (a server, a bus daemon), found on PATH, whose standard output
// the test reads. Ended with SIGTERM and reaped with the object.
class ChildProcess {
public:
    explicit ChildProcess(const std::vector<std::string>& arguments);
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    // The next line the child writes, without its line end; empty when it closes its output first.
    std::string readLine();

private:
    pid_t pid_ = -1;
    std::FILE* output_ = nullptr;
};

// Runs a tool to its end with its standard error silenced; true when it exits with 0.
bool runQuietly(const std::vector<std::string>& arguments);

}  // namespace vornix::platform::linux::testing
