#pragma once

#include <cstdint>
#include <string>

#include "launch_agent/PermissionBits.hpp"

namespace vornix::launch_agent {

// The nine permission bits of a POSIX file mode, with their octal, decimal, symbolic and
// readable forms and the umask that would produce them. Raw values are never checked: a set
// above 7 feeds the same arithmetic and the texts keep only their last three octal digits.
class FilePermissions {
public:
    FilePermissions(PermissionBits user, PermissionBits group, PermissionBits other);
    // From a mode as the file system reports it: bits above the nine permission bits (file
    // type, set-user-ID, set-group-ID, sticky) are dropped. -1...-63 are a fatal error;
    // -64 and below are read from their last three octal digits.
    static FilePermissions fromMode(std::int64_t mode);
    // The permissions a file-creation mask leaves: each digit d becomes 7 - d. Negative masks
    // are read as fromMode reads negative modes.
    static FilePermissions fromUmask(std::int64_t mask);

    PermissionBits user;
    PermissionBits group;
    PermissionBits other;

    // user * 64 + group * 8 + other; overflow is a fatal error.
    std::int64_t decimal() const;
    // decimal() in octal, shortened or zero-padded to three characters ("755").
    std::string octal() const;
    // "-" then user, group and other as rwx triples ("-rwxr-xr-x"); the file-type position is always "-".
    std::string symbolic() const;
    // "Permissions u+rwx, g+r-x, o+r-x".
    std::string description() const;
    // (7 - user) * 64 + (7 - group) * 8 + (7 - other); overflow is a fatal error.
    std::int64_t umaskDecimal() const;
    // umaskDecimal() in octal, shortened or zero-padded to three characters ("022").
    std::string umaskOctal() const;
};

}  // namespace vornix::launch_agent
