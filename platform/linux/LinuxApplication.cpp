#include "platform/linux/LinuxApplication.hpp"

namespace vornix::platform::linux {

std::size_t LinuxApplication::windowCount() const {
    return g_list_length(gtk_application_get_windows(host_.gtkApplication()));
}

}  // namespace vornix::platform::linux
