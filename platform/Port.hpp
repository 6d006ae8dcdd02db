#pragma once

#include <string>

#include "base/FatalError.hpp"

namespace vornix::platform {

// A port is one process-wide platform service (the main queue, the updater, the status bar,
// ...). The backend installs its implementation at start-up and tests install doubles; the
// core only asks for `current()`. Each port type derives from Port<Itself> and names itself
// with a `portName` so that a missing service stops the process with a readable cause.
template <class Service>
class Port {
public:
    static void install(Service* service) noexcept { slot() = service; }

    // The installed service, or null when none is (some services, like the updater, may be missing).
    static Service* installed() noexcept { return slot(); }

    static Service& current() {
        if (Service* service = slot()) {
            return *service;
        }
        base::fatalError(std::string(Service::portName) + " is not available");
    }

protected:
    Port() = default;
    ~Port() = default;

private:
    static Service*& slot() noexcept {
        static Service* service = nullptr;
        return service;
    }
};

// Installs a service for the lifetime of a scope and puts back what was there before.
template <class Service>
class ScopedPort {
public:
    explicit ScopedPort(Service* service) : previous_(Service::installed()) { Service::install(service); }
    ~ScopedPort() { Service::install(previous_); }
    ScopedPort(const ScopedPort&) = delete;
    ScopedPort& operator=(const ScopedPort&) = delete;

private:
    Service* previous_;
};

}  // namespace vornix::platform
