#pragma once

#include <cstddef>
#include <deque>
#include <vector>

#include "platform/Alerts.hpp"

namespace vornix::platform::doubles {

// Alerts for tests: records every alert shown, in order, and answers each with the next
// scripted button, or with the first button when nothing is scripted.
class RecordingAlerts : public Alerts {
public:
    ModalResponse runModal(const Alert& alert) override;

    // The next alert is answered with the button at `index` (0 = the first, answer 1000).
    void answerWithButton(std::size_t index);

    const std::vector<Alert>& shown() const { return shown_; }

private:
    std::vector<Alert> shown_;
    std::deque<ModalResponse> answers_;
};

}  // namespace vornix::platform::doubles
