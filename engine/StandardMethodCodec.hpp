#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "engine/Bytes.hpp"
#include "engine/EncodableValue.hpp"
#include "engine/MethodCall.hpp"
#include "engine/MethodEnvelope.hpp"

namespace vornix::engine {

// The engine's standard method codec, built on the standard message format:
// - a call is the method name as a string value followed by the arguments value;
// - a success envelope is byte 0 followed by the result value;
// - an error envelope is byte 1 followed by the code (string), the message (string or null)
//   and the details (any value);
// - "not implemented" is a reply of zero bytes.
// Alignment is counted from the first byte of the call or envelope.
class StandardMethodCodec {
public:
    static Bytes encodeMethodCall(const MethodCall& call);
    static MethodCall decodeMethodCall(std::span<const std::uint8_t> bytes);

    static Bytes encodeSuccessEnvelope(const EncodableValue& result);
    static Bytes encodeErrorEnvelope(std::string_view code, const std::optional<std::string>& message,
                                     const EncodableValue& details);
    static Bytes encodeEnvelope(const MethodEnvelope& envelope);
    static MethodEnvelope decodeEnvelope(std::span<const std::uint8_t> bytes);
};

}  // namespace vornix::engine
