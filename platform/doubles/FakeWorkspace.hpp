#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/Workspace.hpp"
#include "platform/doubles/EventLog.hpp"

namespace vornix::platform::doubles {

// A workspace whose applications are whatever the test installs, by URL scheme; it records every
// URL opened, in order.
class FakeWorkspace : public Workspace {
public:
    explicit FakeWorkspace(EventLog* log = nullptr) : log_(log) {}

    bool open(const url::URL& url) override;
    std::optional<url::URL> urlForApplication(const url::URL& toOpen) override;

    // From now on, URLs of `scheme` are opened by the application at `applicationLocation`.
    void installApplication(std::string scheme, url::URL applicationLocation);

    // The texts of the URLs opened, in order.
    const std::vector<std::string>& opened() const { return opened_; }

private:
    EventLog* log_;
    std::map<std::string, url::URL, std::less<>> applications_;
    std::vector<std::string> opened_;
};

}  // namespace vornix::platform::doubles
