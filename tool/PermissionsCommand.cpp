#include "tool/PermissionsCommand.hpp"

#include <charconv>
#include <cstdint>
#include <limits>
#include <optional>
#include <ostream>
#include <string_view>

#include "launch_agent/FilePermissions.hpp"

namespace vornix::tool {
namespace {

using launch_agent::FilePermissions;

constexpr std::string_view usage = "usage: vornix-tool permissions MODE | vornix-tool permissions --umask MASK\n";

// A signed 64-bit integer in decimal ("493"), or in octal after "0o" ("0o755"), either with an
// optional leading minus sign; nothing when the text is anything else or out of range.
std::optional<std::int64_t> parseInteger(std::string_view text) {
    const bool negative = text.starts_with('-');
    if (negative) {
        text.remove_prefix(1);
    }
    int base = 10;
    if (text.starts_with("0o")) {
        text.remove_prefix(2);
        base = 8;
    }
    if (text.empty() || text.front() == '+' || text.front() == '-') {
        return std::nullopt;
    }
    std::uint64_t magnitude = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), magnitude, base);
    if (error != std::errc() || end != text.data() + text.size()) {
        return std::nullopt;
    }
    const auto largest = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
    if (!negative) {
        return magnitude <= largest ? std::optional<std::int64_t>(static_cast<std::int64_t>(magnitude)) : std::nullopt;
    }
    if (magnitude > largest + 1) {
        return std::nullopt;
    }
    return static_cast<std::int64_t>(0 - magnitude);
}

}  // namespace

int runPermissions(const Invocation& invocation) {
    const auto& args = invocation.args;
    const bool fromUmask = args.size() == 2 && args[0] == "--umask";
    const bool fromMode = args.size() == 1 && args[0] != "--umask";
    if (!fromMode && !fromUmask) {
        invocation.err << usage;
        return 2;
    }
    const std::string& text = args.back();
    const std::optional<std::int64_t> number = parseInteger(text);
    if (!number) {
        invocation.err << "vornix-tool permissions: '" << text
                       << "' is not a 64-bit integer (decimal, or octal with a leading 0o)\n";
        return 1;
    }
    const FilePermissions permissions =
        fromUmask ? FilePermissions::fromUmask(*number) : FilePermissions::fromMode(*number);
    invocation.out << permissions.octal() << '\n'
                   << permissions.decimal() << '\n'
                   << permissions.symbolic() << '\n'
                   << permissions.description() << '\n'
                   << permissions.umaskOctal() << '\n'
                   << permissions.umaskDecimal() << '\n';
    return 0;
}

}  // namespace vornix::tool
