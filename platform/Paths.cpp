#include "platform/Paths.hpp"

namespace vornix::platform {

std::string joinPath(std::string_view folder, std::string_view name) {
    if (name.starts_with('/')) {
        return std::string(name);
    }
    std::string path(folder);
    if (!fileName(folder).empty()) {
        path += '/';
    }
    path += name;
    return path;
}

std::string_view fileName(std::string_view path) {
    const std::size_t slash = path.rfind('/');
    return slash == std::string_view::npos ? path : path.substr(slash + 1);
}

std::string_view parentPath(std::string_view path) {
    if (path.find_first_not_of('/') == std::string_view::npos) {
        return path;
    }
    // A path ending in "/" ends in an empty file name; otherwise the name follows the last "/".
    std::size_t end = path.size();
    if (!path.ends_with('/')) {
        const std::size_t slash = path.rfind('/');
        if (slash == std::string_view::npos) {
            return {};
        }
        end = slash + 1;
    }
    while (end > 0 && path[end - 1] == '/') {
        --end;
    }
    return end == 0 ? path.substr(0, 1) : path.substr(0, end);
}

std::string_view extension(std::string_view path) {
    const std::string_view name = fileName(path);
    if (name == "." || name == "..") {
        return {};
    }
    const std::size_t dot = name.rfind('.');
    return dot == std::string_view::npos || dot == 0 ? std::string_view() : name.substr(dot);
}

std::string_view relativePath(std::string_view path) {
    const std::size_t start = path.find_first_not_of('/');
    return start == std::string_view::npos ? std::string_view() : path.substr(start);
}

}  // namespace vornix::platform
