#include "platform/Files.hpp"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <memory>
#include <utility>

#include "platform/FileDescriptor.hpp"
#include "platform/Paths.hpp"

namespace vornix::platform {

namespace {

FileDescriptor openOrFail(const std::string& path, int flags, const char* what) {
    for (;;) {
        const int descriptor = ::open(path.c_str(), flags | O_CLOEXEC, 0666);
        if (descriptor >= 0) {
            return FileDescriptor(descriptor);
        }
        if (errno != EINTR) {
            throw FileError::lastError(what, path);
        }
    }
}

struct FolderCloser {
    void operator()(DIR* folder) const { ::closedir(folder); }
};

// Whether the folder `folder` (links followed) is there on the way to `path`; false when
// nothing is there, an error when something else is.
bool folderIsThere(const std::string& folder, const std::string& path) {
    struct stat status {};
    if (::stat(folder.c_str(), &status) == 0) {
        if (!S_ISDIR(status.st_mode)) {
            throw FileError(std::make_error_code(std::errc::not_a_directory), "cannot make folder", path);
        }
        return true;
    }
    if (errno != ENOENT) {
        throw FileError::lastError("cannot make folder", path);
    }
    return false;
}

}  // namespace

std::string readWholeFile(const std::string& path) {
    const FileDescriptor file = openOrFail(path, O_RDONLY, "cannot read file");
    std::error_code error;
    std::string bytes = readToEnd(file, error);
    if (error) {
        throw FileError(error, "cannot read file", path);
    }
    return bytes;
}

void writeWholeFile(const std::string& path, std::string_view bytes) {
    const FileDescriptor file = openOrFail(path, O_WRONLY | O_CREAT | O_TRUNC, "cannot write file");
    while (!bytes.empty()) {
        const ssize_t count = ::write(file.get(), bytes.data(), bytes.size());
        if (count >= 0) {
            bytes.remove_prefix(static_cast<std::size_t>(count));
        } else if (errno != EINTR) {
            throw FileError::lastError("cannot write file", path);
        }
    }
}

std::vector<std::string> visibleEntries(const std::string& folder) {
    const std::unique_ptr<DIR, FolderCloser> listing(::opendir(folder.c_str()));
    if (!listing) {
        throw FileError::lastError("cannot list folder", folder);
    }
    std::vector<std::string> names;
    for (;;) {
        errno = 0;
        const dirent* entry = ::readdir(listing.get());
        if (entry == nullptr) {
            if (errno != 0) {
                throw FileError::lastError("cannot list folder", folder);
            }
            break;
        }
        if (entry->d_name[0] != '.') {
            names.emplace_back(entry->d_name);
        }
    }
    std::sort(names.begin(), names.end());
    std::vector<std::string> entries;
    entries.reserve(names.size());
    for (const std::string& name : names) {
        entries.push_back(joinPath(folder, name));
    }
    return entries;
}

bool entryExists(const std::string& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) == 0) {
        return true;
    }
    if (errno == ENOENT || errno == ENOTDIR) {
        return false;
    }
    throw FileError::lastError("cannot look at", path);
}

bool removeEntry(const std::string& path) {
    if (::remove(path.c_str()) == 0) {
        return true;
    }
    if (errno == ENOENT) {
        return false;
    }
    throw FileError::lastError("cannot remove", path);
}

void renameEntry(const std::string& from, const std::string& to) {
    if (::rename(from.c_str(), to.c_str()) != 0) {
        throw FileError::lastError("cannot rename \"" + from + "\" to", to);
    }
}

void makeFolders(const std::string& path) {
    if (path.empty()) {
        throw FileError(std::make_error_code(std::errc::invalid_argument), "cannot make folder", path);
    }
    // Each folder along the path, from the top: those there are passed, the others made.
    for (std::size_t end = path.find_first_not_of('/'); end != std::string::npos;
         end = path.find_first_not_of('/', end)) {
        end = path.find('/', end);
        const std::string folder = path.substr(0, end);
        if (folderIsThere(folder, path) || ::mkdir(folder.c_str(), 0777) == 0) {
            continue;
        }
        // Made meanwhile by someone else is as good as made here; a dangling link is in the way.
        const int error = errno;
        if (error != EEXIST || !folderIsThere(folder, path)) {
            throw FileError(std::error_code(error, std::generic_category()), "cannot make folder", path);
        }
    }
}

}  // namespace vornix::platform
