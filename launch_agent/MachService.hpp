#pragma once

#include <string_view>
#include <utility>

#include "launch_agent/RawValue.hpp"

namespace vornix::launch_agent {

// The options of one entry of a job's "MachServices" dictionary; the entry's name is its key
// there. Both flags are required: always written, and a missing one fails the decode.
class MachService {
public:
    enum class CodingKeys { hideUntilCheckIn, resetAtClose };

    MachService(bool hideUntilCheckIn, bool resetAtClose);
    explicit MachService(const plist::KeyedDecoder& decoder);
    void encode(plist::KeyedEncoder& encoder) const;

    bool hideUntilCheckIn;
    bool resetAtClose;
};

}  // namespace vornix::launch_agent

template <>
struct vornix::plist::RawValues<vornix::launch_agent::MachService::CodingKeys> {
    using CodingKeys = vornix::launch_agent::MachService::CodingKeys;
    static constexpr std::pair<CodingKeys, std::string_view> table[] = {
        {CodingKeys::hideUntilCheckIn, "HideUntilCheckIn"},
        {CodingKeys::resetAtClose, "ResetAtClose"},
    };
};
