#include "platform/linux/GioWorkspace.hpp"

#include <string>

#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>

namespace vornix::platform::linux {

namespace {

// The desktop entry a file URL names, when it names one.
GDesktopAppInfo* desktopEntryAt(const url::URL& url) {
    if (url.scheme() != "file" || !url.path().ends_with(".desktop")) {
        return nullptr;
    }
    gchar* path = g_filename_from_uri(url.absoluteString().c_str(), nullptr, nullptr);
    GDesktopAppInfo* entry = path ? g_desktop_app_info_new_from_filename(path) : nullptr;
    g_free(path);
    return entry;
}

}  // namespace

bool GioWorkspace::open(const url::URL& url) {
    if (GDesktopAppInfo* application = desktopEntryAt(url)) {
        const bool started = g_app_info_launch(G_APP_INFO(application), nullptr, nullptr, nullptr);
        g_object_unref(application);
        return started;
    }
    return g_app_info_launch_default_for_uri(url.absoluteString().c_str(), nullptr, nullptr);
}

std::optional<url::URL> GioWorkspace::urlForApplication(const url::URL& toOpen) {
    const auto scheme = toOpen.scheme();
    if (!scheme) {
        return std::nullopt;
    }
    GAppInfo* application = g_app_info_get_default_for_uri_scheme(std::string(*scheme).c_str());
    if (!application) {
        return std::nullopt;
    }
    std::optional<url::URL> location;
    if (G_IS_DESKTOP_APP_INFO(application)) {
        if (const char* file = g_desktop_app_info_get_filename(G_DESKTOP_APP_INFO(application))) {
            gchar* uri = g_filename_to_uri(file, nullptr, nullptr);
            if (uri) {
                location = url::URL::parse(uri);
                g_free(uri);
            }
        }
    }
    g_object_unref(application);
    return location;
}

}  // namespace vornix::platform::linux
