#include "engine/ValueReader.hpp"

#include <bit>
#include <cstring>

#include "engine/CodecError.hpp"
#include "engine/WireType.hpp"

namespace vornix::engine {
namespace {

// Well-formed UTF-8 as RFC 3629 defines it: no overlong forms, no surrogates, nothing past
// U+10FFFF. The engine's side refuses other text, so the host does too.
bool isUtf8(std::span<const std::uint8_t> text) {
    std::size_t i = 0;
    while (i < text.size()) {
        const std::uint8_t lead = text[i];
        if (lead < 0x80) {
            ++i;
            continue;
        }
        std::size_t length;
        std::uint8_t low = 0x80;
        std::uint8_t high = 0xBF;
        if (lead >= 0xC2 && lead <= 0xDF) {
            length = 2;
        } else if (lead >= 0xE0 && lead <= 0xEF) {
            length = 3;
            if (lead == 0xE0) low = 0xA0;
            if (lead == 0xED) high = 0x9F;
        } else if (lead >= 0xF0 && lead <= 0xF4) {
            length = 4;
            if (lead == 0xF0) low = 0x90;
            if (lead == 0xF4) high = 0x8F;
        } else {
            return false;
        }
        if (text.size() - i < length || text[i + 1] < low || text[i + 1] > high) {
            return false;
        }
        for (std::size_t k = 2; k < length; ++k) {
            if (text[i + k] < 0x80 || text[i + k] > 0xBF) {
                return false;
            }
        }
        i += length;
    }
    return true;
}

}  // namespace

void ValueReader::fail(const std::string& problem) const {
    throw CodecError(problem + " at byte " + std::to_string(position_) + " of " + std::to_string(bytes_.size()));
}

void ValueReader::require(std::size_t count) const {
    if (bytes_.size() - position_ < count) {
        fail("truncated data: " + std::to_string(count) + " more bytes needed, " +
             std::to_string(bytes_.size() - position_) + " left");
    }
}

void ValueReader::expectEnd(std::string_view what) const {
    if (!atEnd()) {
        fail(std::to_string(bytes_.size() - position_) + " trailing bytes after the " + std::string(what));
    }
}

std::uint8_t ValueReader::readByte() {
    require(1);
    return bytes_[position_++];
}

template <class T>
T ValueReader::readNumber() {
    using Bits = std::conditional_t<sizeof(T) == 8, std::uint64_t, std::conditional_t<sizeof(T) == 4, std::uint32_t, std::uint16_t>>;
    require(sizeof(T));
    Bits bits = 0;
    for (std::size_t i = 0; i < sizeof(T); ++i) {
        bits |= static_cast<Bits>(static_cast<Bits>(bytes_[position_ + i]) << (8 * i));
    }
    position_ += sizeof(T);
    return std::bit_cast<T>(bits);
}

// Padding is skipped without looking at it, as the engine's side does; writers send zeros.
void ValueReader::alignTo(std::size_t alignment) {
    const std::size_t misalignment = position_ % alignment;
    if (misalignment != 0) {
        require(alignment - misalignment);
        position_ += alignment - misalignment;
    }
}

std::size_t ValueReader::readSize() {
    const std::uint8_t first = readByte();
    if (first < wire::size16) {
        return first;
    }
    if (first == wire::size16) {
        return readNumber<std::uint16_t>();
    }
    return readNumber<std::uint32_t>();
}

std::string ValueReader::readString() {
    const std::size_t size = readSize();
    require(size);
    const auto text = bytes_.subspan(position_, size);
    if (!isUtf8(text)) {
        fail("a string that is not UTF-8");
    }
    position_ += size;
    return std::string(text.begin(), text.end());
}

template <class T>
std::vector<T> ValueReader::readTypedList() {
    const std::size_t count = readSize();
    alignTo(sizeof(T));
    // count < 2^32, so the product cannot overflow a 64-bit size.
    require(count * sizeof(T));
    std::vector<T> numbers(count);
    if constexpr (std::endian::native == std::endian::little) {
        if (count != 0) {
            std::memcpy(numbers.data(), bytes_.data() + position_, count * sizeof(T));
        }
        position_ += count * sizeof(T);
    } else {
        for (T& number : numbers) {
            number = readNumber<T>();
        }
    }
    return numbers;
}

EncodableValue ValueReader::readValueAt(int depth) {
    const std::size_t start = position_;
    const std::uint8_t type = readByte();
    switch (type) {
        case wire::null:
            return EncodableValue();
        case wire::trueValue:
            return EncodableValue(true);
        case wire::falseValue:
            return EncodableValue(false);
        case wire::int32:
            return EncodableValue(readNumber<std::int32_t>());
        case wire::int64:
            return EncodableValue(readNumber<std::int64_t>());
        case wire::float64:
            alignTo(8);
            return EncodableValue(readNumber<double>());
        case wire::string:
            return EncodableValue(readString());
        case wire::uint8List: {
            const std::size_t count = readSize();
            require(count);
            const auto bytes = bytes_.subspan(position_, count);
            position_ += count;
            return EncodableValue(std::vector<std::uint8_t>(bytes.begin(), bytes.end()));
        }
        case wire::int32List:
            return EncodableValue(readTypedList<std::int32_t>());
        case wire::int64List:
            return EncodableValue(readTypedList<std::int64_t>());
        case wire::float32List:
            return EncodableValue(readTypedList<float>());
        case wire::float64List:
            return EncodableValue(readTypedList<double>());
        case wire::list:
        case wire::map: {
            if (depth >= maxNesting) {
                position_ = start;
                fail("lists and maps nested deeper than " + std::to_string(maxNesting));
            }
            const std::size_t count = readSize();
            // Every value takes at least its type byte: a count beyond what is left is a lie. A
            // count that passes still only grows the container as its values are read: reserving
            // it up front would let nested containers each claim every byte left, hundreds of
            // megabytes from a message of a few kilobytes.
            const std::size_t perItem = type == wire::list ? 1 : 2;
            if (count > (bytes_.size() - position_) / perItem) {
                fail("a count of " + std::to_string(count) + " past the end of the data");
            }
            if (type == wire::list) {
                EncodableList items;
                for (std::size_t i = 0; i < count; ++i) {
                    items.push_back(readValueAt(depth + 1));
                }
                return EncodableValue(std::move(items));
            }
            std::vector<EncodableMap::Entry> entries;
            for (std::size_t i = 0; i < count; ++i) {
                EncodableValue key = readValueAt(depth + 1);
                EncodableValue item = readValueAt(depth + 1);
                entries.emplace_back(std::move(key), std::move(item));
            }
            return EncodableValue(EncodableMap::fromEntries(std::move(entries)));
        }
        default:
            position_ = start;
            fail("unknown type byte " + std::to_string(type));
    }
}

}  // namespace vornix::engine
