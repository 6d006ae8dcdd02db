#include "platform/Files.hpp"

#include <sys/stat.h>

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/doubles/TemporaryFolder.hpp"

namespace {

using vornix::platform::readWholeFile;
using vornix::platform::visibleEntries;
using vornix::platform::writeWholeFile;
using vornix::platform::doubles::TemporaryFolder;

TEST(Files, WhatIsWrittenIsReadBackByteForByte) {
    TemporaryFolder folder;
    const auto file = folder.path() / "job.plist";
    std::string bytes("<?xml?>\0\xff\n", 10);
    bytes += std::string(100000, 'x');
    writeWholeFile(file, bytes);
    EXPECT_EQ(readWholeFile(file), bytes);
}

TEST(Files, WritingReplacesLongerContentsCompletely) {
    TemporaryFolder folder;
    const auto file = folder.write("job.plist", "a much longer text than the next one");
    writeWholeFile(file, "short");
    EXPECT_EQ(readWholeFile(file), "short");
}

TEST(Files, ANewFileGetsReadAndWriteAsTheUmaskAllows) {
    TemporaryFolder folder;
    const mode_t previous = ::umask(022);
    writeWholeFile(folder.path() / "new", "x");
    ::umask(previous);
    EXPECT_EQ(std::filesystem::status(folder.path() / "new").permissions(),
              std::filesystem::perms::owner_read | std::filesystem::perms::owner_write |
                  std::filesystem::perms::group_read | std::filesystem::perms::others_read);
}

TEST(Files, AMissingFileIsAFileSystemErrorNamingIt) {
    TemporaryFolder folder;
    const auto missing = folder.path() / "missing.plist";
    try {
        readWholeFile(missing);
        FAIL() << "reading a missing file must fail";
    } catch (const std::filesystem::filesystem_error& error) {
        EXPECT_EQ(error.code(), std::errc::no_such_file_or_directory);
        EXPECT_EQ(error.path1(), missing);
    }
}

TEST(Files, WritingIntoAMissingFolderIsAFileSystemError) {
    TemporaryFolder folder;
    try {
        writeWholeFile(folder.path() / "LaunchAgents" / "job.plist", "x");
        FAIL() << "the folder is not created";
    } catch (const std::filesystem::filesystem_error& error) {
        EXPECT_EQ(error.code(), std::errc::no_such_file_or_directory);
    }
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "LaunchAgents"));
}

TEST(Files, ReadingAFolderIsAFileSystemError) {
    TemporaryFolder folder;
    EXPECT_THROW(readWholeFile(folder.path()), std::filesystem::filesystem_error);
}

TEST(Files, VisibleEntriesAreSortedByNameWithoutHiddenOnesOrDescendants) {
    TemporaryFolder folder;
    folder.write("b.plist", "");
    folder.write("B.plist", "");
    folder.write(".hidden.plist", "");
    folder.write("a/inside.plist", "");
    folder.write("c", "");
    std::filesystem::create_symlink(folder.path() / "nowhere", folder.path() / "dangling");
    const std::vector<std::filesystem::path> expected{folder.path() / "B.plist", folder.path() / "a",
                                                      folder.path() / "b.plist", folder.path() / "c",
                                                      folder.path() / "dangling"};
    EXPECT_EQ(visibleEntries(folder.path()), expected);
}

TEST(Files, ListingAMissingFolderIsAFileSystemError) {
    TemporaryFolder folder;
    EXPECT_THROW(visibleEntries(folder.path() / "LaunchAgents"), std::filesystem::filesystem_error);
}

}  // namespace
