#pragma once

#include <string>
#include <variant>

#include "updates/Appcast.hpp"

namespace vornix::updates {

// What an update check found.
struct UpToDate {};

struct UpdateAvailable {
    AppcastItem item;
};

struct CheckFailed {
    std::string reason;  // in plain words, for the user
    std::string detail;  // what went wrong technically, for the diagnostics line
};

using CheckOutcome = std::variant<UpToDate, UpdateAvailable, CheckFailed>;

}  // namespace vornix::updates
