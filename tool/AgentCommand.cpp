#include "tool/AgentCommand.hpp"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <ostream>
#include <stdexcept>
#include <string>

#include "launch_agent/LaunchAgent.hpp"
#include "plist/PropertyList.hpp"

namespace vornix::tool {
namespace {

constexpr std::string_view usage = "usage: vornix-tool agent FILE\n";

// The job file's bytes; a file that cannot be opened or read (a folder, say) is a
// std::runtime_error naming the system's cause.
std::string jobFileBytes(const std::string& path) {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rb"), &std::fclose);
    if (!file) {
        throw std::runtime_error(std::strerror(errno));
    }
    std::string bytes;
    char buffer[1 << 16];
    std::size_t count = 0;
    while ((count = std::fread(buffer, 1, sizeof buffer, file.get())) > 0) {
        bytes.append(buffer, count);
    }
    if (std::ferror(file.get()) != 0) {
        throw std::runtime_error(std::strerror(errno));
    }
    return bytes;
}

// A description on one line, whatever the reader put in it.
std::string oneLine(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c == '\n' || c == '\r'; }, ' ');
    return text;
}

}  // namespace

int runAgent(const Invocation& invocation) {
    if (invocation.args.size() != 1) {
        invocation.err << usage;
        return 2;
    }
    const std::string& path = invocation.args[0];
    std::string bytes;
    try {
        bytes = jobFileBytes(path);
    } catch (const std::runtime_error& error) {
        invocation.err << "vornix-tool agent: " << path << ": " << error.what() << '\n';
        return 1;
    }
    try {
        const auto agent = plist::decode<std::shared_ptr<launch_agent::LaunchAgent>>(bytes);
        invocation.out << plist::encode(*agent);
        return 0;
    } catch (const plist::DecodingError& error) {
        invocation.err << plist::kindName(error.kind()) << " at " << error.pathText() << ": "
                       << oneLine(error.description()) << '\n';
        return 1;
    } catch (const plist::EncodingError& error) {
        invocation.err << "vornix-tool agent: " << path << ": " << oneLine(error.what()) << '\n';
        return 1;
    }
}

}  // namespace vornix::tool
