#include "host/UIInteractions.hpp"

#include <string>

#include "base/Diagnostics.hpp"
#include "base/FatalError.hpp"

namespace vornix::host {

namespace {

using engine::EncodableMap;
using engine::EncodableValue;

// The call's arguments as a map from strings to values, or null when they are not one.
const EncodableMap* stringKeyedMap(const EncodableValue& arguments) {
    const auto* map = arguments.get<EncodableMap>();
    if (map == nullptr) {
        return nullptr;
    }
    for (const auto& [key, value] : *map) {
        if (key.get<std::string>() == nullptr) {
            return nullptr;
        }
    }
    return map;
}

// The argument `key` as a T. The engine's side always sends all four arguments with their types:
// anything else is a defect between the two sides, and the host stops rather than guess.
template <class T>
T required(const EncodableValue& arguments, const char* key, const char* typeName) {
    if (const EncodableMap* map = stringKeyedMap(arguments)) {
        if (const EncodableValue* value = map->find(EncodableValue(key))) {
            if (const T* typed = value->get<T>()) {
                return *typed;
            }
        }
    }
    base::fatalError(std::string("\"auth_state\" needs the argument \"") + key + "\" as a " + typeName);
}

}  // namespace

UIInteractions::UIInteractions() : view_(ContentView::sharedInstance()) {}

const std::shared_ptr<UIInteractions>& UIInteractions::shared() {
    static const std::shared_ptr<UIInteractions> instance(new UIInteractions());
    return instance;
}

std::optional<engine::MethodChannel>& UIInteractions::channel() {
    static std::optional<engine::MethodChannel> channel;
    return channel;
}

void UIInteractions::registerWith(engine::PluginRegistrar* registrar) {
    channel() = engine::methodChannelOn(registrar, std::string(channelName));
    if (!channel()) {
        base::printLine("macOS UI Interactions channel unable to register");
        return;
    }
    registrar->addMethodCallDelegate(shared(), *channel());
}

void UIInteractions::handle(const engine::MethodCall& call, engine::MethodResult result) {
    if (call.method != "auth_state") {
        result.notImplemented();
        return;
    }
    auto email = required<std::string>(call.arguments, "email", "string");
    auto signedIn = required<bool>(call.arguments, "signedIn", "boolean");
    auto appVersion = required<std::string>(call.arguments, "appVersion", "string");
    auto port = required<std::string>(call.arguments, "port", "string");
    view_.updateAuth(signedIn, std::move(email), std::move(appVersion), std::move(port));
    result.success(EncodableValue(true));
}

}  // namespace vornix::host
