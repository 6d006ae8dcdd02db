#pragma once

namespace vornix::launch_agent {

// The job's "inetdCompatibility" options. The lower-case first letter follows launchd's own key.
class inetdCompatibility {
public:
    explicit inetdCompatibility(bool wait);

    bool wait;
};

}  // namespace vornix::launch_agent
