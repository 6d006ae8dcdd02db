#pragma once

#include <string_view>
#include <utility>

#include "launch_agent/RawValue.hpp"

namespace vornix::launch_agent {

// The job's "inetdCompatibility" options. The lower-case first letter follows launchd's own
// key. "Wait" is required: always written, and a missing one fails the decode.
class inetdCompatibility {
public:
    enum class CodingKeys { wait };

    explicit inetdCompatibility(bool wait);
    explicit inetdCompatibility(const plist::KeyedDecoder& decoder);
    void encode(plist::KeyedEncoder& encoder) const;

    bool wait;
};

}  // namespace vornix::launch_agent

template <>
struct vornix::plist::RawValues<vornix::launch_agent::inetdCompatibility::CodingKeys> {
    using CodingKeys = vornix::launch_agent::inetdCompatibility::CodingKeys;
    static constexpr std::pair<CodingKeys, std::string_view> table[] = {
        {CodingKeys::wait, "Wait"},
    };
};
