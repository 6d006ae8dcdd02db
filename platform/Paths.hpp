#pragma once

#include <string>
#include <string_view>

namespace vornix::platform {

// Paths are strings of bytes, as POSIX has them. These read and join them as
// std::filesystem::path does on POSIX (which Apple's library offers only from macOS 10.15),
// and normalise nothing: "a//b" stays as it is.

// `name` after `folder`, with a "/" between them unless `folder` is empty or ends in "/"; an
// absolute `name` stands alone. "a" and "b" give "a/b", "a" and "" give "a/".
std::string joinPath(std::string_view folder, std::string_view name);

// What follows the last "/": "b" for "a/b", "" for "a/" and "/".
std::string_view fileName(std::string_view path);

// The path without its file name and the "/"s before it: "a" for "a/b", "a//b" and "a/"; "/"
// for "/a"; "" for "a". An empty path and one of "/"s only are their own parents.
std::string_view parentPath(std::string_view path);

// The file name from its last "." on: ".plist" for "a.b.plist", "." for "a."; "" when it has
// no "." but the one it starts with (".plist"), and for "." and "..".
std::string_view extension(std::string_view path);

// The path without the "/"s it starts with.
std::string_view relativePath(std::string_view path);

}  // namespace vornix::platform
