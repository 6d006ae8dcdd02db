#pragma once

#include <sys/types.h>

#include <chrono>
#include <cstddef>
#include <vector>

namespace vornix::platform::doubles {

// What Linux's /proc says about this process's children and descriptors, for tests that prove
// nothing is left behind.
struct ChildProcess {
    pid_t pid;
    char state;  // 'Z' for a zombie: exited and not yet waited for
};

std::vector<ChildProcess> childrenOfThisProcess();
std::size_t zombieChildren();
std::size_t openDescriptors();

// Waits, up to `limit`, until this process has no child left, running or zombie; true if so.
bool noChildrenWithin(std::chrono::milliseconds limit);

}  // namespace vornix::platform::doubles
