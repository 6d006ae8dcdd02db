#include "platform/doubles/FakeApplication.hpp"

#include <stdexcept>

namespace vornix::platform::doubles {

FakeApplication::FakeApplication(OperatingSystemVersion version, EventLog* log) : version_(version), log_(log) {}

void FakeApplication::terminate() {
    ++terminated_;
    if (log_ != nullptr) {
        log_->record("application.terminate");
    }
}

void FakeApplication::closeWindow() {
    if (windows_ == 0) {
        throw std::logic_error("no window is open");
    }
    --windows_;
}

}  // namespace vornix::platform::doubles
