#include "platform/Paths.hpp"

#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

using vornix::platform::extension;
using vornix::platform::fileName;
using vornix::platform::joinPath;
using vornix::platform::parentPath;
using vornix::platform::relativePath;

// Paths with every awkward part: nothing, roots of one to three slashes, repeated and trailing
// slashes, "." and "..", names that start or end with a dot, several dots.
const std::vector<std::string> awkwardPaths = {
    "", "/", "//", "///", "a", "/a", "//a", "///a", "a/", "a//", "a/b", "a//b", "/a/b/", "/a/b//", "//a//b", ".", "..",
    "a/.", "a/..", "/.", "./x", ".plist", "a/.plist", "a.plist", "a.b.plist", "a.", "a..", "..plist", "/a.b/c",
    "a/b.c/", "x.PLIST", "/Users/ada/Library/LaunchAgents/com.vornix.os.launch.plist", "with space/na me.desktop"};

TEST(Paths, ReadAsStdFilesystemReadsThemOnPosix) {
    for (const std::string& path : awkwardPaths) {
        const std::filesystem::path expected(path);
        EXPECT_EQ(fileName(path), expected.filename().native()) << path;
        EXPECT_EQ(parentPath(path), expected.parent_path().native()) << path;
        EXPECT_EQ(extension(path), expected.extension().native()) << path;
        EXPECT_EQ(relativePath(path), expected.relative_path().native()) << path;
    }
}

TEST(Paths, JoinedAsStdFilesystemJoinsThemOnPosix) {
    for (const std::string& folder : awkwardPaths) {
        for (const std::string& name : awkwardPaths) {
            EXPECT_EQ(joinPath(folder, name), (std::filesystem::path(folder) / name).native())
                << folder << " + " << name;
        }
    }
}

TEST(Paths, ExamplesOfEach) {
    EXPECT_EQ(joinPath("/home/ada/.local/share", "LaunchAgents"), "/home/ada/.local/share/LaunchAgents");
    EXPECT_EQ(joinPath("/home/ada/", "LaunchAgents"), "/home/ada/LaunchAgents");
    EXPECT_EQ(joinPath("folder", "/etc/passwd"), "/etc/passwd");
    EXPECT_EQ(joinPath("folder", ""), "folder/");
    EXPECT_EQ(fileName("/a/job.plist"), "job.plist");
    EXPECT_EQ(parentPath("//a"), "/");
    EXPECT_EQ(parentPath("a//b//"), "a//b");
    EXPECT_EQ(extension("job.PLIST"), ".PLIST");
    EXPECT_EQ(extension("/a.b/.plist"), "");
    EXPECT_EQ(relativePath("//etc/x"), "etc/x");
}

}  // namespace
