#include "platform/Spawn.hpp"

#include <signal.h>
#include <spawn.h>

#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#if defined(__APPLE__)
#include <crt_externs.h>
#else
extern char** environ;
#endif

namespace vornix::platform {

namespace {

char** hostEnvironment() {
#if defined(__APPLE__)
    return *_NSGetEnviron();
#else
    return environ;
#endif
}

void check(int error, const Invocation& invocation) {
    if (error != 0) {
        throw std::system_error(error, std::generic_category(), "cannot start " + invocation.tool);
    }
}

// Owns one of posix_spawn's setting objects from its initialisation to its destruction.
template <class Setting, int (*initialise)(Setting*), int (*destroy)(Setting*)>
class Owned {
public:
    Owned() { initialise(&setting_); }
    ~Owned() { destroy(&setting_); }
    Owned(const Owned&) = delete;
    Owned& operator=(const Owned&) = delete;
    Setting* get() { return &setting_; }

private:
    Setting setting_;
};

using FileActions = Owned<posix_spawn_file_actions_t, posix_spawn_file_actions_init, posix_spawn_file_actions_destroy>;
using Attributes = Owned<posix_spawnattr_t, posix_spawnattr_init, posix_spawnattr_destroy>;

// Connects the child's descriptor `target` to `source`, or to the host's own when none is given.
int connect(FileActions& actions, int source, int target) {
    if (source >= 0) {
        return ::posix_spawn_file_actions_adddup2(actions.get(), source, target);
    }
#if defined(__APPLE__)
    return ::posix_spawn_file_actions_addinherit_np(actions.get(), target);
#else
    return 0;
#endif
}

// The host's environment with `overrides` put in: a variable of the same name is replaced.
std::vector<std::string> environmentWith(const std::map<std::string, std::string>& overrides) {
    std::vector<std::string> variables;
    for (char** variable = hostEnvironment(); *variable != nullptr; ++variable) {
        const std::string_view entry(*variable);
        if (!overrides.contains(std::string(entry.substr(0, entry.find('='))))) {
            variables.emplace_back(entry);
        }
    }
    for (const auto& [name, value] : overrides) {
        variables.push_back(name + "=" + value);
    }
    return variables;
}

}  // namespace

pid_t spawnChild(const Invocation& invocation, StandardStreams streams, const ChildSettings& settings) {
    if (!invocation.tool.starts_with('/')) {
        // A relative path would start whatever the current folder happens to hold.
        throw std::invalid_argument("a tool is started by its absolute path, not \"" + invocation.tool + "\"");
    }
    FileActions actions;
    check(connect(actions, streams.input, 0), invocation);
    check(connect(actions, streams.output, 1), invocation);
    check(connect(actions, -1, 2), invocation);
    short flags = POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF;
    // Descriptors that other code in the host opened without close-on-exec stay out of the child.
#if defined(__APPLE__)
    flags |= POSIX_SPAWN_CLOEXEC_DEFAULT;
#elif defined(__GLIBC__) && (__GLIBC__ > 2 || (__GLIBC__ == 2 && __GLIBC_MINOR__ >= 34))
    check(::posix_spawn_file_actions_addclosefrom_np(actions.get(), 3), invocation);
#endif
    // Darwin has it from macOS 10.15, which is the oldest system the application supports.
    if (settings.workingDirectory) {
        check(::posix_spawn_file_actions_addchdir_np(actions.get(), settings.workingDirectory->c_str()), invocation);
    }

    Attributes attributes;
    // A tool starts as from a fresh shell: nothing blocked, and no signal ignored because the
    // host chose to ignore it (a grep that ignores SIGPIPE would outlive a closed pipe).
    sigset_t none;
    sigemptyset(&none);
    sigset_t all;
    sigfillset(&all);
    sigdelset(&all, SIGKILL);
    sigdelset(&all, SIGSTOP);
    check(::posix_spawnattr_setsigmask(attributes.get(), &none), invocation);
    check(::posix_spawnattr_setsigdefault(attributes.get(), &all), invocation);
    check(::posix_spawnattr_setflags(attributes.get(), flags), invocation);

    std::vector<char*> argv;
    argv.reserve(invocation.arguments.size() + 2);
    argv.push_back(const_cast<char*>(invocation.tool.c_str()));
    for (const std::string& argument : invocation.arguments) {
        argv.push_back(const_cast<char*>(argument.c_str()));
    }
    argv.push_back(nullptr);

    char** environment = hostEnvironment();
    std::vector<std::string> variables;
    std::vector<char*> envp;
    if (!settings.environment.empty()) {
        variables = environmentWith(settings.environment);
        for (std::string& variable : variables) {
            envp.push_back(variable.data());
        }
        envp.push_back(nullptr);
        environment = envp.data();
    }

    pid_t child = 0;
    check(::posix_spawn(&child, invocation.tool.c_str(), actions.get(), attributes.get(), argv.data(), environment),
          invocation);
    return child;
}

}  // namespace vornix::platform
