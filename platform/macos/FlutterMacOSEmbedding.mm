#include "platform/macos/FlutterMacOSEmbedding.hpp"

#include "platform/macos/FlutterMacOSViewController.hpp"

namespace vornix::platform::macos {

std::shared_ptr<engine::FlutterViewController> FlutterMacOSEmbedding::makeViewController() {
    return std::make_shared<FlutterMacOSViewController>([[::FlutterViewController alloc] init]);
}

}  // namespace vornix::platform::macos
