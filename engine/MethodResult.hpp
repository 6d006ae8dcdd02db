#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "engine/Bytes.hpp"
#include "engine/EncodableValue.hpp"

namespace vornix::engine {

// The one answer to a method call from the engine: a success with a value, an error, or
// "not implemented". It may be kept and answered later, on the main thread.
//
// Exactly one answer goes back: answering a second time is a defect and stops the process,
// and a result dropped without an answer replies "not implemented", so that the caller on the
// engine's side is never left waiting. It moves but does not copy.
class MethodResult {
public:
    // Sends the encoded envelope back; zero bytes mean "not implemented".
    using Reply = std::function<void(const Bytes& envelope)>;

    explicit MethodResult(Reply reply);
    MethodResult(MethodResult&& other) noexcept;
    MethodResult& operator=(MethodResult&& other) noexcept;
    MethodResult(const MethodResult&) = delete;
    MethodResult& operator=(const MethodResult&) = delete;
    ~MethodResult();

    void success(const EncodableValue& result = EncodableValue());
    void error(std::string_view code, const std::optional<std::string>& message = std::nullopt,
               const EncodableValue& details = EncodableValue());
    void notImplemented();

    bool answered() const { return answered_; }

private:
    void answer(const Bytes& envelope);

    Reply reply_;
    bool answered_ = false;
};

}  // namespace vornix::engine
