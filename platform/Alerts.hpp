#pragma once

#include <string_view>

#include "platform/Alert.hpp"
#include "platform/Port.hpp"

namespace vornix::platform {

// Modal alerts (NSAlert). Runs on the main thread, which waits in the alert until the user answers.
class Alerts : public Port<Alerts> {
public:
    static constexpr std::string_view portName = "alerts";

    virtual ~Alerts() = default;

    // Shows `alert` modally and returns the button the user chose (1000 = the first).
    virtual ModalResponse runModal(const Alert& alert) = 0;
};

}  // namespace vornix::platform
