#pragma once

#import <AppKit/AppKit.h>

#include <span>
#include <string>
#include <string_view>

#include "platform/Geometry.hpp"

// The conversions between the core's plain C++ values and Foundation's and AppKit's, used by every
// port of the macOS backend. Both sides count in points from the bottom left, so geometry is copied.
namespace vornix::platform::macos {

inline NSString* toNSString(std::string_view text) {
    return [[NSString alloc] initWithBytes:text.data() length:text.size() encoding:NSUTF8StringEncoding];
}

// Text that is not there (nil, or not representable as UTF-8) becomes the empty string.
inline std::string toString(NSString* text) {
    const char* utf8 = text.UTF8String;
    return utf8 != nullptr ? std::string(utf8) : std::string();
}

inline NSData* toNSData(std::span<const std::uint8_t> bytes) {
    return [NSData dataWithBytes:bytes.data() length:bytes.size()];
}

inline std::span<const std::uint8_t> bytesOf(NSData* data) {
    return {static_cast<const std::uint8_t*>(data.bytes), static_cast<std::size_t>(data.length)};
}

inline NSRect toNSRect(Rect rect) { return NSMakeRect(rect.x, rect.y, rect.width, rect.height); }
inline Rect toRect(NSRect rect) { return {rect.origin.x, rect.origin.y, rect.size.width, rect.size.height}; }
inline NSSize toNSSize(Size size) { return NSMakeSize(size.width, size.height); }
inline NSPoint toNSPoint(Point point) { return NSMakePoint(point.x, point.y); }

}  // namespace vornix::platform::macos
