#include "engine/MethodResult.hpp"

#include <utility>

#include "base/FatalError.hpp"
#include "engine/StandardMethodCodec.hpp"

namespace vornix::engine {

MethodResult::MethodResult(Reply reply) : reply_(std::move(reply)) {}

MethodResult::MethodResult(MethodResult&& other) noexcept
    : reply_(std::move(other.reply_)), answered_(std::exchange(other.answered_, true)) {}

MethodResult& MethodResult::operator=(MethodResult&& other) noexcept {
    if (this != &other) {
        if (!answered_) {
            notImplemented();
        }
        reply_ = std::move(other.reply_);
        answered_ = std::exchange(other.answered_, true);
    }
    return *this;
}

MethodResult::~MethodResult() {
    if (!answered_) {
        notImplemented();
    }
}

void MethodResult::success(const EncodableValue& result) { answer(StandardMethodCodec::encodeSuccessEnvelope(result)); }

void MethodResult::error(std::string_view code, const std::optional<std::string>& message, const EncodableValue& details) {
    answer(StandardMethodCodec::encodeErrorEnvelope(code, message, details));
}

void MethodResult::notImplemented() { answer(Bytes()); }

void MethodResult::answer(const Bytes& envelope) {
    if (answered_) {
        base::fatalError("a method call was answered twice");
    }
    answered_ = true;
    if (reply_) {
        reply_(envelope);
    }
}

}  // namespace vornix::engine
