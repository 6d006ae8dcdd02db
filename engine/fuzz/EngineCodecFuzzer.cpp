// Feeds untrusted bytes to every decoder of the engine's codecs. Each either decodes or throws
// CodecError. Whatever decodes must encode to bytes that decode and encode to the same bytes
// again (the first encoding may differ from the input: padding is written as zeros, sizes in
// their shortest form, and an int64 that fits as an int32).
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
        const Bytes once = StandardMessageCodec::encodeMessage(StandardMessageCodec::decodeMessage(bytes));
        check(StandardMessageCodec::encodeMessage(StandardMessageCodec::decodeMessage(once)) == once);
    } catch (const CodecError&) {
    }
}

void call(std::span<const std::uint8_t> bytes) {
    try {
        const Bytes once = StandardMethodCodec::encodeMethodCall(StandardMethodCodec::decodeMethodCall(bytes));
        check(StandardMethodCodec::encodeMethodCall(StandardMethodCodec::decodeMethodCall(once)) == once);
    } catch (const CodecError&) {
    }
}

void envelope(std::span<const std::uint8_t> bytes) {
    try {
        const Bytes once = StandardMethodCodec::encodeEnvelope(StandardMethodCodec::decodeEnvelope(bytes));
        check(StandardMethodCodec::encodeEnvelope(StandardMethodCodec::decodeEnvelope(once)) == once);
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
