#include "host/GeneratedPluginRegistrant.hpp"
#include "host/tests/StandInPlugins.hpp"

namespace vornix::host {

// The tests of this executable run as a build that links all ten plug-ins.
const LinkedPlugins& linkedPlugins() {
    static const LinkedPlugins plugins = testing::fullBuild();
    return plugins;
}

}  // namespace vornix::host
