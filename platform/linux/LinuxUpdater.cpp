#include "platform/linux/LinuxUpdater.hpp"

#include <sys/utsname.h>

#include <cstdlib>

#include "base/Version.hpp"
#include "updates/UpdateMessages.hpp"
#include "updates/UpdateSettings.hpp"

namespace vornix::platform::linux {

namespace {

updates::UpdateSettings settingsFor(const host::WebEndpoints& endpoints) {
    return updates::withEnvironmentOverrides(updates::UpdateSettings{endpoints.updateFeed},
                                             [](const char* name) { return std::getenv(name); });
}

}  // namespace

updates::Version linuxSystemVersion() {
    utsname system{};
    ::uname(&system);
    return updates::Version::parse(system.release).value_or(*updates::Version::parse("0"));
}

LinuxUpdater::LinuxUpdater(const host::WebEndpoints& endpoints, GDBusConnection* sessionBus,
                           std::unique_ptr<HttpFetcher> fetcher)
    : fetcher_(std::move(fetcher)),
      notifications_(sessionBus, std::string(updates::productName)),
      updater_(settingsFor(endpoints), *updates::Version::parse(base::hostVersion()), linuxSystemVersion()) {}

}  // namespace vornix::platform::linux
