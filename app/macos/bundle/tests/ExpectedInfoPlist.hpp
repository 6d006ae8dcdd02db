#pragma once

#include "app/macos/bundle/InfoPlist.hpp"
#include "plist/Value.hpp"

namespace vornix::macos_bundle::tests {

// Checks, key by key, that `info` is exactly the application's Info.plist for `facts`: the
// fifteen keys and no other, each with its value and its type.
void expectInfoPlistFor(const plist::Dictionary& info, const BundleFacts& facts);

}  // namespace vornix::macos_bundle::tests
