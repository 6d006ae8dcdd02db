#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace vornix::engine {

class EncodableValue;
struct ValueOrder;

using EncodableList = std::vector<EncodableValue>;

// A map whose keys are values. It keeps its entries in insertion order, which is the order
// they go on the wire, so decoding and re-encoding a message keeps its bytes; a side index
// sorted by key makes lookups and inserts logarithmic. Setting an existing key replaces its
// value in place, as the engine's side does when it reads a map. Keys are told apart by
// compareKeys, so an int32 and an int64 of the same number are one key.
class EncodableMap {
public:
    using Entry = std::pair<EncodableValue, EncodableValue>;

    EncodableMap() = default;
    EncodableMap(std::initializer_list<Entry> entries);
    // Builds from entries in wire order; a repeated key keeps its first place and its last value.
    static EncodableMap fromEntries(std::vector<Entry> entries);

    void set(EncodableValue key, EncodableValue value);
    const EncodableValue* find(const EncodableValue& key) const;

    std::size_t size() const;
    bool empty() const;
    std::vector<Entry>::const_iterator begin() const;
    std::vector<Entry>::const_iterator end() const;

    // The same keys with the same values, in whatever order.
    friend bool operator==(const EncodableMap&, const EncodableMap&);
    friend std::strong_ordering operator<=>(const EncodableMap&, const EncodableMap&);

private:
    friend struct ValueOrder;

    std::size_t lowerBound(const EncodableValue& key) const;

    std::vector<Entry> entries_;
    std::vector<std::uint32_t> byKey_;  // positions in entries_, sorted by key
};

// One value of the engine's standard message codec.
//
// Values compare by type first, then by content, with doubles and floats compared by their
// bits: a total order, so that any value can be a map key and NaN keys behave. An int32 and an
// int64 holding the same number are different values here; on the wire the codec sends every
// 64-bit integer that fits as an int32, as the engine's side does, and the engine reads both as
// one integer type. Map keys therefore follow compareKeys instead.
class EncodableValue {
public:
    enum class Kind {
        null,
        boolean,
        int32,
        int64,
        float64,
        string,
        uint8List,
        int32List,
        int64List,
        float32List,
        float64List,
        list,
        map,
    };

    EncodableValue() = default;
    EncodableValue(std::nullptr_t) {}
    EncodableValue(bool flag) : storage_(flag) {}
    EncodableValue(std::int32_t number) : storage_(number) {}
    EncodableValue(std::int64_t number) : storage_(number) {}
    EncodableValue(double number) : storage_(number) {}
    EncodableValue(std::string text) : storage_(std::move(text)) {}
    EncodableValue(std::string_view text) : storage_(std::string(text)) {}
    EncodableValue(const char* text) : storage_(std::string(text)) {}
    EncodableValue(std::vector<std::uint8_t> bytes) : storage_(std::move(bytes)) {}
    EncodableValue(std::vector<std::int32_t> numbers) : storage_(std::move(numbers)) {}
    EncodableValue(std::vector<std::int64_t> numbers) : storage_(std::move(numbers)) {}
    EncodableValue(std::vector<float> numbers) : storage_(std::move(numbers)) {}
    EncodableValue(std::vector<double> numbers) : storage_(std::move(numbers)) {}
    EncodableValue(EncodableList items) : storage_(std::move(items)) {}
    EncodableValue(EncodableMap entries) : storage_(std::move(entries)) {}

    Kind kind() const { return static_cast<Kind>(storage_.index()); }
    bool isNull() const { return kind() == Kind::null; }

    // The value as T when it holds a T, else null. T is one of bool, std::int32_t,
    // std::int64_t, double, std::string, the five typed vectors, EncodableList, EncodableMap.
    template <class T>
    const T* get() const {
        return std::get_if<T>(&storage_);
    }
    template <class T>
    T* get() {
        return std::get_if<T>(&storage_);
    }

    friend bool operator==(const EncodableValue&, const EncodableValue&);
    friend std::strong_ordering operator<=>(const EncodableValue&, const EncodableValue&);

private:
    friend struct ValueOrder;

    std::variant<std::monostate, bool, std::int32_t, std::int64_t, double, std::string,
                 std::vector<std::uint8_t>, std::vector<std::int32_t>, std::vector<std::int64_t>,
                 std::vector<float>, std::vector<double>, EncodableList, EncodableMap>
        storage_;
};

// Defined here, where EncodableValue is complete.
inline std::size_t EncodableMap::size() const { return entries_.size(); }
inline bool EncodableMap::empty() const { return entries_.empty(); }
inline std::vector<EncodableMap::Entry>::const_iterator EncodableMap::begin() const { return entries_.begin(); }
inline std::vector<EncodableMap::Entry>::const_iterator EncodableMap::end() const { return entries_.end(); }

// The order of map keys: the order of values, except that an int32 and an int64 holding the
// same number are equal, at any depth of the key. Two keys that differ only in width would be
// one key once they had been to the engine, or through the codec, which narrows the int64.
std::strong_ordering compareKeys(const EncodableValue& a, const EncodableValue& b);

// The kind's name as the typed JSON form of vornix-tool spells it ("null", "int32", "map", ...).
std::string_view kindName(EncodableValue::Kind kind);

}  // namespace vornix::engine
