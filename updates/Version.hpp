#pragma once

#include <compare>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vornix::updates {

// A release version as update feeds write it: dotted numbers ("1.10.2"), optionally followed by a
// pre-release suffix ("1.2b3", "2.0-rc.1") and build metadata after "+" (ignored when comparing).
// Numbers compare as numbers, so 1.10 is newer than 1.9; missing components count as zero, so
// 1.0 equals 1.0.0; a pre-release is older than the release it precedes.
class Version {
public:
    // Null when the text does not start with a number (an optional "v" before it is allowed).
    static std::optional<Version> parse(std::string_view text);

    // The text it was parsed from, without surrounding white space.
    const std::string& text() const { return text_; }
    bool isPreRelease() const { return !preRelease_.empty(); }

    friend std::strong_ordering operator<=>(const Version& left, const Version& right);
    friend bool operator==(const Version& left, const Version& right) { return (left <=> right) == 0; }

private:
    // A number (digits without leading zeros) or a word (lower-case letters) of the suffix.
    struct Identifier {
        bool numeric;
        std::string value;
    };

    static std::strong_ordering compareNumbers(std::string_view left, std::string_view right);
    static std::strong_ordering compareIdentifiers(const Identifier& left, const Identifier& right);

    std::string text_;
    std::vector<std::string> release_;  // without leading zeros; trailing zero components dropped
    std::vector<Identifier> preRelease_;
};

}  // namespace vornix::updates
