// Feeds untrusted bytes to every decoder of the engine's codecs. Each either decodes or throws
// CodecError; whatever decodes must encode and decode again to the same thing.
#include <cstdint>
#include <cstdlib>
#include <span>

#include "engine/CodecError.hpp"
#include "engine/StandardMessageCodec.hpp"
#include "engine/StandardMethodCodec.hpp"

namespace {

using namespace vornix::engine;

void check(bool holds) {
    if (!holds) {
        std::abort();
    }
}

void message(std::span<const std::uint8_t> bytes) {
    try {
        const EncodableValue value = StandardMessageCodec::decodeMessage(bytes);
        check(StandardMessageCodec::decodeMessage(StandardMessageCodec::encodeMessage(value)) == value || bytes.empty());
    } catch (const CodecError&) {
    }
}

void call(std::span<const std::uint8_t> bytes) {
    try {
        const MethodCall decoded = StandardMethodCodec::decodeMethodCall(bytes);
        check(StandardMethodCodec::decodeMethodCall(StandardMethodCodec::encodeMethodCall(decoded)) == decoded);
    } catch (const CodecError&) {
    }
}

void envelope(std::span<const std::uint8_t> bytes) {
    try {
        const MethodEnvelope decoded = StandardMethodCodec::decodeEnvelope(bytes);
        check(StandardMethodCodec::decodeEnvelope(StandardMethodCodec::encodeEnvelope(decoded)) == decoded);
    } catch (const CodecError&) {
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::span<const std::uint8_t> bytes(data, size);
    message(bytes);
    call(bytes);
    envelope(bytes);
    return 0;
}
