#include "updates/FeedAddress.hpp"

#include <string>

namespace vornix::updates {

namespace {

std::string lowered(std::string_view text) {
    std::string result(text);
    for (char& c : result) {
        if (c >= 'A' && c <= 'Z') {
            c = static_cast<char>(c - 'A' + 'a');
        }
    }
    return result;
}

// A decimal number 0...255 without a sign or leading zeros (which some resolvers read as octal).
bool isOctet(std::string_view text) {
    if (text.empty() || text.size() > 3 || (text.size() > 1 && text[0] == '0')) {
        return false;
    }
    int value = 0;
    for (char c : text) {
        if (c < '0' || c > '9') {
            return false;
        }
        value = value * 10 + (c - '0');
    }
    return value <= 255;
}

bool isLoopbackIPv4(std::string_view host) {
    int count = 0;
    std::string_view first;
    while (true) {
        const auto dot = host.find('.');
        const std::string_view part = host.substr(0, dot);
        if (!isOctet(part)) {
            return false;
        }
        if (count++ == 0) {
            first = part;
        }
        if (dot == std::string_view::npos) {
            break;
        }
        host.remove_prefix(dot + 1);
    }
    return count == 4 && first == "127";
}

// The host of an absolute URL, between "//" and the port or path. Empty (so refused) when the
// address carries user information or characters that URL readers disagree on: the check must see
// the same host the fetcher will connect to.
std::string_view hostOf(std::string_view url) {
    for (char c : url) {
        if (static_cast<unsigned char>(c) <= ' ' || c == '\\' || c == 0x7f) {
            return {};
        }
    }
    const auto start = url.find("://");
    if (start == std::string_view::npos) {
        return {};
    }
    std::string_view authority = url.substr(start + 3);
    authority = authority.substr(0, authority.find_first_of("/?#"));
    if (authority.find('@') != std::string_view::npos) {
        return {};
    }
    if (authority.starts_with('[')) {
        const auto close = authority.find(']');
        return close == std::string_view::npos ? std::string_view() : authority.substr(0, close + 1);
    }
    return authority.substr(0, authority.find(':'));
}

}  // namespace

bool isLoopbackHost(std::string_view host) {
    const std::string name = lowered(host);
    return name == "localhost" || name == "[::1]" || isLoopbackIPv4(name);
}

FeedTransport feedTransport(std::string_view url) {
    const std::string scheme = lowered(url.substr(0, url.find("://")));
    const std::string_view host = hostOf(url);
    if (host.empty()) {
        return FeedTransport::refused;
    }
    if (scheme == "https") {
        return FeedTransport::https;
    }
    if (scheme == "http" && isLoopbackHost(host)) {
        return FeedTransport::loopbackHttp;
    }
    return FeedTransport::refused;
}

}  // namespace vornix::updates
