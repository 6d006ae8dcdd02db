#include "platform/Files.hpp"

#include <sys/stat.h>

#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

#include <gtest/gtest.h>

#include "platform/doubles/TemporaryFolder.hpp"

namespace {

using vornix::platform::entryExists;
using vornix::platform::FileError;
using vornix::platform::makeFolders;
using vornix::platform::readWholeFile;
using vornix::platform::removeEntry;
using vornix::platform::renameEntry;
using vornix::platform::visibleEntries;
using vornix::platform::writeWholeFile;
namespace fs = std::filesystem;
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
    } catch (const vornix::platform::FileError& error) {
        EXPECT_EQ(error.code(), std::errc::no_such_file_or_directory);
        EXPECT_EQ(error.path(), missing);
    }
}

TEST(Files, WritingIntoAMissingFolderIsAFileSystemError) {
    TemporaryFolder folder;
    try {
        writeWholeFile(folder.path() / "LaunchAgents" / "job.plist", "x");
        FAIL() << "the folder is not created";
    } catch (const vornix::platform::FileError& error) {
        EXPECT_EQ(error.code(), std::errc::no_such_file_or_directory);
    }
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "LaunchAgents"));
}

TEST(Files, ReadingAFolderIsAFileSystemError) {
    TemporaryFolder folder;
    EXPECT_THROW(readWholeFile(folder.path()), vornix::platform::FileError);
}

TEST(Files, VisibleEntriesAreSortedByNameWithoutHiddenOnesOrDescendants) {
    TemporaryFolder folder;
    folder.write("b.plist", "");
    folder.write("B.plist", "");
    folder.write(".hidden.plist", "");
    folder.write("a/inside.plist", "");
    folder.write("c", "");
    std::filesystem::create_symlink(folder.path() / "nowhere", folder.path() / "dangling");
    const std::vector<std::string> expected{folder.path() / "B.plist", folder.path() / "a",
                                                      folder.path() / "b.plist", folder.path() / "c",
                                                      folder.path() / "dangling"};
    EXPECT_EQ(visibleEntries(folder.path()), expected);
}

TEST(Files, ListingAMissingFolderIsAFileSystemError) {
    TemporaryFolder folder;
    EXPECT_THROW(visibleEntries(folder.path() / "LaunchAgents"), vornix::platform::FileError);
}

TEST(Files, TheEntriesOfAFolderGivenWithATrailingSlashAreJoinedWithOneSlash) {
    TemporaryFolder folder;
    folder.write("job.plist", "");
    const std::vector<std::string> expected{(folder.path() / "job.plist").string()};
    EXPECT_EQ(visibleEntries(folder.path().string() + "/"), expected);
}

TEST(Files, AnEntryExistsWhenAFileFolderOrLinkedEntryIsThere) {
    TemporaryFolder folder;
    const auto file = folder.write("job.plist", "");
    fs::create_symlink(file, folder.path() / "link");
    fs::create_symlink(folder.path() / "nowhere", folder.path() / "dangling");
    EXPECT_TRUE(entryExists(file));
    EXPECT_TRUE(entryExists(folder.path()));
    EXPECT_TRUE(entryExists(folder.path() / "link"));
    EXPECT_FALSE(entryExists(folder.path() / "missing"));
    EXPECT_FALSE(entryExists(folder.path() / "dangling"));
    EXPECT_FALSE(entryExists(file / "inside"));
}

TEST(Files, AnEntryThatCannotBeLookedAtIsAnErrorNotAbsence) {
    TemporaryFolder folder;
    fs::create_symlink(folder.path() / "loop", folder.path() / "loop");
    try {
        entryExists(folder.path() / "loop");
        FAIL() << "a link to itself cannot be followed";
    } catch (const FileError& error) {
        EXPECT_EQ(error.code(), std::errc::too_many_symbolic_link_levels);
        EXPECT_EQ(error.path(), folder.path() / "loop");
    }
}

TEST(Files, RemovingTakesAFileALinkOrAnEmptyFolderAndSaysWhetherThereWasOne) {
    TemporaryFolder folder;
    const auto file = folder.write("job.plist", "");
    fs::create_directory(folder.path() / "empty");
    fs::create_symlink(file, folder.path() / "link");
    EXPECT_TRUE(removeEntry(folder.path() / "link"));
    EXPECT_TRUE(fs::exists(file));
    EXPECT_TRUE(removeEntry(file));
    EXPECT_TRUE(removeEntry(folder.path() / "empty"));
    EXPECT_FALSE(removeEntry(file));
    EXPECT_TRUE(fs::is_empty(folder.path()));
}

TEST(Files, RemovingAFolderWithEntriesIsAnError) {
    TemporaryFolder folder;
    folder.write("full/job.plist", "");
    try {
        removeEntry(folder.path() / "full");
        FAIL() << "a folder with entries stays";
    } catch (const FileError& error) {
        EXPECT_EQ(error.code(), std::errc::directory_not_empty);
        EXPECT_EQ(error.path(), folder.path() / "full");
    }
    EXPECT_TRUE(fs::exists(folder.path() / "full" / "job.plist"));
}

TEST(Files, RenamingReplacesAFileAtTheTarget) {
    TemporaryFolder folder;
    const auto written = folder.write(".entry.new", "new");
    const auto target = folder.write("entry", "old");
    renameEntry(written, target);
    EXPECT_EQ(readWholeFile(target), "new");
    EXPECT_FALSE(fs::exists(written));
}

TEST(Files, RenamingOverAFolderIsAnErrorNamingBoth) {
    TemporaryFolder folder;
    const auto written = folder.write(".entry.new", "new");
    folder.write("entry/kept", "");
    try {
        renameEntry(written, folder.path() / "entry");
        FAIL() << "a file is not renamed over a folder";
    } catch (const FileError& error) {
        EXPECT_EQ(error.code(), std::errc::is_a_directory);
        EXPECT_EQ(error.path(), folder.path() / "entry");
        EXPECT_NE(std::string(error.what()).find(written.string()), std::string::npos) << error.what();
    }
    EXPECT_EQ(readWholeFile(written), "new");
}

TEST(Files, MakingFoldersMakesEveryMissingOneAsTheUmaskAllows) {
    TemporaryFolder folder;
    const mode_t previous = ::umask(022);
    makeFolders((folder.path() / "a//b/c/").string());
    ::umask(previous);
    EXPECT_TRUE(fs::is_directory(folder.path() / "a" / "b" / "c"));
    EXPECT_EQ(fs::status(folder.path() / "a").permissions(), fs::perms::owner_all | fs::perms::group_read |
                                                                 fs::perms::group_exec | fs::perms::others_read |
                                                                 fs::perms::others_exec);
    EXPECT_NO_THROW(makeFolders(folder.path() / "a" / "b"));
}

TEST(Files, MakingFoldersThroughAFileOrADanglingLinkIsAnError) {
    TemporaryFolder folder;
    const auto file = folder.write("plain-file", "");
    fs::create_symlink(folder.path() / "nowhere", folder.path() / "dangling");
    const auto expectError = [](const fs::path& path, std::errc code) {
        try {
            makeFolders(path);
            ADD_FAILURE() << path << " was made";
        } catch (const FileError& error) {
            EXPECT_EQ(error.code(), code) << path;
            EXPECT_EQ(error.path(), path);
        }
    };
    expectError(file, std::errc::not_a_directory);
    expectError(file / "autostart", std::errc::not_a_directory);
    expectError(folder.path() / "dangling", std::errc::file_exists);
    expectError("", std::errc::invalid_argument);
    EXPECT_FALSE(fs::exists(folder.path() / "nowhere"));
}

}  // namespace
