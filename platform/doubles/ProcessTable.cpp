#include "platform/doubles/ProcessTable.hpp"

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <thread>

namespace vornix::platform::doubles {

namespace {

bool isNumber(const std::string& name) {
    return !name.empty() && std::all_of(name.begin(), name.end(), [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace

std::vector<ChildProcess> childrenOfThisProcess() {
    const pid_t self = ::getpid();
    std::vector<ChildProcess> children;
    std::error_code ignored;
    for (const auto& entry : std::filesystem::directory_iterator("/proc", ignored)) {
        const std::string name = entry.path().filename().string();
        if (!isNumber(name)) {
            continue;
        }
        std::ifstream stat(entry.path() / "stat");
        std::string line;
        if (!std::getline(stat, line)) {
            continue;  // gone meanwhile
        }
        // "pid (command) state ppid ...": the command may hold blanks and parentheses.
        const auto afterCommand = line.rfind(')');
        if (afterCommand == std::string::npos) {
            continue;
        }
        std::istringstream rest(line.substr(afterCommand + 1));
        char state = 0;
        pid_t parent = 0;
        if (rest >> state >> parent && parent == self) {
            children.push_back({static_cast<pid_t>(std::stol(name)), state});
        }
    }
    return children;
}

std::size_t zombieChildren() {
    const auto children = childrenOfThisProcess();
    return static_cast<std::size_t>(
        std::count_if(children.begin(), children.end(), [](const ChildProcess& child) { return child.state == 'Z'; }));
}

std::size_t openDescriptors() {
    std::size_t count = 0;
    for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
        ++count;
    }
    return count;
}

bool noChildrenWithin(std::chrono::milliseconds limit) {
    const auto deadline = std::chrono::steady_clock::now() + limit;
    while (!childrenOfThisProcess().empty()) {
        if (std::chrono::steady_clock::now() >= deadline) {
            return false;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return true;
}

}  // namespace vornix::platform::doubles
