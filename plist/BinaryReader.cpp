#include "plist/BinaryReader.hpp"

#include <bit>
#include <limits>
#include <vector>

#include "plist/DecodingError.hpp"

namespace vornix::plist {
namespace {

constexpr std::string_view magic = "bplist00";
constexpr std::size_t headerSize = 8;
constexpr std::size_t trailerSize = 32;
constexpr std::size_t maximumDepth = 512;

class Reader {
public:
    Reader(std::string_view bytes, const BinaryLimits& limits) : bytes_(bytes), limits_(limits) {}

    Value read() {
        if (bytes_.size() < headerSize + 1 + 1 + trailerSize) {
            fail(0, "too short for a binary property list");
        }
        const std::size_t trailer = bytes_.size() - trailerSize;
        offsetSize_ = byteAt(trailer + 6);
        referenceSize_ = byteAt(trailer + 7);
        const std::uint64_t objectCount = unsignedAt(trailer + 8, 8);
        const std::uint64_t topObject = unsignedAt(trailer + 16, 8);
        const std::uint64_t tableOffset = unsignedAt(trailer + 24, 8);
        if (offsetSize_ < 1 || offsetSize_ > 8 || referenceSize_ < 1 || referenceSize_ > 8) {
            fail(trailer + 6, "offset or reference size outside 1 to 8 bytes");
        }
        if (tableOffset <= headerSize || tableOffset > trailer) {
            fail(trailer + 24, "the offset table lies outside the document");
        }
        if (objectCount == 0 || objectCount > (trailer - tableOffset) / offsetSize_) {
            fail(trailer + 8, "the object count does not fit the offset table");
        }
        if (topObject >= objectCount) {
            fail(trailer + 16, "the top object is not in the offset table");
        }
        tableOffset_ = static_cast<std::size_t>(tableOffset);
        objectCount_ = static_cast<std::size_t>(objectCount);
        inProgress_.assign(objectCount_, false);
        // Writers share equal strings, and may share containers; every reference yields a copy
        // here, so the copies are capped to keep a small crafted file from expanding into gigabytes.
        budget_ = limits_.fixedBudget + limits_.budgetPerByte * bytes_.size();
        return object(static_cast<std::size_t>(topObject), 0);
    }

private:
    [[noreturn]] static void fail(std::size_t offset, const std::string& why) {
        throw DataCorrupted({}, "byte offset " + std::to_string(offset) + ": " + why);
    }

    std::uint8_t byteAt(std::size_t at) const { return static_cast<std::uint8_t>(bytes_[at]); }

    // A big-endian unsigned number of `size` (1 to 8) bytes; the caller has checked the range.
    std::uint64_t unsignedAt(std::size_t at, std::size_t size) const {
        std::uint64_t value = 0;
        for (std::size_t index = 0; index < size; ++index) {
            value = (value << 8) | byteAt(at + index);
        }
        return value;
    }

    // Fails unless [at, at + size) lies in the object area, between the header and the offset table.
    void need(std::size_t at, std::uint64_t size) const {
        if (at > tableOffset_ || size > tableOffset_ - at) {
            fail(at, "an object runs past the object area");
        }
    }

    void spend(std::size_t amount, std::size_t at) {
        if (amount > budget_) {
            fail(at, "shared objects expand beyond the size limit");
        }
        budget_ -= amount;
    }

    std::size_t offsetOf(std::size_t reference) const {
        const std::uint64_t offset = unsignedAt(tableOffset_ + reference * offsetSize_, offsetSize_);
        if (offset < headerSize || offset >= tableOffset_) {
            fail(tableOffset_ + reference * offsetSize_,
                 "object " + std::to_string(reference) + " has an offset outside the object area");
        }
        return static_cast<std::size_t>(offset);
    }

    std::size_t referenceAt(std::size_t at) const {
        const std::uint64_t reference = unsignedAt(at, referenceSize_);
        if (reference >= objectCount_) {
            fail(at, "reference " + std::to_string(reference) + " is beyond the " + std::to_string(objectCount_) +
                         " objects");
        }
        return static_cast<std::size_t>(reference);
    }

