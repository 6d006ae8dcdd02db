#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/Binding.hpp"
#include "host/SignedInModel.hpp"
#include "host/State.hpp"
#include "host/TransparentButton.hpp"
#include "platform/PopoverView.hpp"

namespace vornix::host {

// The status popover's content: the product name, the "Launch on Login" switch, the account, the
// engine's version and port and a column of commands. A value: copies share one model (so an
// update through any copy reaches the popover on screen) and each has its own view state.
class ContentView {
public:
    // What a row does when it is used.
    struct Action {
        enum class Kind { none, channelMethod, launchVFD, checkForUpdates, launchOnLogin, terminate };
        Kind kind = Kind::none;
        // The method sent on the UI interactions channel, for Kind::channelMethod.
        std::string methodName;

        static Action none() { return {}; }
        static Action method(std::string name) { return {Kind::channelMethod, std::move(name)}; }
        static Action local(Kind kind) { return {kind, {}}; }
        friend bool operator==(const Action&, const Action&) = default;
    };

    enum class Shown { always, signedOut, signedIn };
    // The model field a row's text ends with.
    enum class Field { none, email, appVersion, port };

    // One row of the popover, as designed.
    struct Row {
        std::string number;
        platform::RowKind kind;
        std::string text;
        Field field;
        Shown shownWhen;
        Action action;
        std::string hoverId;
        platform::EdgeInsets padding;
        platform::Font font;
    };

    // Every row, top to bottom; rows 5a to 5c depend on the account state.
    static const std::vector<Row>& rows();
    // Rows 10 to 16, the commands at the bottom.
    static const std::vector<Row>& bottomRow();
    // The stack's frame and the layout of every button label.
    static platform::PopoverLayout layout();

    // What an action does when no engine runs to carry out the channel's methods: the host quits
    // by itself on "quit"; the engine's other commands do nothing (none: their buttons are
    // disabled); the host's own actions stay as they are.
    static Action withoutEngine(const Action& action);
    // Whether an engine runs behind the installed embedding (there is always one when none is
    // installed, as on macOS, where the engine is part of the application).
    static bool engineRuns();

    // A view on a new model, the switch as the launch agent file on disk says.
    ContentView();

    // The one popover view, made on first use (safe when threads race for it) and never replaced.
    static const ContentView& sharedInstance();

    // The rows shown now, for the model's values and this view's state.
    std::vector<platform::PopoverRow> body() const;

    // The pointer entered (inside) or left a button: the highlight follows the button entered last,
    // and a late leave of an old button, after the new one was entered, leaves the new one highlighted.
    void hoverChanged(const std::string& hoverId, bool inside) const;
    // Carries out the action of the shown button with this identifier.
    void buttonPressed(const std::string& hoverId) const;
    // The switch's binding: writing stores the value, then loads or unloads the launch agent.
    Binding<bool> launchOnLogin() const;

    // Takes the engine's report: about one second later, and one more hop on the main queue after
    // that, the model's fields are set in order. Callable from any thread; the caller never waits.
    void updateAuth(bool signedIn, std::string email, std::string appVersion, std::string port) const;
    // The companion application's URL scheme, with nothing after the separator.
    static constexpr std::string_view companionURL = "vornix-for-developers://";

    // Starts the companion application "Vornix for Developers", or, when no application opens its
    // scheme, says so in an alert that offers the install page.
    void launchVFD() const;
    // The same with other addresses.
    void launchVFD(std::string_view companionURL, std::string_view installPage) const;

    State<bool> runAtLoad;
    State<std::string> lastHoveredId{""};
    State<bool> isHover{false};
    std::shared_ptr<SignedInModel> model;

private:
    // The row's action as things are now: with or without an engine.
    static Action currentAction(const Row& row);
    void perform(const Action& action) const;
    void checkForUpdates() const;
    bool isShown(Shown shownWhen) const;
    std::string textOf(const Row& row) const;
};

}  // namespace vornix::host
