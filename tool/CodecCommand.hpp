#pragma once

#include "tool/Command.hpp"

namespace vornix::tool {

// `vornix-tool codec ...`: the engine's standard codecs by hand, between typed JSON and hex.
//   codec encode                     typed JSON value on standard input -> hex of the message
//   codec decode HEX                 hex of a message -> typed JSON value
//   codec call NAME [ARGS-JSON]      hex of the method call (arguments null when left out)
//   codec decode-call HEX            {"name": "...", "args": <typed JSON>}
//   codec decode-envelope HEX        {"success": <typed JSON>}
//                                    {"error": {"code": "...", "message": "..." or null, "details": <typed JSON>}}
//                                    {"notImplemented": null}          (for zero bytes)
// Hex is written in lower case without spaces; read in either case, spaces allowed.
// Exit status 0 on success, 1 on bad input, 2 on bad usage.
int runCodecCommand(const Invocation& invocation);

inline constexpr Command codecCommand{
    "codec",
    "codec encode | decode HEX | call NAME [ARGS-JSON] | decode-call HEX | decode-envelope HEX",
    runCodecCommand,
};

}  // namespace vornix::tool
