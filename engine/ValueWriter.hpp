#pragma once

#include <cstdint>
#include <string_view>

#include "engine/Bytes.hpp"
#include "engine/EncodableValue.hpp"

namespace vornix::engine {

// Appends values in the standard message format to one buffer. Alignment padding is counted
// from the start of that buffer, so a call or an envelope must be written with one writer
// from its first byte.
class ValueWriter {
public:
    explicit ValueWriter(Bytes& out) : out_(out) {}

    void writeByte(std::uint8_t byte) { out_.push_back(byte); }
    void writeValue(const EncodableValue& value);

private:
    void writeSize(std::size_t size);
    void writeString(std::string_view text);
    void alignTo(std::size_t alignment);
    template <class T>
    void writeNumber(T number);
    template <class T>
    void writeTypedList(std::uint8_t type, const std::vector<T>& numbers);

    Bytes& out_;
};

}  // namespace vornix::engine