    // The element count of a data, string, array or dictionary object, and where its contents
    // start: a count of 15 or more follows the marker as an integer object.
    std::pair<std::uint64_t, std::size_t> countAt(std::size_t at) const {
        const std::uint8_t low = byteAt(at) & 0x0F;
        if (low != 0x0F) {
            return {low, at + 1};
        }
        need(at + 1, 1);
        const std::uint8_t marker = byteAt(at + 1);
        if ((marker & 0xF0) != 0x10 || (marker & 0x0F) > 3) {
            fail(at + 1, "a count is not an integer of 1 to 8 bytes");
        }
        const std::size_t size = std::size_t{1} << (marker & 0x0F);
        need(at + 2, size);
        return {unsignedAt(at + 2, size), at + 2 + size};
    }

    Value object(std::size_t reference, std::size_t depth) {
        const std::size_t at = offsetOf(reference);
        const std::uint8_t marker = byteAt(at);
        spend(sizeof(Value), at);
        switch (marker >> 4) {
            case 0x0:
                if (marker == 0x08 || marker == 0x09) {
                    return Value(marker == 0x09);
                }
                fail(at, marker == 0x00 ? "null has no property-list value" : "unknown object marker");
            case 0x1: return integer(at, marker & 0x0F);
            case 0x2: return real(at, marker & 0x0F);
            case 0x3:
                if (marker != 0x33) {
                    fail(at, "a date is not an 8-byte real");
                }
                need(at + 1, 8);
                return Value(Date{std::bit_cast<double>(unsignedAt(at + 1, 8))});
            case 0x4: {
                const auto [count, start] = countAt(at);
                need(start, count);
                spend(count, at);
                const auto* first = reinterpret_cast<const std::uint8_t*>(bytes_.data() + start);
                return Value(Data(first, first + count));
            }
            case 0x5: return asciiString(at);
            case 0x6: return utf16String(at);
            case 0x8: fail(at, "a keyed-archive UID has no property-list value");
            case 0xA:
            case 0xD: return container(reference, at, depth);
            case 0xC: fail(at, "a set has no property-list value");
            default: fail(at, "unknown object marker");
        }
    }

    Value integer(std::size_t at, std::uint8_t sizeCode) {
        if (sizeCode > 4) {
            fail(at, "an integer is not 1, 2, 4, 8 or 16 bytes");
        }
        const std::size_t size = std::size_t{1} << sizeCode;
        need(at + 1, size);
        if (size < 8) {
            return Value(static_cast<std::int64_t>(unsignedAt(at + 1, size)));  // unsigned in these widths
        }
        const auto low = static_cast<std::int64_t>(unsignedAt(at + size - 7, 8));
        if (size == 16) {
            // Two's complement over 128 bits: the high half must only extend the sign of the low half.
            const std::uint64_t high = unsignedAt(at + 1, 8);
            if (high != (low < 0 ? std::numeric_limits<std::uint64_t>::max() : 0)) {
                fail(at, "the integer does not fit in 64 bits");
            }
        }
        return Value(low);
    }

    Value real(std::size_t at, std::uint8_t sizeCode) {
        if (sizeCode == 2) {
            need(at + 1, 4);
            return Value(static_cast<double>(std::bit_cast<float>(static_cast<std::uint32_t>(unsignedAt(at + 1, 4)))));
        }
        if (sizeCode == 3) {
            need(at + 1, 8);
            return Value(std::bit_cast<double>(unsignedAt(at + 1, 8)));
        }
        fail(at, "a real is not 4 or 8 bytes");
    }

    Value asciiString(std::size_t at) {
        const auto [count, start] = countAt(at);
        need(start, count);
        spend(count, at);
        const std::string_view text = bytes_.substr(start, count);
        for (std::size_t index = 0; index < text.size(); ++index) {
            if (static_cast<unsigned char>(text[index]) >= 0x80) {
                fail(start + index, "an ASCII string holds a byte above 127");
            }
        }
        return Value(std::string(text));
    }

