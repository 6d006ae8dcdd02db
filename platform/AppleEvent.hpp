#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>

namespace vornix::platform {

// A four-character code as the Apple Event manager uses it: the four bytes, big-endian.
using FourCharCode = std::uint32_t;

constexpr FourCharCode fourCharCode(const char (&code)[5]) {
    return static_cast<FourCharCode>(static_cast<unsigned char>(code[0])) << 24 |
           static_cast<FourCharCode>(static_cast<unsigned char>(code[1])) << 16 |
           static_cast<FourCharCode>(static_cast<unsigned char>(code[2])) << 8 |
           static_cast<FourCharCode>(static_cast<unsigned char>(code[3]));
}

// The internet event class and the get-URL event ID ("GURL" both), and the keyword of an
// event's direct object ("----"), which for a get-URL event holds the URL text.
inline constexpr FourCharCode internetEventClass = fourCharCode("GURL");
inline constexpr FourCharCode getURLEventID = fourCharCode("GURL");
inline constexpr FourCharCode directObjectKeyword = fourCharCode("----");

// One parameter of an event (NSAppleEventDescriptor); `stringValue` is empty when it holds no text.
struct AppleEventDescriptor {
    std::optional<std::string> stringValue;
};

// An Apple Event, reduced to what the host reads: its parameters by keyword.
class AppleEvent {
public:
    std::optional<AppleEventDescriptor> paramDescriptorForKeyword(FourCharCode keyword) const {
        const auto found = parameters_.find(keyword);
        if (found == parameters_.end()) {
            return std::nullopt;
        }
        return found->second;
    }
    void setParamDescriptor(AppleEventDescriptor descriptor, FourCharCode keyword) {
        parameters_.insert_or_assign(keyword, std::move(descriptor));
    }

private:
    std::map<FourCharCode, AppleEventDescriptor> parameters_;
};

}  // namespace vornix::platform
