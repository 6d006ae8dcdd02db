#pragma once

#include <string_view>

namespace vornix::updates {

// How a feed address may be fetched. The feed decides what the host offers to install, so it
// comes over HTTPS; plain HTTP is accepted only from this machine (the tests' local servers).
enum class FeedTransport {
    https,
    loopbackHttp,
    refused,
};

FeedTransport feedTransport(std::string_view url);

// Whether an address from the feed (a download, release notes) is a web page, http or https, and
// so fit to hand to the user's browser.
bool isWebPage(std::string_view url);

// "localhost", an address in 127.0.0.0/8 written as four decimal numbers, or "::1" (a URL's host
// without its brackets).
bool isLoopbackHost(std::string_view host);

}  // namespace vornix::updates
