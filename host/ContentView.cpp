#include "host/ContentView.hpp"

#include <algorithm>
#include <exception>

#include "base/Diagnostics.hpp"
#include "base/FatalError.hpp"
#include "engine/Embedding.hpp"
#include "host/UIInteractions.hpp"
#include "host/WebEndpoints.hpp"
#include "launch_agent/LaunchControl.hpp"
#include "launch_agent/StartAtLogin.hpp"
#include "platform/Alerts.hpp"
#include "platform/Application.hpp"
#include "platform/Files.hpp"
#include "platform/MainQueue.hpp"
#include "platform/Paths.hpp"
#include "platform/Updater.hpp"
#include "platform/Workspace.hpp"
#include "url/URL.hpp"

namespace vornix::host {

namespace {

using platform::EdgeInsets;
using platform::Font;
using platform::FontDesign;
using platform::FontWeight;
using platform::RowKind;
using Kind = ContentView::Action::Kind;

// The application's own job file, which says whether it starts at login.
constexpr std::string_view launchAgentFileName = "com.vornix.os.launch.plist";

// The switch's state when the view is made: on exactly when the job file says RunAtLoad true and
// the job manager agrees that the job starts at the next login (launchd always does; an autostart
// entry may have been removed or switched off in the desktop's settings). It is not read again;
// afterwards the switch shows what the user last set.
bool runAtLoadFromLaunchAgentFile() {
    try {
        const auto& control = launch_agent::LaunchControl::shared();
        const std::string file = platform::joinPath(control.launchAgentsURL(), launchAgentFileName);
        auto agent = control.decoder.decode(platform::readWholeFile(file));
        agent->url = file;
        return agent->runAtLoad.value_or(false) && control.startsAtLogin(*agent);
    } catch (const std::exception& error) {
        base::printLine(std::string("Something went wrong checking the launch agent file: ") + " " + error.what());
        return false;
    }
}

constexpr EdgeInsets allTen{10.0, 10.0, 10.0, 10.0};
constexpr EdgeInsets buttonPadding{0.0, 2.0, 0.0, 2.0};

ContentView::Row text(std::string number, std::string text, EdgeInsets padding, Font font = {},
                      ContentView::Field field = ContentView::Field::none,
                      ContentView::Shown shownWhen = ContentView::Shown::always) {
    return {std::move(number), RowKind::text, std::move(text), field, shownWhen, ContentView::Action::none(), "",
            padding, font};
}

ContentView::Row divider(std::string number) {
    return {std::move(number), RowKind::divider, "", ContentView::Field::none, ContentView::Shown::always,
            ContentView::Action::none(), "", allTen, {}};
}

ContentView::Row button(std::string number, std::string label, ContentView::Action action, std::string hoverId,
                        ContentView::Shown shownWhen = ContentView::Shown::always, EdgeInsets padding = buttonPadding) {
    return {std::move(number), RowKind::button, std::move(label), ContentView::Field::none, shownWhen,
            std::move(action), std::move(hoverId), padding, {}};
}

std::vector<ContentView::Row> makeRows() {
    using Action = ContentView::Action;
    using Field = ContentView::Field;
    using Shown = ContentView::Shown;
    std::vector<ContentView::Row> rows{
        text("1", "Vornix OS", {15.0, 10.0, 0.0, 0.0},
             Font::system(13.0, FontWeight::regular, FontDesign::standard).withWeight(FontWeight::medium)),
        {"2", RowKind::toggle, "Launch on Login", Field::none, Shown::always, Action::local(Kind::launchOnLogin), "",
         {3.0, 10.0, 0.0, 0.0}, {}},
        divider("3"),
        text("4", "Account", {0.0, 10.0, 0.0, 0.0}, Font{{}, FontWeight::bold, FontDesign::standard}),
        button("5a", "Sign In...", Action::method("sign_in"), "sign_in", Shown::signedOut),
        text("5b", "", {3.0, 10.0, 0.0, 0.0}, {}, Field::email, Shown::signedIn),
        button("5c", "Sign Out...", Action::method("sign_out"), "sign_out", Shown::signedIn),
        divider("6"),
        text("7", "Version: ", {3.0, 10.0, 3.0, 0.0}, {}, Field::appVersion),
        text("8", "Port: ", {3.0, 10.0, 3.0, 0.0}, {}, Field::port),
        divider("9"),
    };
    const auto& bottom = ContentView::bottomRow();
    rows.insert(rows.end(), bottom.begin(), bottom.end());
    return rows;
}

std::vector<ContentView::Row> makeBottomRow() {
    using Action = ContentView::Action;
    return {
        button("10", "Launch Vornix for Developers", Action::local(Kind::launchVFD), "launch"),
        button("11", "Discover Integrations", Action::method("add_integrations"), "integrations"),
        button("12", "About", Action::method("about"), "about"),
        button("13", "Get Help", Action::method("get_help"), "help"),
        button("14", "Submit Feedback or Issues", Action::method("feedback"), "feedback"),
        button("15", "Check for Updates...", Action::local(Kind::checkForUpdates), "updates"),
        button("16", "Quit", Action::method("quit"), "quit", ContentView::Shown::always, {0.0, 2.0, 15.0, 2.0}),
    };
}

}  // namespace

const std::vector<ContentView::Row>& ContentView::rows() {
    static const std::vector<Row> rows = makeRows();
    return rows;
}

const std::vector<ContentView::Row>& ContentView::bottomRow() {
    static const std::vector<Row> rows = makeBottomRow();
    return rows;
}

platform::PopoverLayout ContentView::layout() {
    return {platform::Alignment::leading, 200.0, platform::unbounded, platform::Alignment::topLeading,
            {platform::unbounded, platform::Alignment::leading, {3.0, 8.0, 3.0, 0.0}}};
}

ContentView::Action ContentView::withoutEngine(const Action& action) {
    if (action.kind != Kind::channelMethod) {
        return action;
    }
    return action.methodName == "quit" ? Action::local(Kind::terminate) : Action::none();
}

bool ContentView::engineRuns() {
    const engine::Embedding* embedding = engine::Embedding::installed();
    return embedding == nullptr || embedding->hasEngine();
}

ContentView::Action ContentView::currentAction(const Row& row) {
    return engineRuns() ? row.action : withoutEngine(row.action);
}

ContentView::ContentView() : runAtLoad(runAtLoadFromLaunchAgentFile()), model(std::make_shared<SignedInModel>()) {}

const ContentView& ContentView::sharedInstance() {
    // A function-local static: made once, and other threads wait for it while it is being made.
    static const ContentView instance;
    return instance;
}

bool ContentView::isShown(Shown shownWhen) const {
    switch (shownWhen) {
        case Shown::always:
            return true;
        case Shown::signedOut:
            return !model->signedIn();
        case Shown::signedIn:
            return model->signedIn();
    }
    return false;
}

std::string ContentView::textOf(const Row& row) const {
    switch (row.field) {
        case Field::none:
            return row.text;
        case Field::email:
            return row.text + model->email();
        case Field::appVersion:
            return row.text + model->appVersion();
        case Field::port:
            return row.text + model->port();
    }
    return row.text;
}

std::vector<platform::PopoverRow> ContentView::body() const {
    std::vector<platform::PopoverRow> shown;
    for (const Row& row : rows()) {
        if (!isShown(row.shownWhen)) {
            continue;
        }
        platform::PopoverRow out;
        out.kind = row.kind;
        out.text = textOf(row);
        out.padding = row.padding;
        out.font = row.font;
        if (row.kind == RowKind::toggle) {
            out.isOn = runAtLoad.wrappedValue();
        }
        if (row.kind == RowKind::button) {
            TransparentButton style{isHover.projectedValue(), lastHoveredId.projectedValue(), row.hoverId};
            StyledButton styled = style.makeBody({out.text, false});
            out.text = styled.label;
            out.background = styled.background;
            out.hoverId = row.hoverId;
            out.isEnabled = currentAction(row).kind != Kind::none;
        }
        shown.push_back(std::move(out));
    }
    return shown;
}

void ContentView::hoverChanged(const std::string& hoverId, bool inside) const {
    if (inside) {
        isHover.setWrappedValue(true);
        lastHoveredId.setWrappedValue(hoverId);
    } else if (lastHoveredId.wrappedValue() == hoverId) {
        isHover.setWrappedValue(false);
        lastHoveredId.setWrappedValue("");
    }
    // A leave from a button other than the one entered last comes late, after the pointer entered
    // that other button: the pointer is still over a button, so the highlight stays where it is.
}

void ContentView::buttonPressed(const std::string& hoverId) const {
    auto row = std::find_if(rows().begin(), rows().end(), [&](const Row& row) {
        return row.kind == RowKind::button && row.hoverId == hoverId && isShown(row.shownWhen);
    });
    // A press reported for a button no longer shown (the account state just changed) does nothing,
    // and so does one on a disabled button.
    if (row != rows().end()) {
        perform(currentAction(*row));
    }
}

Binding<bool> ContentView::launchOnLogin() const {
    // The switch keeps the new value whatever loading or unloading does; their failures are lines
    // on standard output only.
    return runAtLoad.projectedValue().didSet([](const bool& isOn) {
        if (isOn) {
            launch_agent::StartAtLogin::shared().loadLaunchAgent();
        } else {
            launch_agent::StartAtLogin::shared().unloadLaunchAgent();
        }
    });
}

void ContentView::perform(const Action& action) const {
    switch (action.kind) {
        case Kind::channelMethod: {
            // Once the popover can be shown, the channel exists: its absence is a defect.
            const auto& channel = UIInteractions::channel();
            if (!channel) {
                base::fatalError("the UI interactions channel is not set");
            }
            channel->invokeMethod(action.methodName);
            return;
        }
        case Kind::launchVFD:
            launchVFD();
            return;
        case Kind::checkForUpdates:
            checkForUpdates();
            return;
        case Kind::terminate:
            platform::Application::current().terminate();
            return;
        case Kind::none:
        case Kind::launchOnLogin:
            // The switch acts through its binding, not as a button.
            return;
    }
}

void ContentView::checkForUpdates() const {
    // Without the shared updater the popover could not have been built as shipped: a defect.
    platform::Updater::current().checkForUpdates();
}

void ContentView::launchVFD() const { launchVFD(companionURL, WebEndpoints{}.installPage); }

void ContentView::launchVFD(std::string_view companionURL, std::string_view installPage) const {
    auto companion = url::URL::parse(companionURL);
    if (!companion) {
        base::printLine("There was an error launching VFD");
        return;
    }
    auto& workspace = platform::Workspace::current();
    if (auto application = workspace.urlForApplication(*companion)) {
        workspace.open(*application);
        return;
    }
    base::printLine("Failure to Launch");
    platform::Alert alert;
    alert.alertStyle = platform::AlertStyle::warning;
    alert.messageText = "Not Detected";
    alert.informativeText = "Please make sure Vornix for Developers is installed on your machine";
    alert.addButton("Install");
    alert.addButton("Close");
    if (platform::Alerts::current().runModal(alert) != platform::alertFirstButtonReturn) {
        return;
    }
    if (auto page = url::URL::parse(installPage)) {
        workspace.open(*page);
    } else {
        base::printLine("There was an error launching the install site");
    }
}

void ContentView::updateAuth(bool signedIn, std::string email, std::string appVersion, std::string port) const {
    // The delay is deliberate and kept also when the call comes on the main thread.
    platform::MainQueue::current().asyncAfter(
        1.0, [model = model, signedIn, email = std::move(email), appVersion = std::move(appVersion),
              port = std::move(port)]() mutable {
            platform::MainQueue::current().async([model = std::move(model), signedIn, email = std::move(email),
                                                  appVersion = std::move(appVersion), port = std::move(port)] {
                model->setSignedIn(signedIn);
                model->setEmail(email);
                model->setAppVersion(appVersion);
                model->setPort(port);
            });
        });
}

}  // namespace vornix::host
