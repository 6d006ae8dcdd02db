#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace vornix::platform {

// Whole-file reading and writing with the system's own errors: each failure is a
// std::filesystem::filesystem_error carrying the path and the system's error code.

// Every byte of the file at `path`.
std::string readWholeFile(const std::filesystem::path& path);

// Replaces the contents of the file at `path` with `bytes`, creating it (read and write for
// everyone the umask allows) when missing. Written in place, not atomically, like a plain
// data write; the folder must exist.
void writeWholeFile(const std::filesystem::path& path, std::string_view bytes);

// The entries directly inside `folder` (files, folders, links; nothing below them), without
// hidden ones (names starting with a dot), sorted by name byte for byte, so that whoever walks
// them sees the same order on every system.
std::vector<std::filesystem::path> visibleEntries(const std::filesystem::path& folder);

}  // namespace vornix::platform
