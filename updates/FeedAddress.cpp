#include "updates/FeedAddress.hpp"

#include <string>

#include "url/URL.hpp"

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

}  // namespace

bool isLoopbackHost(std::string_view host) {
    const std::string name = lowered(host);
    return name == "localhost" || name == "::1" || isLoopbackIPv4(name);
}

FeedTransport feedTransport(std::string_view text) {
    // The host is read by the same RFC 3986 rules the fetcher follows; anything they refuse
    // (spaces, backslashes, a bad authority) is refused here too.
    const auto address = url::URL::parse(text);
    if (!address || !address->scheme() || !address->host() || address->host()->empty()) {
        return FeedTransport::refused;
    }
    const std::string scheme = lowered(*address->scheme());
    if (scheme == "https") {
        return FeedTransport::https;
    }
    if (scheme == "http" && isLoopbackHost(*address->host())) {
        return FeedTransport::loopbackHttp;
    }
    return FeedTransport::refused;
}

bool isWebPage(std::string_view text) {
    const auto address = url::URL::parse(text);
    if (!address || !address->scheme() || !address->host() || address->host()->empty()) {
        return false;
    }
    const std::string scheme = lowered(*address->scheme());
    return scheme == "https" || scheme == "http";
}

}  // namespace vornix::updates
