#include "app/DeferredUpdater.hpp"

#include <gtest/gtest.h>

namespace vornix::app {
namespace {

struct Delegate : platform::UpdaterDelegate {
    void updaterDidRelaunchApplication(platform::Updater&) override {}
};

TEST(DeferredUpdaterTest, StartingUpMakesNoLinuxUpdaterAndKeepsTheDelegate) {
    DeferredUpdater updater(host::WebEndpoints{}, nullptr);
    Delegate delegate;
    updater.setDelegate(&delegate);
    EXPECT_EQ(updater.delegate(), &delegate);
    EXPECT_FALSE(updater.made());
}

}  // namespace
}  // namespace vornix::app
