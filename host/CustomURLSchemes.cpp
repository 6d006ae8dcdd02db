#include "host/CustomURLSchemes.hpp"

#include <string>
#include <vector>

#include "base/Diagnostics.hpp"
#include "base/FatalError.hpp"
#include "host/SplitFields.hpp"
#include "platform/Alerts.hpp"
#include "platform/Updater.hpp"
#include "url/URL.hpp"

namespace vornix::host {
namespace {

// The "scheme" the engine may name in its arguments, when they are a map with string keys.
std::optional<std::string> schemeArgument(const engine::EncodableValue& arguments) {
    const auto* map = arguments.get<engine::EncodableMap>();
    if (map == nullptr) {
        return std::nullopt;
    }
    for (const auto& [key, value] : *map) {
        if (key.get<std::string>() == nullptr) {
            return std::nullopt;
        }
    }
    const engine::EncodableValue* scheme = map->find("scheme");
    if (scheme == nullptr || scheme->get<std::string>() == nullptr) {
        return std::nullopt;
    }
    return *scheme->get<std::string>();
}

}  // namespace

const std::shared_ptr<CustomURLSchemeHandler>& CustomURLSchemeHandler::shared() {
    // Allocated once and never freed, so that it outlives every static that may still use it.
    static const auto* instance = new std::shared_ptr<CustomURLSchemeHandler>(new CustomURLSchemeHandler());
    return *instance;
}

std::optional<engine::MethodChannel>& CustomURLSchemeHandler::channel() {
    static auto* slot = new std::optional<engine::MethodChannel>();
    return *slot;
}

void CustomURLSchemeHandler::registerWith(engine::PluginRegistrar* registrar) {
    channel() = engine::methodChannelOn(registrar, std::string(channelName));
    if (!channel()) {
        base::printLine("Channel FUCKED");
        return;
    }
    registrar->addMethodCallDelegate(shared(), *channel());
    base::printLine("PLUGIN REGISTERED");
}

void CustomURLSchemeHandler::handle(const engine::MethodCall& call, engine::MethodResult result) {
    // The engine may say which scheme it opens with; the host has no use for it yet.
    [[maybe_unused]] const std::optional<std::string> scheme = schemeArgument(call.arguments);
    base::printLine("before open call");
    base::printLine(call.method);
    if (call.method == "open") {
        result.success(true);
    } else {
        result.notImplemented();
    }
}

void CustomURLSchemeHandler::handleAppleEvent(const platform::AppleEvent& event, platform::AppleEvent&) {
    const std::optional<platform::AppleEventDescriptor> directObject =
        event.paramDescriptorForKeyword(platform::directObjectKeyword);
    if (!directObject || !directObject->stringValue) {
        return;
    }
    const std::string& text = *directObject->stringValue;
    const std::optional<url::URL> url = url::URL::parse(text);
    if (!url) {
        base::fatalError("the URL event's text is not a URL: " + text);
    }
    const std::optional<std::string_view> query = url->query();
    if (!query) {
        base::fatalError("the URL has no query: " + text);
    }
    const std::vector<std::string_view> parts = splitFields(*query, '&');

    if (*query == "update") {
        platform::Updater::current().checkForUpdatesInBackground();
        return;
    }
    if (*query == "launch") {
        return;
    }

    engine::EncodableMap parameters;
    for (std::size_t i = 0;; ++i) {
        if (i == parts.size()) {
            base::fatalError("the URL's query has fewer than three parts: " + std::string(*query));
        }
        const std::vector<std::string_view> fields = splitFields(parts[i], '=');
        if (fields.size() < 2) {
            base::fatalError("a part of the URL's query has no \"=\": " + std::string(parts[i]));
        }
        parameters.set(fields[0], fields[1]);
        if (i == 2) {
            break;
        }
    }

    platform::Alert alert;
    if (parameters.size() == 3 && parameters.find("user") && parameters.find("asset") && parameters.find("share")) {
        if (!channel()) {
            base::fatalError("the custom URL scheme channel is not registered");
        }
        channel()->invokeMethod("urlParams", parameters);
        alert.messageText = "Open Vornix: Optional(" + url->absoluteString() + ")";
    } else {
        alert.messageText = "Invalid URL";
    }
    platform::Alerts::current().runModal(alert);
}

}  // namespace vornix::host
