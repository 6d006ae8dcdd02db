#include "platform/linux/HostApplication.hpp"

#include <cstdlib>
#include <string>

#include <gtest/gtest.h>

namespace vornix::platform::linux {
namespace {

// GTK takes a window's Wayland app_id and X11 WM_CLASS from the program's name and class: the
// application names both after its id, so desktops match its windows to its desktop entry.
TEST(HostApplicationTest, TheProgramIsNamedAfterTheApplicationIdForItsWindows) {
    EXPECT_EXIT(
        {
            HostApplication application("com.example.announced", {});
            const bool named = std::string(g_get_prgname()) == "com.example.announced" &&
                               std::string(gdk_get_program_class()) == "com.example.announced";
            std::exit(named ? 0 : 1);
        },
        testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace vornix::platform::linux
