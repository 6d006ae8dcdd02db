#include "host/tests/StandInPlugins.hpp"

#include "bitsdojo_window_macos/macos/Classes/BitsdojoWindowPlugin.hpp"

namespace vornix::host::testing {

static_assert(engine::PluginClass<StandInPlugin<1>>);

std::vector<StandInRegistration>& standInRegistrations() {
    static std::vector<StandInRegistration> registrations;
    return registrations;
}

LinkedPlugins everyPluginAsStandIn() {
    LinkedPlugins plugins = fullBuild();
    plugins.bitsdojoWindowPlugin = &StandInPlugin<1>::registerWith;
    return plugins;
}

LinkedPlugins fullBuild() {
    return {
        .bitsdojoWindowPlugin = &bitsdojo_window::BitsdojoWindowPlugin::registerWith,
        .deviceInfoPlusMacosPlugin = &StandInPlugin<2>::registerWith,
        .flutterLocalNotificationsPlugin = &StandInPlugin<3>::registerWith,
        .menubarPlugin = &StandInPlugin<4>::registerWith,
        .fltPackageInfoPlusPlugin = &StandInPlugin<5>::registerWith,
        .pathProviderPlugin = &StandInPlugin<6>::registerWith,
        .sentryFlutterPlugin = &StandInPlugin<7>::registerWith,
        .sharedPreferencesPlugin = &StandInPlugin<8>::registerWith,
        .systemTrayPlugin = &StandInPlugin<9>::registerWith,
        .urlLauncherPlugin = &StandInPlugin<10>::registerWith,
    };
}

}  // namespace vornix::host::testing
