#include "launch_agent/inetdCompatibility.hpp"

namespace vornix::launch_agent {

using Key = inetdCompatibility::CodingKeys;

inetdCompatibility::inetdCompatibility(bool wait) : wait(wait) {}

inetdCompatibility::inetdCompatibility(const plist::KeyedDecoder& decoder)
    : wait(decoder.decode<bool>(codingKey(Key::wait))) {}

void inetdCompatibility::encode(plist::KeyedEncoder& encoder) const { encoder.encode(codingKey(Key::wait), wait); }

}  // namespace vornix::launch_agent
