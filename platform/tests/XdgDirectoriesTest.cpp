#include "platform/XdgDirectories.hpp"

#include <cstdlib>
#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "platform/FileError.hpp"

namespace {

using vornix::platform::XdgDirectories;

// Sets or clears one environment variable for a scope and puts the old value back.
class ScopedVariable {
public:
    ScopedVariable(const char* name, const char* value) : name_(name) {
        if (const char* old = std::getenv(name)) {
            old_ = old;
        }
        if (value) {
            ::setenv(name, value, 1);
        } else {
            ::unsetenv(name);
        }
    }
    ~ScopedVariable() {
        if (old_) {
            ::setenv(name_, old_->c_str(), 1);
        } else {
            ::unsetenv(name_);
        }
    }
    ScopedVariable(const ScopedVariable&) = delete;
    ScopedVariable& operator=(const ScopedVariable&) = delete;

private:
    const char* name_;
    std::optional<std::string> old_;
};

TEST(XdgDirectories, TheLibraryFolderIsXdgDataHomeWhenSet) {
    ScopedVariable data("XDG_DATA_HOME", "/srv/data");
    ScopedVariable home("HOME", "/home/ada");
    EXPECT_EQ(XdgDirectories().userLibraryFolder(), "/srv/data");
}

TEST(XdgDirectories, WithoutXdgDataHomeTheLibraryFolderIsLocalShareInHome) {
    ScopedVariable data("XDG_DATA_HOME", nullptr);
    ScopedVariable home("HOME", "/home/ada");
    EXPECT_EQ(XdgDirectories().userLibraryFolder(), "/home/ada/.local/share");
}

TEST(XdgDirectories, ARelativeOrEmptyXdgDataHomeIsIgnored) {
    ScopedVariable home("HOME", "/home/ada");
    {
        ScopedVariable data("XDG_DATA_HOME", "relative/data");
        EXPECT_EQ(XdgDirectories().userLibraryFolder(), "/home/ada/.local/share");
    }
    ScopedVariable data("XDG_DATA_HOME", "");
    EXPECT_EQ(XdgDirectories().userLibraryFolder(), "/home/ada/.local/share");
}

TEST(XdgDirectories, NeitherVariableGivesAClearFileSystemError) {
    ScopedVariable data("XDG_DATA_HOME", nullptr);
    ScopedVariable home("HOME", "");
    try {
        XdgDirectories().userLibraryFolder();
        FAIL() << "no folder can be named";
    } catch (const vornix::platform::FileError& error) {
        EXPECT_EQ(error.code(), std::errc::no_such_file_or_directory);
        EXPECT_NE(std::string(error.what()).find("neither XDG_DATA_HOME nor HOME"), std::string::npos)
            << error.what();
    }
}

TEST(XdgDirectories, TheConfigurationFolderIsXdgConfigHomeWhenAbsolute) {
    ScopedVariable config("XDG_CONFIG_HOME", "/srv/config");
    ScopedVariable home("HOME", "/home/ada");
    EXPECT_EQ(vornix::platform::userConfigFolder(), "/srv/config");
}

TEST(XdgDirectories, ARelativeXdgConfigHomeIsIgnoredForDotConfigInHome) {
    ScopedVariable config("XDG_CONFIG_HOME", "relative/config");
    ScopedVariable home("HOME", "/home/ada");
    EXPECT_EQ(vornix::platform::userConfigFolder(), "/home/ada/.config");
}

TEST(XdgDirectories, WithoutHomeOrXdgConfigHomeThereIsNoConfigurationFolder) {
    ScopedVariable config("XDG_CONFIG_HOME", nullptr);
    ScopedVariable home("HOME", nullptr);
    EXPECT_THROW(vornix::platform::userConfigFolder(), vornix::platform::FileError);
}

}  // namespace
