#include "platform/doubles/FakeWorkspace.hpp"

namespace vornix::platform::doubles {

bool FakeWorkspace::open(const url::URL& url) {
    opened_.push_back(url.absoluteString());
    if (log_ != nullptr) {
        log_->record("workspace.open " + url.absoluteString());
    }
    return true;
}

std::optional<url::URL> FakeWorkspace::urlForApplication(const url::URL& toOpen) {
    auto scheme = toOpen.scheme();
    if (!scheme) {
        return std::nullopt;
    }
    auto found = applications_.find(*scheme);
    if (found == applications_.end()) {
        return std::nullopt;
    }
    return found->second;
}

void FakeWorkspace::installApplication(std::string scheme, url::URL applicationLocation) {
    applications_.insert_or_assign(std::move(scheme), std::move(applicationLocation));
}

}  // namespace vornix::platform::doubles
