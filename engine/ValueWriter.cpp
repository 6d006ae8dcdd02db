#include "engine/ValueWriter.hpp"

#include <bit>
#include <cstring>
#include <limits>
#include <string>

#include "engine/CodecError.hpp"
#include "engine/WireType.hpp"

namespace vornix::engine {

template <class T>
void ValueWriter::writeNumber(T number) {
    using Bits = std::conditional_t<sizeof(T) == 8, std::uint64_t, std::conditional_t<sizeof(T) == 4, std::uint32_t, std::uint16_t>>;
    const Bits bits = std::bit_cast<Bits>(number);
    for (std::size_t i = 0; i < sizeof(T); ++i) {
        out_.push_back(static_cast<std::uint8_t>(bits >> (8 * i)));
    }
}

void ValueWriter::alignTo(std::size_t alignment) {
    const std::size_t misalignment = out_.size() % alignment;
    if (misalignment != 0) {
        out_.insert(out_.end(), alignment - misalignment, 0);
    }
}

void ValueWriter::writeSize(std::size_t size) {
    if (size < wire::size16) {
        writeByte(static_cast<std::uint8_t>(size));
    } else if (size <= 0xFFFF) {
        writeByte(wire::size16);
        writeNumber(static_cast<std::uint16_t>(size));
    } else if (size <= std::numeric_limits<std::uint32_t>::max()) {
        writeByte(wire::size32);
        writeNumber(static_cast<std::uint32_t>(size));
    } else {
        throw CodecError("a size of " + std::to_string(size) + " does not fit the format's 32-bit sizes");
    }
}

void ValueWriter::writeString(std::string_view text) {
    writeSize(text.size());
    out_.insert(out_.end(), text.begin(), text.end());
}

template <class T>
void ValueWriter::writeTypedList(std::uint8_t type, const std::vector<T>& numbers) {
    writeByte(type);
    writeSize(numbers.size());
    alignTo(sizeof(T));
    if constexpr (std::endian::native == std::endian::little) {
        const std::size_t start = out_.size();
        out_.resize(start + numbers.size() * sizeof(T));
        if (!numbers.empty()) {
            std::memcpy(out_.data() + start, numbers.data(), numbers.size() * sizeof(T));
        }
    } else {
        for (T number : numbers) {
            writeNumber(number);
        }
    }
}

void ValueWriter::writeValue(const EncodableValue& value) {
    switch (value.kind()) {
        case EncodableValue::Kind::null:
            writeByte(wire::null);
            return;
        case EncodableValue::Kind::boolean:
            writeByte(*value.get<bool>() ? wire::trueValue : wire::falseValue);
            return;
        case EncodableValue::Kind::int32:
            writeByte(wire::int32);
            writeNumber(*value.get<std::int32_t>());
            return;
        case EncodableValue::Kind::int64: {
            // The engine's side sends every integer that fits in 32 bits as an int32; so do we.
            const std::int64_t number = *value.get<std::int64_t>();
            if (number >= std::numeric_limits<std::int32_t>::min() && number <= std::numeric_limits<std::int32_t>::max()) {
                writeByte(wire::int32);
                writeNumber(static_cast<std::int32_t>(number));
            } else {
                writeByte(wire::int64);
                writeNumber(number);
            }
            return;
        }
        case EncodableValue::Kind::float64:
            writeByte(wire::float64);
            alignTo(8);
            writeNumber(*value.get<double>());
            return;
        case EncodableValue::Kind::string:
            writeByte(wire::string);
            writeString(*value.get<std::string>());
            return;
        case EncodableValue::Kind::uint8List: {
            const auto& bytes = *value.get<std::vector<std::uint8_t>>();
            writeByte(wire::uint8List);
            writeSize(bytes.size());
            out_.insert(out_.end(), bytes.begin(), bytes.end());
            return;
        }
        case EncodableValue::Kind::int32List:
            writeTypedList(wire::int32List, *value.get<std::vector<std::int32_t>>());
            return;
        case EncodableValue::Kind::int64List:
            writeTypedList(wire::int64List, *value.get<std::vector<std::int64_t>>());
            return;
        case EncodableValue::Kind::float32List:
            writeTypedList(wire::float32List, *value.get<std::vector<float>>());
            return;
        case EncodableValue::Kind::float64List:
            writeTypedList(wire::float64List, *value.get<std::vector<double>>());
            return;
        case EncodableValue::Kind::list: {
            const auto& items = *value.get<EncodableList>();
            writeByte(wire::list);
            writeSize(items.size());
            for (const EncodableValue& item : items) {
                writeValue(item);
            }
            return;
        }
        case EncodableValue::Kind::map: {
            const auto& entries = *value.get<EncodableMap>();
            writeByte(wire::map);
            writeSize(entries.size());
            for (const auto& [key, item] : entries) {
                writeValue(key);
                writeValue(item);
            }
            return;
        }
    }
}

}  // namespace vornix::engine
