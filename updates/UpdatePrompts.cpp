#include "updates/UpdatePrompts.hpp"

#include "updates/UpdateMessages.hpp"

namespace vornix::updates {

namespace {

constexpr const char* downloadAction = "download";
constexpr const char* releaseNotesAction = "release-notes";

struct PromptBuilder {
    const Version& running;

    UpdatePrompt operator()(const UpToDate&) const {
        return {{upToDateMessage(), upToDateInformativeText(running), platform::AlertStyle::informational,
                 {std::string(okLabel)}},
                {""}};
    }

    UpdatePrompt operator()(const UpdateAvailable& available) const {
        const AppcastItem& item = available.item;
        UpdatePrompt prompt{{updateAvailableMessage(item), updateAvailableInformativeText(running),
                             platform::AlertStyle::informational, {}},
                            {}};
        add(prompt, downloadLabel, item.downloadUrl());
        if (!item.releaseNotesLink.empty()) {
            add(prompt, releaseNotesLabel, item.releaseNotesLink);
        }
        add(prompt, laterLabel, "");
        return prompt;
    }

    UpdatePrompt operator()(const CheckFailed& failed) const {
        return {{checkFailedMessage(), failed.reason, platform::AlertStyle::warning, {std::string(okLabel)}}, {""}};
    }

    static void add(UpdatePrompt& prompt, std::string_view label, const std::string& url) {
        prompt.alert.addButton(std::string(label));
        prompt.buttonUrls.push_back(url);
    }
};

}  // namespace

std::string UpdatePrompt::urlForAnswer(platform::ModalResponse answer) const {
    const auto index = answer - platform::alertFirstButtonReturn;
    if (index < 0 || static_cast<std::size_t>(index) >= buttonUrls.size()) {
        return "";
    }
    return buttonUrls[static_cast<std::size_t>(index)];
}

UpdatePrompt promptFor(const CheckOutcome& outcome, const Version& running) {
    return std::visit(PromptBuilder{running}, outcome);
}

std::string UpdateNotice::urlForAction(const std::string& key) const {
    const auto found = actionUrls.find(key);
    return found == actionUrls.end() ? "" : found->second;
}

UpdateNotice noticeFor(const AppcastItem& item, const Version& running) {
    UpdateNotice notice{{updateAvailableMessage(item), updateNotificationBody(running), {}}, {}};
    notice.notification.actions.push_back({downloadAction, std::string(downloadLabel)});
    notice.actionUrls[std::string(platform::Notifications::defaultAction)] = item.downloadUrl();
    notice.actionUrls[downloadAction] = item.downloadUrl();
    if (!item.releaseNotesLink.empty()) {
        notice.notification.actions.push_back({releaseNotesAction, std::string(releaseNotesLabel)});
        notice.actionUrls[releaseNotesAction] = item.releaseNotesLink;
    }
    return notice;
}

}  // namespace vornix::updates
