#include "updates/UpdateSettings.hpp"

#include <optional>
#include <string>

#include "base/Diagnostics.hpp"
#include "base/RealText.hpp"

namespace vornix::updates {

UpdateSettings withEnvironmentOverrides(UpdateSettings settings, const EnvironmentLookup& lookup) {
    if (const char* url = lookup(feedUrlVariable); url != nullptr && *url != '\0') {
        settings.feedUrl = url;
    }
    if (const char* timeout = lookup(timeoutVariable); timeout != nullptr && *timeout != '\0') {
        const std::optional<double> seconds = base::readReal<double>(timeout);
        if (seconds && *seconds > 0.0 && *seconds <= 3600.0) {
            settings.timeoutSeconds = *seconds;
        } else {
            base::printLine(std::string("Ignoring ") + timeoutVariable + "=" + timeout +
                            ": not a number of seconds between 0 and 3600");
        }
    }
    return settings;
}

}  // namespace vornix::updates
