#include "host/MainFlutterWindow.hpp"

#include "host/CustomURLSchemes.hpp"
#include "host/GeneratedPluginRegistrant.hpp"
#include "host/MenuBarSupport.hpp"
#include "host/UIInteractions.hpp"

namespace vornix::host {

void registerPluginsAndChannels(engine::FlutterViewController& flutterViewController) {
    RegisterGeneratedPlugins(flutterViewController);
    CustomURLSchemeHandler::registerWith(flutterViewController.registrarForPlugin("CustomURLSchemeHandler"));
    if (systemSupportsMenuBar()) {
        UIInteractions::registerWith(flutterViewController.registrarForPlugin("UIInteractions"));
    }
}

}  // namespace vornix::host
