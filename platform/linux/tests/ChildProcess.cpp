#include "platform/linux/tests/ChildProcess.hpp"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <stdexcept>

extern char** environ;

namespace vornix::platform::linux::testing {

namespace {

pid_t spawn(const std::vector<std::string>& arguments, const posix_spawn_file_actions_t* actions) {
    std::vector<char*> argv;
    for (const std::string& argument : arguments) {
        argv.push_back(const_cast<char*>(argument.c_str()));
    }
    argv.push_back(nullptr);
    pid_t pid = -1;
    if (posix_spawnp(&pid, argv[0], actions, nullptr, argv.data(), environ) != 0) {
        throw std::runtime_error("could not start " + arguments.at(0));
    }
    return pid;
}

int waitFor(pid_t pid) {
    int status = 0;
    ::waitpid(pid, &status, 0);
    return status;
}

}  // namespace

ChildProcess::ChildProcess(const std::vector<std::string>& arguments) {
    int output[2];
    if (::pipe2(output, O_CLOEXEC) != 0) {
        throw std::runtime_error("no pipe for " + arguments.at(0));
    }
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, output[1], 1);
    try {
        pid_ = spawn(arguments, &actions);
    } catch (...) {
        posix_spawn_file_actions_destroy(&actions);
        ::close(output[0]);
        ::close(output[1]);
        throw;
    }
    posix_spawn_file_actions_destroy(&actions);
    ::close(output[1]);
    output_ = ::fdopen(output[0], "r");
}

ChildProcess::~ChildProcess() {
    ::kill(pid_, SIGTERM);
    waitFor(pid_);
    if (output_ != nullptr) {
        std::fclose(output_);
    }
}

std::string ChildProcess::readLine() {
    std::string line;
    for (int c = std::fgetc(output_); c != EOF && c != '\n'; c = std::fgetc(output_)) {
        line.push_back(static_cast<char>(c));
    }
    if (!line.empty() && line.back() == '\r') {
        line.pop_back();
    }
    return line;
}

bool runQuietly(const std::vector<std::string>& arguments) {
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 2, "/dev/null", O_WRONLY, 0);
    const pid_t pid = spawn(arguments, &actions);
    posix_spawn_file_actions_destroy(&actions);
    const int status = waitFor(pid);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

}  // namespace vornix::platform::linux::testing
