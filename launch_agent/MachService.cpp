#include "launch_agent/MachService.hpp"

namespace vornix::launch_agent {

using Key = MachService::CodingKeys;

MachService::MachService(bool hideUntilCheckIn, bool resetAtClose)
    : hideUntilCheckIn(hideUntilCheckIn), resetAtClose(resetAtClose) {}

MachService::MachService(const plist::KeyedDecoder& decoder)
    : hideUntilCheckIn(decoder.decode<bool>(codingKey(Key::hideUntilCheckIn))),
      resetAtClose(decoder.decode<bool>(codingKey(Key::resetAtClose))) {}

void MachService::encode(plist::KeyedEncoder& encoder) const {
    encoder.encode(codingKey(Key::hideUntilCheckIn), hideUntilCheckIn);
    encoder.encode(codingKey(Key::resetAtClose), resetAtClose);
}

}  // namespace vornix::launch_agent
