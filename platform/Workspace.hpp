#pragma once

#include <optional>
#include <string_view>

#include "platform/Port.hpp"
#include "url/URL.hpp"

namespace vornix::platform {

// The user's desktop environment (NSWorkspace / GIO): who opens what.
class Workspace : public Port<Workspace> {
public:
    static constexpr std::string_view portName = "workspace";

    virtual ~Workspace() = default;

    // Opens `url` with the user's default handler for it (an application's location starts that
    // application). False when nothing could open it.
    virtual bool open(const url::URL& url) = 0;
    // The location of the application that would open `url`, or none when no application does.
    virtual std::optional<url::URL> urlForApplication(const url::URL& toOpen) = 0;
};

}  // namespace vornix::platform
