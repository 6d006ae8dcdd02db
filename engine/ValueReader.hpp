#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "engine/EncodableValue.hpp"

namespace vornix::engine {

// Reads values in the standard message format from untrusted bytes. Every read is checked
// against the end, sizes are checked against what is left before anything is allocated, and
// nesting is bounded, so any input either decodes or throws CodecError.
class ValueReader {
public:
    // Lists and maps nested deeper than this are refused rather than followed.
    static constexpr int maxNesting = 512;

    explicit ValueReader(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

    std::uint8_t readByte();
    EncodableValue readValue() { return readValueAt(0); }

    bool atEnd() const { return position_ == bytes_.size(); }
    std::size_t position() const { return position_; }
    // Throws unless every byte has been read.
    void expectEnd(std::string_view what) const;

private:
    EncodableValue readValueAt(int depth);
    std::size_t readSize();
    std::string readString();
    void alignTo(std::size_t alignment);
    void require(std::size_t count) const;
    template <class T>
    T readNumber();
    template <class T>
    std::vector<T> readTypedList();
    [[noreturn]] void fail(const std::string& problem) const;

    std::span<const std::uint8_t> bytes_;
    std::size_t position_ = 0;
};

}  // namespace vornix::engine
