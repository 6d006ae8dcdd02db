#pragma once

#include "platform/Application.hpp"
#include "platform/doubles/EventLog.hpp"

namespace vornix::platform::doubles {

// An application on a chosen system version, with windows opened and closed by the test.
class FakeApplication : public Application {
public:
    explicit FakeApplication(OperatingSystemVersion version = {13, 0, 0}, EventLog* log = nullptr);

    OperatingSystemVersion systemVersion() const override { return version_; }
    std::size_t windowCount() const override { return windows_; }
    void terminate() override;

    void openWindow() { ++windows_; }
    void closeWindow();
    int terminateCount() const { return terminated_; }

private:
    OperatingSystemVersion version_;
    EventLog* log_;
    std::size_t windows_ = 0;
    int terminated_ = 0;
};

}  // namespace vornix::platform::doubles
