#pragma once

#include "tool/Command.hpp"

namespace vornix::tool {

// `vornix-tool plist lint FILE...`: "FILE: OK" or "FILE: <the error>" per file, non-zero when any fails.
// `vornix-tool plist json FILE`: the typed JSON form of a property list (XML or binary).
// `vornix-tool plist xml FILE`: the XML form of a property list (XML or binary).
// `vornix-tool plist from-json FILE`: the XML form of a typed JSON document.
int runPlistCommand(const Invocation& invocation);

}  // namespace vornix::tool
