#include "platform/linux/HostApplication.hpp"

#include <cstdlib>
#include <string>

#include <gtest/gtest.h>

namespace vornix::platform::linux {
namespace {

// GTK takes a window's Wayland app_id and X11 WM_CLASS from the program's name: the application
// names the program after its id, so desktops match its windows to its desktop entry. (The class,
// set once GTK has started, is seen by the desktop test of the windows' WM_CLASS.)
TEST(HostApplicationTest, TheProgramIsNamedAfterTheApplicationIdForItsWindows) {
    EXPECT_EXIT(
        {
            HostApplication application("com.example.announced", {});
            std::exit(std::string(g_get_prgname()) == "com.example.announced" ? 0 : 1);
        },
        testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace vornix::platform::linux
