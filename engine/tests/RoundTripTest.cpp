#include "engine/StandardMessageCodec.hpp"
#include "engine/StandardMethodCodec.hpp"

#include <gtest/gtest.h>

#include <bit>
#include <limits>
#include <random>

#include "engine/tests/Hex.hpp"

namespace {

using namespace vornix::engine;
using vornix::engine::testing::hex;

// Random values of every kind, from a fixed seed so that a failure can be replayed.
class RandomValues {
public:
    explicit RandomValues(std::uint32_t seed) : random_(seed) {}

    EncodableValue value(int depth = 0) {
        const int kinds = depth < 4 ? 13 : 11;
        switch (pick(0, kinds - 1)) {
            case 0: return EncodableValue();
            case 1: return pick(0, 1) == 1;
            case 2: return number<std::int32_t>();
            case 3: return wideInt64();
            case 4: return anyDouble();
            case 5: return text();
            case 6: return numbers<std::uint8_t>();
            case 7: return numbers<std::int32_t>();
            case 8: return numbers<std::int64_t>();
            case 9: return floats<float>();
            case 10: return floats<double>();
            case 11: {
                EncodableList items;
                for (int i = pick(0, 6); i > 0; --i) items.push_back(value(depth + 1));
                return items;
            }
            default: {
                EncodableMap entries;
                for (int i = pick(0, 6); i > 0; --i) entries.set(value(depth + 1), value(depth + 1));
                return entries;
            }
        }
    }

    std::string text() {
        // ASCII, two-, three- and four-byte UTF-8 sequences.
        static const char* const pieces[] = {"a", "Z", " ", "=", "&", "\xc3\xa9", "\xe2\x82\xac", "\xf0\x9f\x98\x80", ""};
        std::string result;
        for (int i = pick(0, 12); i > 0; --i) result += pieces[pick(0, 8)];
        return result;
    }

    int pick(int low, int high) { return std::uniform_int_distribution<int>(low, high)(random_); }

private:
    template <class T>
    T number() {
        // Uniform bits, cut to the width of T.
        return static_cast<T>(random_());
    }
    // Only 64-bit integers that do not fit in 32 bits stay int64 on the wire.
    std::int64_t wideInt64() {
        const std::int64_t magnitude = std::uniform_int_distribution<std::int64_t>(std::int64_t{1} << 31, std::numeric_limits<std::int64_t>::max())(random_);
        return pick(0, 1) == 1 ? magnitude : -magnitude;
    }
    double anyDouble() {
        switch (pick(0, 3)) {
            case 0: return std::bit_cast<double>(number<std::uint64_t>());
            case 1: return std::numeric_limits<double>::infinity();
            case 2: return -0.0;
            default: return std::uniform_real_distribution<double>(-1e6, 1e6)(random_);
        }
    }
    template <class T>
    std::vector<T> numbers() {
        std::vector<T> result(static_cast<std::size_t>(pick(0, 9)));
        for (T& item : result) item = number<T>();
        return result;
    }
    template <class T>
    std::vector<T> floats() {
        std::vector<T> result(static_cast<std::size_t>(pick(0, 9)));
        using Bits = std::conditional_t<sizeof(T) == 8, std::uint64_t, std::uint32_t>;
        for (T& item : result) item = std::bit_cast<T>(number<Bits>());
        return result;
    }

    std::mt19937_64 random_;
};

TEST(RoundTrip, RandomValuesDecodeToWhatWasEncoded) {
    RandomValues random(20240611);
    for (int i = 0; i < 2000; ++i) {
        const EncodableValue value = random.value();
        const Bytes bytes = StandardMessageCodec::encodeMessage(value);
        const EncodableValue decoded = StandardMessageCodec::decodeMessage(bytes);
        ASSERT_EQ(decoded, value) << "value " << i;
        ASSERT_EQ(StandardMessageCodec::encodeMessage(decoded), bytes) << "value " << i;
    }
}

TEST(RoundTrip, RandomCallsDecodeToWhatWasEncoded) {
    RandomValues random(7);
    for (int i = 0; i < 500; ++i) {
        const MethodCall call{random.text(), random.value()};
        ASSERT_EQ(StandardMethodCodec::decodeMethodCall(StandardMethodCodec::encodeMethodCall(call)), call) << "call " << i;
    }
}

TEST(RoundTrip, RandomEnvelopesDecodeToWhatWasEncoded) {
    RandomValues random(99);
    for (int i = 0; i < 500; ++i) {
        MethodEnvelope envelope;
        switch (random.pick(0, 2)) {
            case 0: envelope = MethodSuccess{random.value()}; break;
            case 1: {
                std::optional<std::string> message;
                if (random.pick(0, 1) == 1) message = random.text();
                envelope = MethodError{random.text(), message, random.value()};
                break;
            }
            default: envelope = MethodNotImplemented{};
        }
        ASSERT_EQ(StandardMethodCodec::decodeEnvelope(StandardMethodCodec::encodeEnvelope(envelope)), envelope) << "envelope " << i;
    }
}

// The engine reads an int32 and an int64 as one integer type, and the codec writes an int64 that
// fits as an int32, so a map whose keys differ only in width holds one key for both.
TEST(RoundTrip, KeysDifferingOnlyInWidthAreOneEntryFromTheFirstDecoding) {
    const Bytes bytes = hex("0d 02 03 01000000 01 04 0100000000000000 02");
    const EncodableValue decoded = StandardMessageCodec::decodeMessage(bytes);
    EXPECT_EQ(decoded, EncodableValue(EncodableMap{{std::int32_t{1}, false}}));
    EXPECT_EQ(StandardMessageCodec::encodeMessage(decoded), hex("0d 01 03 01000000 02"));
}

// The input on which the codec fuzzer found the above: before, it encoded to two entries whose
// keys were then the same, and the second encoding lost one.
TEST(RoundTrip, AMessageWithKeysDifferingOnlyInWidthEncodesTheSameTwice) {
    const Bytes bytes = hex(
        "0d06 0704 6e75 6c6c 0003 0100 0000 0104 0100 0000 0000 0000 0206 0000 0000 0000"
        "0000 0000 0000 d03f 0802 0102 0c00 0d00 0705 6c69 7374 730c 0409 0100 0100 0000"
        "0a01 0000 0000 0000 0200 0000 0000 0000 0e01 0000 0000 803f 0b01 0000 0000 0000"
        "0000 0000 0000 0040");
    const Bytes once = StandardMessageCodec::encodeMessage(StandardMessageCodec::decodeMessage(bytes));
    EXPECT_EQ(StandardMessageCodec::encodeMessage(StandardMessageCodec::decodeMessage(once)), once);
    EXPECT_EQ(StandardMessageCodec::decodeMessage(once).get<EncodableMap>()->size(), 5u);
}

}  // namespace
