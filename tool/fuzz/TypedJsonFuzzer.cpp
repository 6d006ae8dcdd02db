// Any bytes, read as vornix-tool reads a typed JSON value for the codec commands: text that is
// not JSON fails with a NotJsonError, JSON that is not the typed form with a TypedJsonError
// (nothing else escapes), and a value that was read writes to typed JSON that reads back and
// writes again to the same text.
//
// Not reached by design in tool/TypedJson.cpp: the `return nullptr` after the switch over every
// kind of value, which no value reaches.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

#include "engine/EncodableValue.hpp"
#include "tool/TypedJson.hpp"

using nlohmann::json;
using vornix::tool::fromTypedJson;
using vornix::tool::NotJsonError;
using vornix::tool::parseJson;
using vornix::tool::toTypedJson;
using vornix::tool::TypedJsonError;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    json parsed;
    try {
        parsed = parseJson(std::string_view(reinterpret_cast<const char*>(data), size));
    } catch (const NotJsonError&) {
        return 0;
    }
    vornix::engine::EncodableValue value;
    try {
        value = fromTypedJson(parsed);
    } catch (const TypedJsonError&) {
        return 0;
    }
    const std::string once = toTypedJson(value).dump();
    if (toTypedJson(fromTypedJson(json::parse(once))).dump() != once) {
        std::abort();
    }
    return 0;
}
