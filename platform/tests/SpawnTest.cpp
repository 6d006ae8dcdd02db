#include "platform/Spawn.hpp"

#include <sys/wait.h>

#include <cstdlib>
#include <string>

#include <gtest/gtest.h>

#include "platform/FileDescriptor.hpp"
#include "platform/doubles/TemporaryFolder.hpp"

namespace {

using vornix::platform::ChildSettings;
using vornix::platform::Invocation;

// What the child writes on its standard output, read to its end; the child is waited for here.
std::string outputOf(const Invocation& invocation, const ChildSettings& settings) {
    vornix::platform::Pipe pipe = vornix::platform::makePipe();
    const pid_t child = vornix::platform::spawnChild(invocation, {-1, pipe.write.get()}, settings);
    pipe.write = {};
    std::error_code error;
    std::string output = vornix::platform::readToEnd(pipe.read, error);
    int status = 0;
    ::waitpid(child, &status, 0);
    return output;
}

TEST(SpawnChild, AWorkingDirectoryIsWhereTheChildStarts) {
    vornix::platform::doubles::TemporaryFolder folder;
    ChildSettings settings;
    settings.workingDirectory = folder.path().string();
    EXPECT_EQ(outputOf({"/bin/pwd", {"-P"}}, settings), std::filesystem::canonical(folder.path()).string() + "\n");
}

TEST(SpawnChild, EnvironmentVariablesAreAddedAndReplaceTheHostsOwn) {
    ::setenv("VORNIX_SPAWN_KEPT", "host", 1);
    ::setenv("VORNIX_SPAWN_REPLACED", "host", 1);
    ChildSettings settings;
    settings.environment = {{"VORNIX_SPAWN_REPLACED", "job"}, {"VORNIX_SPAWN_ADDED", "a b=c"}};
    const std::string output = outputOf({"/usr/bin/env", {}}, settings);
    EXPECT_NE(output.find("\nVORNIX_SPAWN_KEPT=host\n"), std::string::npos);
    EXPECT_NE(output.find("\nVORNIX_SPAWN_REPLACED=job\n"), std::string::npos);
    EXPECT_EQ(output.find("VORNIX_SPAWN_REPLACED=host"), std::string::npos);
    EXPECT_NE(output.find("\nVORNIX_SPAWN_ADDED=a b=c\n"), std::string::npos);
    ::unsetenv("VORNIX_SPAWN_KEPT");
    ::unsetenv("VORNIX_SPAWN_REPLACED");
}

TEST(SpawnChild, AMissingWorkingDirectoryIsASystemError) {
    ChildSettings settings;
    settings.workingDirectory = "/nonexistent/vornix/folder";
    // posix_spawn reports a failed chdir in the child as the call's own error.
    EXPECT_THROW(vornix::platform::spawnChild({"/bin/true", {}}, {}, settings), std::system_error);
}

}  // namespace
