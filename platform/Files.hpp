#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/FileError.hpp"

namespace vornix::platform {

// Files and folders through POSIX, with the system's own errors: each failure is a FileError
// carrying the path and the system's error code. Paths are plain strings (see Paths.hpp).

// Every byte of the file at `path`.
std::string readWholeFile(const std::string& path);

// Replaces the contents of the file at `path` with `bytes`, creating it (read and write for
// everyone the umask allows) when missing. Written in place, not atomically, like a plain
// data write; the folder must exist.
void writeWholeFile(const std::string& path, std::string_view bytes);

// The entries directly inside `folder` (files, folders, links; nothing below them), without
// hidden ones (names starting with a dot), sorted by name byte for byte, so that whoever walks
// them sees the same order on every system. Each is `folder` joined with the entry's name.
std::vector<std::string> visibleEntries(const std::string& folder);

// Whether there is something at `path`, links followed (a dangling link is nothing). Only a
// missing entry or a path through a file answers false; other failures are errors.
bool entryExists(const std::string& path);

// Removes the file, link or empty folder at `path`. False when there was nothing to remove.
bool removeEntry(const std::string& path);

// Renames `from` to `to` in one step, replacing a file at `to`.
void renameEntry(const std::string& from, const std::string& to);

// Makes the folder at `path` and every missing folder above it (read, write and search for
// everyone the umask allows). A folder already there is fine; anything else in the way fails.
void makeFolders(const std::string& path);

}  // namespace vornix::platform
