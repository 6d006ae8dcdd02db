#pragma once

#include "platform/ApplicationWindows.hpp"

namespace vornix::platform::doubles {

// The application's windows as a list that tests fill.
class ApplicationWindowsDouble : public ApplicationWindows {
public:
    std::vector<std::shared_ptr<Window>> windows() const override { return list; }

    std::vector<std::shared_ptr<Window>> list;
};

}  // namespace vornix::platform::doubles
