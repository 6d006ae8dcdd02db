#include "tool/PlistCommand.hpp"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <ostream>
#include <sstream>
#include <stdexcept>

#include "plist/PropertyList.hpp"
#include "plist/TypedJson.hpp"
#include "plist/XmlWriter.hpp"

namespace vornix::tool {
namespace {

constexpr std::string_view usage =
    "usage: vornix-tool plist lint FILE...\n"
    "       vornix-tool plist json FILE\n"
    "       vornix-tool plist xml FILE\n"
    "       vornix-tool plist from-json FILE\n";

// The whole file, or a std::runtime_error naming why it cannot be read.
std::string readFile(const std::string& path) {
    if (std::filesystem::is_directory(path)) {
        throw std::runtime_error(std::string("cannot read: ") + std::strerror(EISDIR));
    }
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        throw std::runtime_error(std::string("cannot open: ") + std::strerror(errno));
    }
    std::ostringstream bytes;
    bytes << file.rdbuf();
    if (file.bad()) {
        throw std::runtime_error(std::string("cannot read: ") + std::strerror(errno));
    }
    return std::move(bytes).str();
}

int lint(const Invocation& invocation) {
    int status = 0;
    for (const std::string& path : invocation.args.subspan(1)) {
        try {
            plist::readPropertyList(readFile(path));
            invocation.out << path << ": OK\n";
        } catch (const std::exception& error) {
            invocation.out << path << ": " << error.what() << '\n';
            status = 1;
        }
    }
    return status;
}

// Reads one file, converts it and prints the result; an error goes to standard error.
template <class Convert>
int convertFile(const Invocation& invocation, Convert convert) {
    const std::string& path = invocation.args[1];
    try {
        invocation.out << convert(readFile(path));
        return 0;
    } catch (const std::exception& error) {
        invocation.err << "vornix-tool plist " << invocation.args[0] << ": " << path << ": " << error.what() << '\n';
        return 1;
    }
}

}  // namespace

int runPlistCommand(const Invocation& invocation) {
    const auto& args = invocation.args;
    const std::string_view action = args.empty() ? std::string_view() : std::string_view(args[0]);
    if (action == "lint" && args.size() >= 2) {
        return lint(invocation);
    }
    if (args.size() == 2) {
        if (action == "json") {
            return convertFile(invocation, [](const std::string& bytes) {
                return plist::writeTypedJson(plist::readPropertyList(bytes));
            });
        }
        if (action == "xml") {
            return convertFile(invocation,
                               [](const std::string& bytes) { return plist::writeXml(plist::readPropertyList(bytes)); });
        }
        if (action == "from-json") {
            return convertFile(invocation,
                               [](const std::string& bytes) { return plist::writeXml(plist::readTypedJson(bytes)); });
        }
    }
    invocation.err << usage;
    return 2;
}

}  // namespace vornix::tool
