#include "platform/doubles/RecordingAlerts.hpp"

namespace vornix::platform::doubles {

ModalResponse RecordingAlerts::runModal(const Alert& alert) {
    shown_.push_back(alert);
    if (answers_.empty()) {
        return alertFirstButtonReturn;
    }
    const ModalResponse answer = answers_.front();
    answers_.pop_front();
    return answer;
}

void RecordingAlerts::answerWithButton(std::size_t index) {
    answers_.push_back(alertFirstButtonReturn + static_cast<ModalResponse>(index));
}

}  // namespace vornix::platform::doubles
