#include "platform/linux/WaylandGlobals.hpp"

#include <cstring>

#include <gdk/gdkwayland.h>

namespace vornix::platform::linux {

namespace {

struct Search {
    const char* interface;
    bool found = false;
};

void onGlobal(void* data, wl_registry*, uint32_t, const char* interface, uint32_t) {
    auto& search = *static_cast<Search*>(data);
    search.found = search.found || std::strcmp(interface, search.interface) == 0;
}

void onGlobalRemoved(void*, wl_registry*, uint32_t) {}

}  // namespace

bool compositorOffers(GdkDisplay* display, const char* interface) {
    if (!GDK_IS_WAYLAND_DISPLAY(display)) {
        return false;
    }
    wl_display* connection = gdk_wayland_display_get_wl_display(display);
    wl_event_queue* queue = wl_display_create_queue(connection);
    wl_registry* registry = wl_display_get_registry(connection);
    wl_proxy_set_queue(reinterpret_cast<wl_proxy*>(registry), queue);
    static const wl_registry_listener listener{onGlobal, onGlobalRemoved};
    Search search{interface};
    wl_registry_add_listener(registry, &listener, &search);
    wl_display_roundtrip_queue(connection, queue);
    wl_registry_destroy(registry);
    wl_event_queue_destroy(queue);
    return search.found;
}

}  // namespace vornix::platform::linux
