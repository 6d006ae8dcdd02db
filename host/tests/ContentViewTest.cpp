#include "host/ContentView.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <thread>

#include "launch_agent/tests/LaunchControlTestHome.hpp"
#include "platform/doubles/ManualMainQueue.hpp"

namespace {

using vornix::host::ContentView;
using vornix::platform::Color;
using vornix::platform::EdgeInsets;
using vornix::platform::FontWeight;
using vornix::platform::MainQueue;
using vornix::platform::PopoverRow;
using vornix::platform::RowKind;
using vornix::platform::ScopedPort;
using vornix::platform::doubles::ManualMainQueue;
using Action = ContentView::Action;
using Kind = ContentView::Action::Kind;
using Texts = std::vector<std::string>;

Texts textsOf(const std::vector<PopoverRow>& rows) {
    Texts texts;
    for (const PopoverRow& row : rows) {
        texts.push_back(row.kind == RowKind::divider ? "---" : row.text);
    }
    return texts;
}

const PopoverRow& buttonIn(const std::vector<PopoverRow>& rows, const std::string& hoverId) {
    auto found = std::find_if(rows.begin(), rows.end(),
                              [&](const PopoverRow& row) { return row.kind == RowKind::button && row.hoverId == hoverId; });
    if (found == rows.end()) {
        throw std::out_of_range("no button " + hoverId);
    }
    return *found;
}

class ContentViewTest : public testing::Test {
protected:
    vornix::launch_agent::testing::LaunchControlTestHome home;
    ManualMainQueue queue;
    ScopedPort<MainQueue> mainQueue{&queue};
};

TEST(ContentViewRows, TheTableListsEveryRowWithItsKindTextVisibilityActionAndHoverIdentifier) {
    struct Expected {
        std::string number;
        RowKind kind;
        std::string text;
        ContentView::Shown shownWhen;
        Action action;
        std::string hoverId;
    };
    using Shown = ContentView::Shown;
    std::vector<Expected> expected{
        {"1", RowKind::text, "Vornix OS", Shown::always, Action::none(), ""},
        {"2", RowKind::toggle, "Launch on Login", Shown::always, Action::local(Kind::launchOnLogin), ""},
        {"3", RowKind::divider, "", Shown::always, Action::none(), ""},
        {"4", RowKind::text, "Account", Shown::always, Action::none(), ""},
        {"5a", RowKind::button, "Sign In...", Shown::signedOut, Action::method("sign_in"), "sign_in"},
        {"5b", RowKind::text, "", Shown::signedIn, Action::none(), ""},
        {"5c", RowKind::button, "Sign Out...", Shown::signedIn, Action::method("sign_out"), "sign_out"},
        {"6", RowKind::divider, "", Shown::always, Action::none(), ""},
        {"7", RowKind::text, "Version: ", Shown::always, Action::none(), ""},
        {"8", RowKind::text, "Port: ", Shown::always, Action::none(), ""},
        {"9", RowKind::divider, "", Shown::always, Action::none(), ""},
        {"10", RowKind::button, "Launch Vornix for Developers", Shown::always, Action::local(Kind::launchVFD), "launch"},
        {"11", RowKind::button, "Discover Integrations", Shown::always, Action::method("add_integrations"), "integrations"},
        {"12", RowKind::button, "About", Shown::always, Action::method("about"), "about"},
        {"13", RowKind::button, "Get Help", Shown::always, Action::method("get_help"), "help"},
        {"14", RowKind::button, "Submit Feedback or Issues", Shown::always, Action::method("feedback"), "feedback"},
        {"15", RowKind::button, "Check for Updates...", Shown::always, Action::local(Kind::checkForUpdates), "updates"},
        {"16", RowKind::button, "Quit", Shown::always, Action::method("quit"), "quit"},
    };
    const auto& rows = ContentView::rows();
    ASSERT_EQ(rows.size(), expected.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        SCOPED_TRACE("row " + expected[i].number);
        EXPECT_EQ(rows[i].number, expected[i].number);
        EXPECT_EQ(rows[i].kind, expected[i].kind);
        EXPECT_EQ(rows[i].text, expected[i].text);
        EXPECT_EQ(rows[i].shownWhen, expected[i].shownWhen);
        EXPECT_EQ(rows[i].action, expected[i].action);
        EXPECT_EQ(rows[i].hoverId, expected[i].hoverId);
    }
}

TEST(ContentViewRows, RowsEndWithTheModelsEmailVersionAndPort) {
    const auto& rows = ContentView::rows();
    EXPECT_EQ(rows[5].field, ContentView::Field::email);
    EXPECT_EQ(rows[8].field, ContentView::Field::appVersion);
    EXPECT_EQ(rows[9].field, ContentView::Field::port);
    for (std::size_t i : {0u, 1u, 2u, 3u, 4u, 6u, 7u, 10u}) {
        EXPECT_EQ(rows[i].field, ContentView::Field::none) << "row " << rows[i].number;
    }
}

TEST(ContentViewRows, EachRowHasItsPadding) {
    const EdgeInsets button{0, 2, 0, 2};
    const EdgeInsets divider{10, 10, 10, 10};
    std::vector<EdgeInsets> expected{
        {15, 10, 0, 0}, {3, 10, 0, 0}, divider, {0, 10, 0, 0}, button,  {3, 10, 0, 0}, button, divider, {3, 10, 3, 0},
        {3, 10, 3, 0},  divider,       button,  button,        button,  button,        button, button,  {0, 2, 15, 2},
    };
    const auto& rows = ContentView::rows();
    ASSERT_EQ(rows.size(), expected.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(rows[i].padding, expected[i]) << "row " << rows[i].number;
    }
}

TEST(ContentViewRows, TheTitleIsTheSystemFontOfSizeThirteenMadeMediumAndAccountIsBold) {
    const auto& rows = ContentView::rows();
    EXPECT_EQ(rows[0].font.size, 13.0);
    EXPECT_EQ(rows[0].font.weight, FontWeight::medium);
    EXPECT_EQ(rows[0].font.design, vornix::platform::FontDesign::standard);
    EXPECT_FALSE(rows[3].font.size.has_value());
    EXPECT_EQ(rows[3].font.weight, FontWeight::bold);
    for (std::size_t i = 4; i < rows.size(); ++i) {
        EXPECT_EQ(rows[i].font, vornix::platform::Font{}) << "row " << rows[i].number;
    }
}

TEST(ContentViewRows, TheBottomRowIsRowsTenToSixteen) {
    const auto& bottom = ContentView::bottomRow();
    const auto& rows = ContentView::rows();
    ASSERT_EQ(bottom.size(), 7u);
    for (std::size_t i = 0; i < bottom.size(); ++i) {
        EXPECT_EQ(bottom[i].number, std::to_string(10 + i));
        EXPECT_EQ(bottom[i].hoverId, rows[rows.size() - 7 + i].hoverId);
    }
}

TEST(ContentViewRows, OnlyAboutFeedbackAndQuitHaveHoverIdentifiersEqualToTheirMethodNames) {
    std::vector<std::string> same;
    for (const auto& row : ContentView::bottomRow()) {
        if (row.action.kind == Kind::channelMethod && row.action.methodName == row.hoverId) {
            same.push_back(row.hoverId);
        }
    }
    EXPECT_EQ(same, (std::vector<std::string>{"about", "feedback", "quit"}));
}

TEST(ContentViewRows, TheStackIs200WideUnboundedHighTopLeadingWithFullWidthLeadingLabels) {
    auto layout = ContentView::layout();
    EXPECT_EQ(layout.stackAlignment, vornix::platform::Alignment::leading);
    EXPECT_EQ(layout.width, 200.0);
    EXPECT_EQ(layout.maxHeight, vornix::platform::unbounded);
    EXPECT_EQ(layout.frameAlignment, vornix::platform::Alignment::topLeading);
    EXPECT_EQ(layout.buttonLabel.maxWidth, vornix::platform::unbounded);
    EXPECT_EQ(layout.buttonLabel.alignment, vornix::platform::Alignment::leading);
    EXPECT_EQ(layout.buttonLabel.padding, (EdgeInsets{3, 8, 3, 0}));
}

TEST_F(ContentViewTest, BeforeAnyReportThePopoverShowsSignInVersionZeroAndAnEmptyPort) {
    ContentView view;
    EXPECT_EQ(textsOf(view.body()),
              (Texts{"Vornix OS", "Launch on Login", "---", "Account", "Sign In...", "---", "Version: 0.0.0", "Port: ",
                     "---", "Launch Vornix for Developers", "Discover Integrations", "About", "Get Help",
                     "Submit Feedback or Issues", "Check for Updates...", "Quit"}));
}

TEST_F(ContentViewTest, SignedInShowsTheEmailAsIsAndSignOutInPlaceOfSignIn) {
    ContentView view;
    view.model->setSignedIn(true);
    view.model->setEmail("Ada.Lovelace+test@example.com");
    view.model->setAppVersion("2.4.1");
    view.model->setPort("47321");
    Texts texts = textsOf(view.body());
    EXPECT_EQ(Texts(texts.begin() + 3, texts.begin() + 9),
              (Texts{"Account", "Ada.Lovelace+test@example.com", "Sign Out...", "---", "Version: 2.4.1", "Port: 47321"}));
    EXPECT_EQ(std::count(texts.begin(), texts.end(), "Sign In..."), 0);
}

TEST_F(ContentViewTest, TheSwitchShowsTheViewsRunAtLoad) {
    ContentView view;
    view.runAtLoad.setWrappedValue(true);
    EXPECT_TRUE(view.body()[1].isOn);
    view.runAtLoad.setWrappedValue(false);
    EXPECT_FALSE(view.body()[1].isOn);
}

TEST_F(ContentViewTest, MovingQuicklyBetweenButtonsLeavesTheHighlightOnTheNewButtonEvenIfTheOldLeaveComesLast) {
    ContentView view;
    view.hoverChanged("about", true);
    view.hoverChanged("help", true);
    view.hoverChanged("about", false);
    EXPECT_EQ(view.lastHoveredId.wrappedValue(), "help");
    auto body = view.body();
    EXPECT_EQ(buttonIn(body, "help").background.color, Color::gray);
    EXPECT_EQ(buttonIn(body, "about").background.color, Color::clear);
}

TEST_F(ContentViewTest, ALateLeaveOfTheOldButtonKeepsThePointerOverAButton) {
    ContentView view;
    view.hoverChanged("about", true);
    view.hoverChanged("help", true);
    view.hoverChanged("about", false);
    EXPECT_TRUE(view.isHover.wrappedValue());
    view.hoverChanged("help", false);
    EXPECT_FALSE(view.isHover.wrappedValue());
    EXPECT_EQ(buttonIn(view.body(), "help").background.color, Color::clear);
}

TEST_F(ContentViewTest, LeavingTheButtonLastEnteredClearsTheHighlight) {
    ContentView view;
    view.hoverChanged("quit", true);
    EXPECT_EQ(buttonIn(view.body(), "quit").background.color, Color::gray);
    view.hoverChanged("quit", false);
    EXPECT_EQ(view.lastHoveredId.wrappedValue(), "");
    EXPECT_FALSE(view.isHover.wrappedValue());
    EXPECT_EQ(buttonIn(view.body(), "quit").background.color, Color::clear);
}

TEST_F(ContentViewTest, CopiesShareTheModelAndKeepTheirOwnViewState) {
    ContentView original;
    ContentView copy = original;
    EXPECT_EQ(copy.model, original.model);
    copy.hoverChanged("about", true);
    EXPECT_EQ(original.lastHoveredId.wrappedValue(), "");
}

TEST_F(ContentViewTest, AReportIsAppliedAboutOneSecondLaterAndNotBefore) {
    ContentView view;
    view.updateAuth(true, "ada@example.com", "2.4.1", "47321");
    EXPECT_FALSE(view.model->signedIn());
    queue.advance(0.999);
    EXPECT_FALSE(view.model->signedIn());
    EXPECT_EQ(view.model->email(), "");
    queue.advance(0.001);
    EXPECT_TRUE(view.model->signedIn());
    EXPECT_EQ(view.model->email(), "ada@example.com");
    EXPECT_EQ(view.model->appVersion(), "2.4.1");
    EXPECT_EQ(view.model->port(), "47321");
}

TEST_F(ContentViewTest, TheModelIsSetOneMoreHopAfterTheSecondHasPassed) {
    ContentView view;
    view.updateAuth(true, "ada@example.com", "2.4.1", "47321");
    bool setWhenTheSecondPassed = true;
    // Queued after updateAuth's own task for the same deadline, so it runs right after that task.
    queue.asyncAfter(1.0, [&] { setWhenTheSecondPassed = view.model->signedIn(); });
    queue.advance(1.0);
    EXPECT_FALSE(setWhenTheSecondPassed);
    EXPECT_TRUE(view.model->signedIn());
}

TEST_F(ContentViewTest, TheDelayIsKeptWhenTheCallComesOnTheMainThread) {
    ContentView view;
    ASSERT_TRUE(queue.isMainThread());
    view.updateAuth(true, "e", "v", "p");
    queue.runReady();
    EXPECT_FALSE(view.model->signedIn());
}

TEST_F(ContentViewTest, TheFieldsAreSetInOrderSignedInEmailVersionPort) {
    ContentView view;
    std::vector<std::string> before;
    auto subscription = view.model->objectWillChange([&] {
        const auto& model = *view.model;
        before.push_back(std::string(model.signedIn() ? "in" : "out") + "|" + model.email() + "|" +
                         model.appVersion() + "|" + model.port());
    });
    view.updateAuth(true, "e", "1.0.0", "80");
    queue.advance(1.0);
    EXPECT_EQ(before, (std::vector<std::string>{"out||0.0.0|", "in||0.0.0|", "in|e|0.0.0|", "in|e|1.0.0|"}));
}

TEST_F(ContentViewTest, SeveralReportsWithinASecondAreAppliedInOrderEachASecondAfterItsCallAndTheLastWins) {
    ContentView view;
    view.updateAuth(true, "first@example.com", "1.0.0", "1");
    queue.advance(0.4);
    view.updateAuth(false, "", "1.0.1", "2");
    queue.advance(0.6);
    EXPECT_TRUE(view.model->signedIn());
    EXPECT_EQ(view.model->email(), "first@example.com");
    queue.advance(0.399);
    EXPECT_EQ(view.model->port(), "1");
    queue.advance(0.001);
    EXPECT_FALSE(view.model->signedIn());
    EXPECT_EQ(view.model->email(), "");
    EXPECT_EQ(view.model->appVersion(), "1.0.1");
    EXPECT_EQ(view.model->port(), "2");
}

TEST_F(ContentViewTest, AReportFromAnotherThreadIsAppliedOnTheMainThread) {
    ContentView view;
    bool changedOnMain = false;
    auto subscription = view.model->objectWillChange([&] { changedOnMain = queue.isMainThread(); });
    std::thread([&] { view.updateAuth(true, "e", "v", "p"); }).join();
    EXPECT_FALSE(view.model->signedIn());
    queue.advance(1.0);
    EXPECT_TRUE(view.model->signedIn());
    EXPECT_TRUE(changedOnMain);
}

TEST_F(ContentViewTest, AReportThroughACopyReachesTheOriginalsModel) {
    ContentView shown;
    ContentView copy = shown;
    copy.updateAuth(true, "ada@example.com", "2.4.1", "47321");
    queue.advance(1.0);
    EXPECT_EQ(textsOf(shown.body())[4], "ada@example.com");
}

}  // namespace
