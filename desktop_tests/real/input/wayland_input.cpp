// A person's pointer and keys on a Wayland desktop, through the compositor's own input protocol:
// wlroots' virtual pointer (sway) or KWin's fake input (KDE Plasma). One device for the whole
// session, so that the seat keeps its pointer. Commands come one a line on standard input and
// each is answered "ok" once the compositor has seen it:
//   move X Y          the pointer to (X, Y) on the output
//   press BUTTON      BUTTON is an evdev code (272 left, 273 right, 274 middle)
//   release BUTTON
//   key CODE          an evdev key code pressed and released (fake input only)
// Usage: wayland-input WIDTH HEIGHT (the output's size, for absolute motion).

#include <linux/input-event-codes.h>
#include <wayland-client.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <iostream>
#include <sstream>
#include <string>

#include "fake-input-client.h"
#include "virtual-pointer-client.h"

namespace {

struct Globals {
    wl_seat* seat = nullptr;
    zwlr_virtual_pointer_manager_v1* pointerManager = nullptr;
    org_kde_kwin_fake_input* fakeInput = nullptr;
};

void onGlobal(void* data, wl_registry* registry, uint32_t name, const char* interface, uint32_t version) {
    auto* globals = static_cast<Globals*>(data);
    if (std::strcmp(interface, wl_seat_interface.name) == 0 && !globals->seat) {
        globals->seat = static_cast<wl_seat*>(wl_registry_bind(registry, name, &wl_seat_interface, 1));
    } else if (std::strcmp(interface, zwlr_virtual_pointer_manager_v1_interface.name) == 0) {
        globals->pointerManager = static_cast<zwlr_virtual_pointer_manager_v1*>(
            wl_registry_bind(registry, name, &zwlr_virtual_pointer_manager_v1_interface, 1));
    } else if (std::strcmp(interface, org_kde_kwin_fake_input_interface.name) == 0) {
        // Absolute motion and keys came with version 4.
        globals->fakeInput = static_cast<org_kde_kwin_fake_input*>(
            wl_registry_bind(registry, name, &org_kde_kwin_fake_input_interface, version < 4 ? version : 4));
    }
}

void onGlobalRemoved(void*, wl_registry*, uint32_t) {}

const wl_registry_listener registryListener{onGlobal, onGlobalRemoved};

uint32_t milliseconds() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<uint32_t>(now.tv_sec * 1000 + now.tv_nsec / 1000000);
}

[[noreturn]] void stop(const char* why) {
    std::fprintf(stderr, "wayland-input: %s\n", why);
    std::exit(1);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        stop("usage: wayland-input WIDTH HEIGHT");
    }
    const uint32_t width = static_cast<uint32_t>(std::atoi(argv[1]));
    const uint32_t height = static_cast<uint32_t>(std::atoi(argv[2]));
    wl_display* display = wl_display_connect(nullptr);
    if (!display) {
        stop("no Wayland display");
    }
    Globals globals;
    wl_registry* registry = wl_display_get_registry(display);
    wl_registry_add_listener(registry, &registryListener, &globals);
    wl_display_roundtrip(display);

    zwlr_virtual_pointer_v1* pointer = nullptr;
    if (globals.pointerManager) {
        pointer = zwlr_virtual_pointer_manager_v1_create_virtual_pointer(globals.pointerManager, globals.seat);
    } else if (globals.fakeInput) {
        org_kde_kwin_fake_input_authenticate(globals.fakeInput, "vornix real-desktop tests", "a person's clicks");
    } else {
        stop("the compositor offers neither a virtual pointer nor fake input");
    }
    if (wl_display_roundtrip(display) < 0) {
        stop("the compositor closed the connection");
    }
    std::cout << "ready" << std::endl;

    std::string line;
    while (std::getline(std::cin, line)) {
        std::istringstream words(line);
        std::string command;
        uint32_t first = 0;
        uint32_t second = 0;
        words >> command >> first >> second;
        if (command == "move") {
            if (pointer) {
                zwlr_virtual_pointer_v1_motion_absolute(pointer, milliseconds(), first, second, width, height);
                zwlr_virtual_pointer_v1_frame(pointer);
            } else {
                org_kde_kwin_fake_input_pointer_motion_absolute(globals.fakeInput, wl_fixed_from_int(int(first)),
                                                                wl_fixed_from_int(int(second)));
            }
        } else if (command == "press" || command == "release") {
            const uint32_t state = command == "press" ? WL_POINTER_BUTTON_STATE_PRESSED : WL_POINTER_BUTTON_STATE_RELEASED;
            if (pointer) {
                zwlr_virtual_pointer_v1_button(pointer, milliseconds(), first, state);
                zwlr_virtual_pointer_v1_frame(pointer);
            } else {
                org_kde_kwin_fake_input_button(globals.fakeInput, first, state);
            }
        } else if (command == "key" && globals.fakeInput && !pointer) {
            org_kde_kwin_fake_input_keyboard_key(globals.fakeInput, first, WL_KEYBOARD_KEY_STATE_PRESSED);
            org_kde_kwin_fake_input_keyboard_key(globals.fakeInput, first, WL_KEYBOARD_KEY_STATE_RELEASED);
        } else {
            stop("unknown command");
        }
        if (wl_display_roundtrip(display) < 0) {
            stop("the compositor closed the connection");
        }
        std::cout << "ok" << std::endl;
    }
    wl_display_disconnect(display);
    return 0;
}
