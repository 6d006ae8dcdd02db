#pragma once

#include <cstddef>
#include <stdexcept>
#include <string_view>

#include "updates/Appcast.hpp"

namespace vornix::updates {

// Bounds that keep a hostile or broken feed from taking memory or time.
struct AppcastLimits {
    std::size_t maxBytes = 4 * 1024 * 1024;
    std::size_t maxDepth = 32;
    std::size_t maxItems = 2000;
    std::size_t maxFieldBytes = 8 * 1024;
};

// A feed that is not well-formed XML, not an RSS channel, declares entities or passes a limit.
// The message says which, with the line where the parser stopped.
class AppcastError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// The namespace of the updater's own elements and attributes in an appcast.
inline constexpr std::string_view sparkleNamespace = "http://www.andymatuschak.org/xml-namespaces/sparkle";

// Reads an appcast: <rss><channel><item>... with sparkle:version, sparkle:shortVersionString,
// sparkle:releaseNotesLink, sparkle:minimumSystemVersion and an <enclosure url=... sparkle:version=...>.
// Unknown elements are skipped. Throws AppcastError.
Appcast parseAppcast(std::string_view xml, const AppcastLimits& limits = {});

}  // namespace vornix::updates
