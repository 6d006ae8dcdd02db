#pragma once

#include "platform/Directories.hpp"

namespace vornix::platform {

// The directories port after the XDG base-directory convention, for Linux and other
// freedesktop systems. The user's Library folder is the user's data folder: $XDG_DATA_HOME
// when it holds an absolute path, otherwise $HOME/.local/share (relative values are ignored,
// as the convention asks). So job files live in ~/.local/share/LaunchAgents by default.
class XdgDirectories : public Directories {
public:
    std::string userLibraryFolder() const override;
};

// The user's configuration folder: $XDG_CONFIG_HOME when it holds an absolute path, otherwise
// $HOME/.config. Throws a FileError when neither names one.
std::string userConfigFolder();

}  // namespace vornix::platform
