#include "updates/AppcastUpdater.hpp"

#include "base/Diagnostics.hpp"
#include "platform/Alerts.hpp"
#include "platform/Notifications.hpp"
#include "platform/Workspace.hpp"
#include "updates/FeedAddress.hpp"
#include "updates/UpdateMessages.hpp"
#include "updates/UpdatePrompts.hpp"
#include "url/URL.hpp"

namespace vornix::updates {

AppcastUpdater::AppcastUpdater(UpdateSettings settings, Version running, Version system)
    : checker_(std::move(settings), std::move(running), std::move(system),
               [this](const CheckOutcome& outcome, CheckMode mode) { present(outcome, mode); }) {}

void AppcastUpdater::checkForUpdates() { checker_.start(CheckMode::interactive); }

void AppcastUpdater::checkForUpdatesInBackground() { checker_.start(CheckMode::background); }

void AppcastUpdater::present(const CheckOutcome& outcome, CheckMode mode) const {
    if (const auto* failed = std::get_if<CheckFailed>(&outcome)) {
        base::printLine(checkFailedLine(failed->detail));
    }
    if (mode == CheckMode::background) {
        offerInBackground(outcome);
        return;
    }
    const UpdatePrompt prompt = promptFor(outcome, checker_.runningVersion());
    openWebPage(prompt.urlForAnswer(platform::Alerts::current().runModal(prompt.alert)));
}

void AppcastUpdater::offerInBackground(const CheckOutcome& outcome) const {
    if (std::holds_alternative<UpToDate>(outcome)) {
        base::printLine(upToDateLine(checker_.runningVersion()));
    } else if (const auto* available = std::get_if<UpdateAvailable>(&outcome)) {
        base::printLine(updateAvailableLine(available->item));
        const UpdateNotice notice = noticeFor(available->item, checker_.runningVersion());
        platform::Notifications::current().post(
            notice.notification, [notice](const std::string& key) { openWebPage(notice.urlForAction(key)); });
    }
}

void AppcastUpdater::openWebPage(const std::string& address) {
    if (address.empty()) {
        return;
    }
    if (!isWebPage(address)) {
        base::printLine("The update feed's address is not a web page: " + address);
        return;
    }
    platform::Workspace::current().open(*url::URL::parse(address));
}

}  // namespace vornix::updates
