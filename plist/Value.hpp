#pragma once

#include <compare>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace vornix::plist {

class Value;

// A property-list date: seconds since 2001-01-01T00:00:00Z, the reference date of both
// property-list formats (the binary format stores exactly this number).
struct Date {
    double sinceReferenceDate = 0.0;
    friend bool operator==(const Date&, const Date&) = default;
};

using Data = std::vector<std::uint8_t>;
using Array = std::vector<Value>;

// A dictionary keeps its entries sorted by key (byte order), one entry per key: the order
// every writer emits, and the lookup order decoding needs.
class Dictionary {
public:
    using Entry = std::pair<std::string, Value>;

    Dictionary() = default;
    // Builds from entries in document order; for a repeated key the last value wins.
    static Dictionary fromEntries(std::vector<Entry> entries);

    // Inserts, or replaces the value of an existing key.
    void set(std::string key, Value value);
    const Value* find(std::string_view key) const;
    bool contains(std::string_view key) const;

    std::size_t size() const;
    bool empty() const;
    std::vector<Entry>::const_iterator begin() const;
    std::vector<Entry>::const_iterator end() const;

    friend bool operator==(const Dictionary&, const Dictionary&);

private:
    std::vector<Entry> entries_;
};

// One property-list value: a string, a signed 64-bit integer, a real, a boolean, a date,
// data, an array or a dictionary.
class Value {
public:
    enum class Kind { string, integer, real, boolean, date, data, array, dictionary };

    Value() : storage_(std::string()) {}
    Value(std::string text) : storage_(std::move(text)) {}
    Value(const char* text) : storage_(std::string(text)) {}
    Value(std::int64_t number) : storage_(number) {}
    Value(int number) : storage_(std::int64_t{number}) {}
    Value(double number) : storage_(number) {}
    Value(bool flag) : storage_(flag) {}
    Value(Date date) : storage_(date) {}
    Value(Data bytes) : storage_(std::move(bytes)) {}
    Value(Array items) : storage_(std::move(items)) {}
    Value(Dictionary entries) : storage_(std::move(entries)) {}

    Kind kind() const { return static_cast<Kind>(storage_.index()); }

    // The value as T when it holds a T, else null. T is one of std::string, std::int64_t,
    // double, bool, Date, Data, Array, Dictionary.
    template <class T>
    const T* get() const {
        return std::get_if<T>(&storage_);
    }
    template <class T>
    T* get() {
        return std::get_if<T>(&storage_);
    }

    friend bool operator==(const Value&, const Value&) = default;

private:
    std::variant<std::string, std::int64_t, double, bool, Date, Data, Array, Dictionary> storage_;
};

// Defined here, where Value is complete.
inline bool Dictionary::contains(std::string_view key) const { return find(key) != nullptr; }
inline std::size_t Dictionary::size() const { return entries_.size(); }
inline bool Dictionary::empty() const { return entries_.empty(); }
inline std::vector<Dictionary::Entry>::const_iterator Dictionary::begin() const { return entries_.begin(); }
inline std::vector<Dictionary::Entry>::const_iterator Dictionary::end() const { return entries_.end(); }

// The element name of a kind, as the XML format spells it ("string", "integer", "real",
// "boolean", "date", "data", "array", "dict"): used in error descriptions.
std::string_view kindName(Value::Kind kind);

}  // namespace vornix::plist
