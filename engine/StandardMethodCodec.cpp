#include "engine/StandardMethodCodec.hpp"

#include "engine/CodecError.hpp"
#include "engine/ValueReader.hpp"
#include "engine/ValueWriter.hpp"

namespace vornix::engine {
namespace {

constexpr std::uint8_t successByte = 0;
constexpr std::uint8_t errorByte = 1;

std::string takeString(EncodableValue value, std::string_view what) {
    if (auto* text = value.get<std::string>()) {
        return std::move(*text);
    }
    throw CodecError(std::string(what) + " must be a string, not " + std::string(kindName(value.kind())));
}

}  // namespace

Bytes StandardMethodCodec::encodeMethodCall(const MethodCall& call) {
    Bytes bytes;
    ValueWriter writer(bytes);
    writer.writeValue(EncodableValue(call.method));
    writer.writeValue(call.arguments);
    return bytes;
}

MethodCall StandardMethodCodec::decodeMethodCall(std::span<const std::uint8_t> bytes) {
    ValueReader reader(bytes);
    std::string method = takeString(reader.readValue(), "a method call's name");
    EncodableValue arguments = reader.readValue();
    reader.expectEnd("method call");
    return MethodCall{std::move(method), std::move(arguments)};
}

Bytes StandardMethodCodec::encodeSuccessEnvelope(const EncodableValue& result) {
    Bytes bytes;
    ValueWriter writer(bytes);
    writer.writeByte(successByte);
    writer.writeValue(result);
    return bytes;
}

Bytes StandardMethodCodec::encodeErrorEnvelope(std::string_view code, const std::optional<std::string>& message,
                                               const EncodableValue& details) {
    Bytes bytes;
    ValueWriter writer(bytes);
    writer.writeByte(errorByte);
    writer.writeValue(EncodableValue(code));
    writer.writeValue(message ? EncodableValue(*message) : EncodableValue());
    writer.writeValue(details);
    return bytes;
}

Bytes StandardMethodCodec::encodeEnvelope(const MethodEnvelope& envelope) {
    if (const auto* success = std::get_if<MethodSuccess>(&envelope)) {
        return encodeSuccessEnvelope(success->result);
    }
    if (const auto* error = std::get_if<MethodError>(&envelope)) {
        return encodeErrorEnvelope(error->code, error->message, error->details);
    }
    return Bytes();
}

MethodEnvelope StandardMethodCodec::decodeEnvelope(std::span<const std::uint8_t> bytes) {
    if (bytes.empty()) {
        return MethodNotImplemented{};
    }
    ValueReader reader(bytes);
    const std::uint8_t kind = reader.readByte();
    if (kind == successByte) {
        EncodableValue result = reader.readValue();
        reader.expectEnd("success envelope");
        return MethodSuccess{std::move(result)};
    }
    if (kind != errorByte) {
        throw CodecError("an envelope must start with 0 or 1, not " + std::to_string(kind));
    }
    std::string code = takeString(reader.readValue(), "an error's code");
    EncodableValue messageValue = reader.readValue();
    std::optional<std::string> message;
    if (!messageValue.isNull()) {
        message = takeString(std::move(messageValue), "an error's message");
    }
    EncodableValue details = reader.readValue();
    reader.expectEnd("error envelope");
    return MethodError{std::move(code), std::move(message), std::move(details)};
}

}  // namespace vornix::engine
