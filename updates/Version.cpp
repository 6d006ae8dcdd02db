#include "updates/Version.hpp"

#include <algorithm>

namespace vornix::updates {

namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool isSpace(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }
char lower(char c) { return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c; }

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && isSpace(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && isSpace(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

std::string withoutLeadingZeros(std::string_view digits) {
    const auto first = digits.find_first_not_of('0');
    return first == std::string_view::npos ? std::string() : std::string(digits.substr(first));
}

}  // namespace

std::optional<Version> Version::parse(std::string_view text) {
    text = trimmed(text);
    Version version;
    version.text_ = std::string(text);

    std::size_t at = 0;
    if (text.size() > 1 && (text[0] == 'v' || text[0] == 'V') && isDigit(text[1])) {
        at = 1;
    }
    if (at >= text.size() || !isDigit(text[at])) {
        return std::nullopt;
    }
    // Dotted numbers; a dot not followed by a digit starts the suffix ("1.0.beta").
    while (true) {
        const std::size_t start = at;
        while (at < text.size() && isDigit(text[at])) {
            ++at;
        }
        version.release_.push_back(withoutLeadingZeros(text.substr(start, at - start)));
        if (at + 1 < text.size() && text[at] == '.' && isDigit(text[at + 1])) {
            ++at;
            continue;
        }
        break;
    }
    while (!version.release_.empty() && version.release_.back().empty()) {
        version.release_.pop_back();
    }

    // The suffix up to "+" is the pre-release; letters and digits form its identifiers, anything
    // else separates them.
    std::string_view suffix = text.substr(at);
    suffix = suffix.substr(0, suffix.find('+'));
    std::size_t i = 0;
    while (i < suffix.size()) {
        const char c = suffix[i];
        if (isDigit(c)) {
            const std::size_t start = i;
            while (i < suffix.size() && isDigit(suffix[i])) {
                ++i;
            }
            version.preRelease_.push_back({true, withoutLeadingZeros(suffix.substr(start, i - start))});
        } else if (isLetter(c)) {
            std::string word;
            while (i < suffix.size() && isLetter(suffix[i])) {
                word.push_back(lower(suffix[i]));
                ++i;
            }
            version.preRelease_.push_back({false, std::move(word)});
        } else {
            ++i;
        }
    }
    return version;
}

std::strong_ordering Version::compareNumbers(std::string_view left, std::string_view right) {
    if (left.size() != right.size()) {
        return left.size() <=> right.size();
    }
    return left.compare(right) <=> 0;
}

std::strong_ordering Version::compareIdentifiers(const Identifier& left, const Identifier& right) {
    if (left.numeric != right.numeric) {
        // Numbers sort before words, as in "1.0-1" < "1.0-alpha".
        return left.numeric ? std::strong_ordering::less : std::strong_ordering::greater;
    }
    return left.numeric ? compareNumbers(left.value, right.value) : left.value.compare(right.value) <=> 0;
}

std::strong_ordering operator<=>(const Version& left, const Version& right) {
    const std::size_t count = std::max(left.release_.size(), right.release_.size());
    static const std::string zero;
    for (std::size_t i = 0; i < count; ++i) {
        const std::string& a = i < left.release_.size() ? left.release_[i] : zero;
        const std::string& b = i < right.release_.size() ? right.release_[i] : zero;
        if (const auto order = Version::compareNumbers(a, b); order != 0) {
            return order;
        }
    }
    if (left.preRelease_.empty() != right.preRelease_.empty()) {
        // The release itself is newer than any of its pre-releases.
        return left.preRelease_.empty() ? std::strong_ordering::greater : std::strong_ordering::less;
    }
    const std::size_t common = std::min(left.preRelease_.size(), right.preRelease_.size());
    for (std::size_t i = 0; i < common; ++i) {
        if (const auto order = Version::compareIdentifiers(left.preRelease_[i], right.preRelease_[i]); order != 0) {
            return order;
        }
    }
    return left.preRelease_.size() <=> right.preRelease_.size();
}

}  // namespace vornix::updates
