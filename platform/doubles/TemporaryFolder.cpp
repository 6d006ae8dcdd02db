#include "platform/doubles/TemporaryFolder.hpp"

#include <stdlib.h>

#include <cerrno>
#include <fstream>
#include <system_error>

namespace vornix::platform::doubles {

TemporaryFolder::TemporaryFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "vornix-XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr) {
        throw std::system_error(errno, std::generic_category(), "cannot create a temporary folder");
    }
    path_ = pattern;
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::filesystem::path TemporaryFolder::write(const std::filesystem::path& name, const std::string& contents) const {
    const std::filesystem::path file = path_ / name;
    std::filesystem::create_directories(file.parent_path());
    std::ofstream stream(file, std::ios::binary | std::ios::trunc);
    stream << contents;
    stream.close();
    if (!stream) {
        throw std::system_error(std::make_error_code(std::errc::io_error), "cannot write " + file.string());
    }
    return file;
}

std::filesystem::path TemporaryFolder::writeExecutable(const std::filesystem::path& name,
                                                       const std::string& contents) const {
    const std::filesystem::path file = write(name, contents);
    std::filesystem::permissions(file, std::filesystem::perms::owner_all, std::filesystem::perm_options::add);
    return file;
}

}  // namespace vornix::platform::doubles
