#include "url/URL.hpp"

#include <arpa/inet.h>

#include <algorithm>

namespace vornix::url {
namespace {

bool isAlpha(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isHex(char c) { return isDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F'); }
bool isUnreserved(char c) { return isAlpha(c) || isDigit(c) || c == '-' || c == '.' || c == '_' || c == '~'; }
bool isSubDelim(char c) { return std::string_view("!$&'()*+,;=").find(c) != std::string_view::npos; }

// Every character is unreserved, a sub-delimiter, one of `extra`, or part of a "%" HEX HEX escape.
bool isMadeOf(std::string_view text, std::string_view extra) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c == '%') {
            if (i + 2 >= text.size() || !isHex(text[i + 1]) || !isHex(text[i + 2])) {
                return false;
            }
            i += 2;
        } else if (!isUnreserved(c) && !isSubDelim(c) && extra.find(c) == std::string_view::npos) {
            return false;
        }
    }
    return true;
}

bool isScheme(std::string_view text) {
    return !text.empty() && isAlpha(text[0]) &&
           std::all_of(text.begin(), text.end(), [](char c) { return isAlpha(c) || isDigit(c) || c == '+' || c == '-' || c == '.'; });
}

// IPv6address as RFC 3986 writes it is what inet_pton reads for AF_INET6; IPvFuture is "v" HEX+ "." then text.
bool isIpLiteral(std::string_view inside) {
    if (!inside.empty() && (inside[0] == 'v' || inside[0] == 'V')) {
        const std::size_t dot = inside.find('.');
        return dot != std::string_view::npos && dot > 1 && dot + 1 < inside.size() &&
               std::all_of(inside.begin() + 1, inside.begin() + static_cast<std::ptrdiff_t>(dot), isHex) &&
               std::none_of(inside.begin() + static_cast<std::ptrdiff_t>(dot) + 1, inside.end(), [](char c) { return c == '%'; }) &&
               isMadeOf(inside.substr(dot + 1), ":");
    }
    const std::string address(inside);
    unsigned char buffer[16];
    return inet_pton(AF_INET6, address.c_str(), buffer) == 1;
}

}  // namespace

std::optional<URL> URL::parse(std::string_view text) {
    if (text.empty()) {
        return std::nullopt;
    }
    URL url{std::string(text)};
    std::size_t at = 0;

    // A scheme is the text before the first ":" when no "/", "?" or "#" comes first.
    const std::size_t firstDelimiter = text.find_first_of(":/?#");
    if (firstDelimiter != std::string_view::npos && text[firstDelimiter] == ':' && firstDelimiter > 0) {
        if (!isScheme(text.substr(0, firstDelimiter))) {
            return std::nullopt;
        }
        url.scheme_ = Range{0, firstDelimiter};
        at = firstDelimiter + 1;
    }

    if (text.substr(at, 2) == "//") {
        const std::size_t authorityStart = at + 2;
        const std::size_t authorityEnd = std::min(text.find_first_of("/?#", authorityStart), text.size());
        std::string_view authority = text.substr(authorityStart, authorityEnd - authorityStart);
        std::size_t hostStart = authorityStart;
        if (const std::size_t userEnd = authority.rfind('@'); userEnd != std::string_view::npos) {
            if (!isMadeOf(authority.substr(0, userEnd), ":")) {
                return std::nullopt;
            }
            hostStart += userEnd + 1;
            authority.remove_prefix(userEnd + 1);
        }
        std::size_t hostLength = authority.size();
        if (!authority.empty() && authority[0] == '[') {
            const std::size_t close = authority.find(']');
            if (close == std::string_view::npos || !isIpLiteral(authority.substr(1, close - 1))) {
                return std::nullopt;
            }
            url.host_ = Range{hostStart + 1, close - 1};
            hostLength = close + 1;
            if (hostLength < authority.size() && authority[hostLength] != ':') {
                return std::nullopt;
            }
        } else {
            hostLength = std::min(authority.find(':'), authority.size());
            if (!isMadeOf(authority.substr(0, hostLength), "")) {
                return std::nullopt;
            }
            url.host_ = Range{hostStart, hostLength};
        }
        if (hostLength < authority.size()) {
            const std::string_view port = authority.substr(hostLength + 1);
            if (!std::all_of(port.begin(), port.end(), isDigit)) {
                return std::nullopt;
            }
            url.port_ = Range{hostStart + hostLength + 1, port.size()};
        }
        at = authorityEnd;
    } else if (!url.scheme_) {
        // Without a scheme, a colon in the first segment would read as one: the grammar forbids it.
        const std::size_t firstSegmentEnd = std::min(text.find_first_of("/?#", at), text.size());
        const std::string_view firstSegment = text.substr(at, firstSegmentEnd - at);
        if (firstSegment.find(':') != std::string_view::npos) {
            return std::nullopt;
        }
    }

    const std::size_t pathStop = std::min(text.find_first_of("?#", at), text.size());
    if (!isMadeOf(text.substr(at, pathStop - at), ":@/")) {
        return std::nullopt;
    }
    url.path_ = Range{at, pathStop - at};
    at = pathStop;

    if (at < text.size() && text[at] == '?') {
        const std::size_t queryEnd = std::min(text.find('#', at), text.size());
        if (!isMadeOf(text.substr(at + 1, queryEnd - at - 1), ":@/?")) {
            return std::nullopt;
        }
        url.query_ = Range{at + 1, queryEnd - at - 1};
        at = queryEnd;
    }
    if (at < text.size()) {
        if (!isMadeOf(text.substr(at + 1), ":@/?")) {
            return std::nullopt;
        }
        url.fragment_ = Range{at + 1, text.size() - at - 1};
    }
    return url;
}

}  // namespace vornix::url