    Value utf16String(std::size_t at) {
        const auto [count, start] = countAt(at);
        if (count > (tableOffset_ - start) / 2) {
            fail(at, "an object runs past the object area");
        }
        spend(count * 3, at);
        std::string text;
        text.reserve(count * 3);
        for (std::size_t index = 0; index < count; ++index) {
            const std::size_t unitAt = start + 2 * index;
            std::uint32_t point = static_cast<std::uint32_t>(unsignedAt(unitAt, 2));
            if (point >= 0xDC00 && point <= 0xDFFF) {
                fail(unitAt, "a UTF-16 string holds an unpaired low surrogate");
            }
            if (point >= 0xD800 && point <= 0xDBFF) {
                const std::uint32_t low = index + 1 < count ? static_cast<std::uint32_t>(unsignedAt(unitAt + 2, 2)) : 0;
                if (low < 0xDC00 || low > 0xDFFF) {
                    fail(unitAt, "a UTF-16 string holds an unpaired high surrogate");
                }
                point = 0x10000 + ((point - 0xD800) << 10) + (low - 0xDC00);
                ++index;
            }
            appendUtf8(text, point);
        }
        return Value(std::move(text));
    }

    static void appendUtf8(std::string& text, std::uint32_t point) {
        if (point < 0x80) {
            text += static_cast<char>(point);
        } else if (point < 0x800) {
            text += static_cast<char>(0xC0 | (point >> 6));
            text += static_cast<char>(0x80 | (point & 0x3F));
        } else if (point < 0x10000) {
            text += static_cast<char>(0xE0 | (point >> 12));
            text += static_cast<char>(0x80 | ((point >> 6) & 0x3F));
            text += static_cast<char>(0x80 | (point & 0x3F));
        } else {
            text += static_cast<char>(0xF0 | (point >> 18));
            text += static_cast<char>(0x80 | ((point >> 12) & 0x3F));
            text += static_cast<char>(0x80 | ((point >> 6) & 0x3F));
            text += static_cast<char>(0x80 | (point & 0x3F));
        }
    }

    Value container(std::size_t reference, std::size_t at, std::size_t depth) {
        if (depth >= maximumDepth) {
            fail(at, "containers nested deeper than " + std::to_string(maximumDepth) + " levels");
        }
        if (inProgress_[reference]) {
            fail(at, "object " + std::to_string(reference) + " contains itself");
        }
        const bool isDictionary = (byteAt(at) >> 4) == 0xD;
        const auto [count, start] = countAt(at);
        const std::uint64_t references = isDictionary ? 2 : 1;
        if (count > (tableOffset_ - start) / referenceSize_ / references) {
            fail(at, "a container's references run past the object area");
        }
        inProgress_[reference] = true;
        Value value = isDictionary ? dictionary(start, count, depth) : array(start, count, depth);
        inProgress_[reference] = false;
        return value;
    }

    // Containers grow as their values are read, which the budget pays for; reserving the count
    // up front would let nested containers each claim the whole reference area unpaid.
    Value array(std::size_t start, std::size_t count, std::size_t depth) {
        Array items;
        for (std::size_t index = 0; index < count; ++index) {
            items.push_back(object(referenceAt(start + index * referenceSize_), depth + 1));
        }
        return Value(std::move(items));
    }

    Value dictionary(std::size_t start, std::size_t count, std::size_t depth) {
        std::vector<Dictionary::Entry> entries;
        for (std::size_t index = 0; index < count; ++index) {
            const std::size_t keyAt = start + index * referenceSize_;
            Value key = object(referenceAt(keyAt), depth + 1);
            std::string* text = key.get<std::string>();
            if (text == nullptr) {
                fail(keyAt, "a dictionary key is not a string but " + std::string(kindName(key.kind())));
            }
            entries.emplace_back(std::move(*text), object(referenceAt(start + (count + index) * referenceSize_), depth + 1));
        }
        return Value(Dictionary::fromEntries(std::move(entries)));
    }

    std::string_view bytes_;
    BinaryLimits limits_;
    std::size_t offsetSize_ = 0;
    std::size_t referenceSize_ = 0;
    std::size_t tableOffset_ = 0;
    std::size_t objectCount_ = 0;
    std::vector<bool> inProgress_;
    std::size_t budget_ = 0;
};

}  // namespace

bool isBinaryPropertyList(std::string_view bytes) { return bytes.starts_with(magic); }

Value readBinary(std::string_view bytes, const BinaryLimits& limits) {
    if (!isBinaryPropertyList(bytes)) {
        throw DataCorrupted({}, "byte offset 0: not a binary property list (no \"bplist00\" header)");
    }
    return Reader(bytes, limits).read();
}

}  // namespace vornix::plist
