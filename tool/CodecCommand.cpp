#include "tool/CodecCommand.hpp"

#include <istream>
#include <iterator>
#include <ostream>
#include <stdexcept>

#include "engine/CodecError.hpp"
#include "engine/StandardMessageCodec.hpp"
#include "engine/StandardMethodCodec.hpp"
#include "tool/Hex.hpp"
#include "tool/TypedJson.hpp"

namespace vornix::tool {
namespace {

using nlohmann::json;

class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

class InputError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

engine::Bytes hexArgument(std::span<const std::string> args, std::string_view usage) {
    if (args.size() != 1) {
        throw UsageError("usage: vornix-tool " + std::string(usage));
    }
    try {
        return fromHex(args[0]);
    } catch (const std::invalid_argument& error) {
        throw InputError(std::string("HEX: ") + error.what());
    }
}

engine::EncodableValue parseTypedJson(const std::string& text, const std::string& source) {
    json parsed;
    try {
        parsed = parseJson(text);
    } catch (const NotJsonError& error) {
        throw InputError(source + " is not JSON: " + error.what());
    }
    try {
        return fromTypedJson(parsed);
    } catch (const TypedJsonError& error) {
        throw InputError(source + ": " + error.what());
    }
}

json envelopeJson(const engine::MethodEnvelope& envelope) {
    if (const auto* success = std::get_if<engine::MethodSuccess>(&envelope)) {
        return {{"success", toTypedJson(success->result)}};
    }
    if (const auto* error = std::get_if<engine::MethodError>(&envelope)) {
        return {{"error",
                 {{"code", error->code},
                  {"message", error->message ? json(*error->message) : json(nullptr)},
                  {"details", toTypedJson(error->details)}}}};
    }
    return {{"notImplemented", nullptr}};
}

int run(const std::string& action, std::span<const std::string> args, const Invocation& invocation) {
    if (action == "encode") {
        if (!args.empty()) {
            throw UsageError("usage: vornix-tool codec encode < VALUE.json");
        }
        const std::string input(std::istreambuf_iterator<char>(invocation.in), {});
        invocation.out << toHex(engine::StandardMessageCodec::encodeMessage(parseTypedJson(input, "standard input"))) << '\n';
        return 0;
    }
    if (action == "decode") {
        const engine::Bytes bytes = hexArgument(args, "codec decode HEX");
        invocation.out << toTypedJson(engine::StandardMessageCodec::decodeMessage(bytes)).dump() << '\n';
        return 0;
    }
    if (action == "call") {
        if (args.empty() || args.size() > 2) {
            throw UsageError("usage: vornix-tool codec call NAME [ARGS-JSON]");
        }
        engine::MethodCall call{args[0], engine::EncodableValue()};
        if (args.size() == 2) {
            call.arguments = parseTypedJson(args[1], "ARGS-JSON");
        }
        invocation.out << toHex(engine::StandardMethodCodec::encodeMethodCall(call)) << '\n';
        return 0;
    }
    if (action == "decode-call") {
        const engine::Bytes bytes = hexArgument(args, "codec decode-call HEX");
        const engine::MethodCall call = engine::StandardMethodCodec::decodeMethodCall(bytes);
        invocation.out << json{{"name", call.method}, {"args", toTypedJson(call.arguments)}}.dump() << '\n';
        return 0;
    }
    if (action == "decode-envelope") {
        const engine::Bytes bytes = hexArgument(args, "codec decode-envelope HEX");
        invocation.out << envelopeJson(engine::StandardMethodCodec::decodeEnvelope(bytes)).dump() << '\n';
        return 0;
    }
    throw UsageError("unknown codec action '" + action + "'; usage: vornix-tool " + std::string(codecCommand.usage));
}

}  // namespace

int runCodecCommand(const Invocation& invocation) {
    try {
        if (invocation.args.empty()) {
            throw UsageError("usage: vornix-tool " + std::string(codecCommand.usage));
        }
        return run(invocation.args[0], invocation.args.subspan(1), invocation);
    } catch (const UsageError& error) {
        invocation.err << "vornix-tool codec: " << error.what() << '\n';
        return 2;
    } catch (const InputError& error) {
        invocation.err << "vornix-tool codec: " << error.what() << '\n';
        return 1;
    } catch (const engine::CodecError& error) {
        invocation.err << "vornix-tool codec: not in the standard codec: " << error.what() << '\n';
        return 1;
    }
}

}  // namespace vornix::tool
