#include "launch_agent/FilePermissions.hpp"

#include <array>
#include <charconv>
#include <string_view>

#include "base/FatalError.hpp"
#include "launch_agent/CheckedArithmetic.hpp"
#include "launch_agent/StringExtensions.hpp"

namespace vornix::launch_agent {
namespace {

// Base 8, lower-case digits, no prefix, no leading zeros; a negative number is its magnitude
// after a minus sign ("-144").
std::string octalText(std::int64_t number) {
    const bool negative = number < 0;
    std::uint64_t magnitude = negative ? 0 - static_cast<std::uint64_t>(number) : static_cast<std::uint64_t>(number);
    std::string digits;
    do {
        digits.insert(digits.begin(), static_cast<char>('0' + magnitude % 8));
        magnitude /= 8;
    } while (magnitude != 0);
    return negative ? "-" + digits : digits;
}

// The last three characters of the octal text, or the whole text padded on the left with "0"
// to three characters: 0o100644 gives "644", 0o5 gives "005", -0o144 gives "144".
std::string threeOctalCharacters(std::int64_t number) {
    const std::string text = octalText(number);
    if (text.size() > 2) {
        return text.substr(text.size() - 3);
    }
    return std::string(3 - text.size(), '0') + text;
}

// Each of the three characters read as a base-10 number. Only a minus sign kept among the
// three characters (an input from -1 to -63) fails to read, and that is a caller's defect.
std::array<std::int64_t, 3> permissionDigits(std::int64_t modeOrMask) {
    const std::string text = threeOctalCharacters(modeOrMask);
    std::array<std::int64_t, 3> digits{};
    for (std::size_t offset = 0; offset < digits.size(); ++offset) {
        const std::string_view character = characterAt(text, static_cast<std::int64_t>(offset));
        const auto [end, error] =
            std::from_chars(character.data(), character.data() + character.size(), digits[offset]);
        if (error != std::errc() || end != character.data() + character.size()) {
            base::fatalError("cannot read the permission digit \"" + std::string(character) + "\" of \"" + text +
                             "\" (from " + std::to_string(modeOrMask) + ")");
        }
    }
    return digits;
}

// Three octal digits weighted 64, 8 and 1.
std::int64_t weighted(std::int64_t high, std::int64_t middle, std::int64_t low) {
    return checkedAdd(checkedAdd(checkedMultiply(high, 64), checkedMultiply(middle, 8)), low);
}

}  // namespace

FilePermissions::FilePermissions(PermissionBits user, PermissionBits group, PermissionBits other)
    : user(user), group(group), other(other) {}

FilePermissions FilePermissions::fromMode(std::int64_t mode) {
    const auto [user, group, other] = permissionDigits(mode);
    return FilePermissions(PermissionBits(user), PermissionBits(group), PermissionBits(other));
}

FilePermissions FilePermissions::fromUmask(std::int64_t mask) {
    const auto [user, group, other] = permissionDigits(mask);
    return FilePermissions(PermissionBits::fromUmaskValue(user), PermissionBits::fromUmaskValue(group),
                           PermissionBits::fromUmaskValue(other));
}

std::int64_t FilePermissions::decimal() const { return weighted(user.rawValue(), group.rawValue(), other.rawValue()); }

std::string FilePermissions::octal() const { return threeOctalCharacters(decimal()); }

std::string FilePermissions::symbolic() const {
    return "-" + user.description() + group.description() + other.description();
}

std::string FilePermissions::description() const {
    return "Permissions u+" + user.description() + ", g+" + group.description() + ", o+" + other.description();
}

std::int64_t FilePermissions::umaskDecimal() const {
    return weighted(user.umaskValue(), group.umaskValue(), other.umaskValue());
}

std::string FilePermissions::umaskOctal() const { return threeOctalCharacters(umaskDecimal()); }

}  // namespace vornix::launch_agent
