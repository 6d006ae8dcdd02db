#pragma once

namespace vornix::launch_agent {

// The options of one entry of a job's "MachServices" dictionary; the entry's name is its key there.
class MachService {
public:
    MachService(bool hideUntilCheckIn, bool resetAtClose);

    bool hideUntilCheckIn;
    bool resetAtClose;
};

}  // namespace vornix::launch_agent
