#include "platform/FileError.hpp"

#include <cerrno>
#include <string>
#include <system_error>

#include <gtest/gtest.h>

namespace {

using vornix::platform::FileError;

TEST(FileError, NamesTheOperationThePathAndTheSystemsMessage) {
    const FileError error(std::make_error_code(std::errc::permission_denied), "cannot write file", "/a b/job.plist");
    EXPECT_EQ(error.path(), "/a b/job.plist");
    EXPECT_EQ(error.code(), std::errc::permission_denied);
    const std::string expected =
        "cannot write file \"/a b/job.plist\": " + std::make_error_code(std::errc::permission_denied).message();
    EXPECT_EQ(std::string(error.what()), expected);
}

TEST(FileError, WithoutAPathItNamesTheOperationAndTheMessage) {
    const FileError error(std::make_error_code(std::errc::no_such_file_or_directory), "no Library folder");
    EXPECT_EQ(error.path(), "");
    EXPECT_EQ(std::string(error.what()),
              "no Library folder: " + std::make_error_code(std::errc::no_such_file_or_directory).message());
}

TEST(FileError, TheLastErrorIsErrno) {
    errno = ENOTDIR;
    const FileError error = FileError::lastError("cannot list folder", "/x");
    EXPECT_EQ(error.code(), std::errc::not_a_directory);
    EXPECT_EQ(error.path(), "/x");
}

TEST(FileError, IsCaughtAsASystemError) {
    try {
        throw FileError(std::make_error_code(std::errc::io_error), "cannot read file", "/x");
    } catch (const std::system_error& error) {
        EXPECT_EQ(error.code(), std::errc::io_error);
        return;
    }
    FAIL() << "not caught as std::system_error";
}

}  // namespace
