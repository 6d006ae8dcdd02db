#pragma once

#include <cstdint>
#include <utility>

#include "launch_agent/RawValue.hpp"

namespace vornix::launch_agent {

// The "Month" of a calendar start time, written as its integer value.
enum class StartMonth {
    january,
    february,
    march,
    april,
    may,
    june,
    july,
    august,
    september,
    october,
    november,
    december,
};

}  // namespace vornix::launch_agent

template <>
struct vornix::plist::RawValues<vornix::launch_agent::StartMonth> {
    using StartMonth = vornix::launch_agent::StartMonth;
    static constexpr std::pair<StartMonth, std::int64_t> table[] = {
        {StartMonth::january, 1},   {StartMonth::february, 2}, {StartMonth::march, 3},     {StartMonth::april, 4},
        {StartMonth::may, 5},       {StartMonth::june, 6},     {StartMonth::july, 7},      {StartMonth::august, 8},
        {StartMonth::september, 9}, {StartMonth::october, 10}, {StartMonth::november, 11}, {StartMonth::december, 12},
    };
};
