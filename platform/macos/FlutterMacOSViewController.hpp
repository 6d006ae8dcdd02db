#pragma once

#import <FlutterMacOS/FlutterMacOS.h>

#include <map>
#include <memory>
#include <string>

#include "engine/FlutterViewController.hpp"
#include "engine/PluginRegistrar.hpp"
#include "platform/macos/FlutterMacOSMessenger.hpp"

namespace vornix::platform::macos {

// One plug-in's registrar on macOS: the engine's FlutterPluginRegistrar, whose messenger the core's
// channels use. Plug-ins written for the engine directly take the registrar itself.
class FlutterMacOSRegistrar final : public engine::PluginRegistrar {
public:
    explicit FlutterMacOSRegistrar(id<FlutterPluginRegistrar> registrar)
        : registrar_(registrar), messenger_(registrar.messenger) {}

    engine::BinaryMessenger& messenger() override { return messenger_; }
    id<FlutterPluginRegistrar> flutterRegistrar() const { return registrar_; }

private:
    id<FlutterPluginRegistrar> registrar_;
    FlutterMacOSMessenger messenger_;
};

// The engine's view controller on macOS: FlutterMacOS's FlutterViewController, which is also the
// plug-in registry. It owns the registrars it has given, one per key.
class FlutterMacOSViewController final : public engine::FlutterViewController {
public:
    explicit FlutterMacOSViewController(::FlutterViewController* controller) : controller_(controller) {}

    engine::PluginRegistrar* registrarForPlugin(std::string_view key) override;
    ::FlutterViewController* flutterViewController() const { return controller_; }

private:
    ::FlutterViewController* controller_;
    std::map<std::string, std::unique_ptr<FlutterMacOSRegistrar>, std::less<>> registrars_;
};

}  // namespace vornix::platform::macos
