#include "host/SignedInModel.hpp"

#include <gtest/gtest.h>

#include <vector>

namespace {

using vornix::host::SignedInModel;

TEST(SignedInModel, StartsSignedOutWithNoEmailVersionZeroAndNoPort) {
    SignedInModel model;
    EXPECT_FALSE(model.signedIn());
    EXPECT_EQ(model.email(), "");
    EXPECT_EQ(model.appVersion(), "0.0.0");
    EXPECT_EQ(model.port(), "");
}

TEST(SignedInModel, ObserversAreToldBeforeTheChangeTakesEffect) {
    SignedInModel model;
    std::vector<std::string> seen;
    auto subscription = model.objectWillChange([&] { seen.push_back(model.email()); });
    model.setEmail("ada@example.com");
    model.setEmail("grace@example.com");
    EXPECT_EQ(seen, (std::vector<std::string>{"", "ada@example.com"}));
    EXPECT_EQ(model.email(), "grace@example.com");
}

TEST(SignedInModel, EveryFieldIsPublished) {
    SignedInModel model;
    int told = 0;
    auto subscription = model.objectWillChange([&] { ++told; });
    model.setSignedIn(true);
    model.setEmail("e");
    model.setAppVersion("1.2.3");
    model.setPort("8080");
    EXPECT_EQ(told, 4);
    EXPECT_TRUE(model.signedIn());
    EXPECT_EQ(model.appVersion(), "1.2.3");
    EXPECT_EQ(model.port(), "8080");
}

TEST(SignedInModel, AWriteOfTheSameValueIsStillPublished) {
    SignedInModel model;
    int told = 0;
    auto subscription = model.objectWillChange([&] { ++told; });
    model.setSignedIn(false);
    EXPECT_EQ(told, 1);
}

TEST(SignedInModel, ACancelledObserverIsNoLongerTold) {
    SignedInModel model;
    int first = 0;
    int second = 0;
    auto kept = model.objectWillChange([&] { ++first; });
    {
        auto dropped = model.objectWillChange([&] { ++second; });
        model.setPort("1");
    }
    model.setPort("2");
    kept.cancel();
    model.setPort("3");
    EXPECT_EQ(first, 2);
    EXPECT_EQ(second, 1);
}

TEST(SignedInModel, AnObserverMayCancelItselfWhileBeingTold) {
    SignedInModel model;
    int told = 0;
    SignedInModel::Cancellable subscription;
    subscription = model.objectWillChange([&] {
        ++told;
        subscription.cancel();
    });
    model.setPort("1");
    model.setPort("2");
    EXPECT_EQ(told, 1);
}

TEST(SignedInModel, AMovedSubscriptionKeepsObserving) {
    SignedInModel model;
    int told = 0;
    SignedInModel::Cancellable moved = model.objectWillChange([&] { ++told; });
    SignedInModel::Cancellable target = std::move(moved);
    model.setPort("1");
    EXPECT_EQ(told, 1);
}

}  // namespace
