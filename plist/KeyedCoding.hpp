#pragma once

// Keyed encoding and decoding: typed C++ values to property-list values and back.
//
// A record encodes its members, in order, into a KeyedEncoder and decodes them from a
// KeyedDecoder:
//
//     struct MachService {
//         bool hideUntilCheckIn = false;
//         std::optional<std::int64_t> limit;
//         explicit MachService(const plist::KeyedDecoder& decoder)
//             : hideUntilCheckIn(decoder.decode<bool>("HideUntilCheckIn")),
//               limit(decoder.decodeIfPresent<std::int64_t>("Limit")) {}
//         void encode(plist::KeyedEncoder& encoder) const {
//             encoder.encode("HideUntilCheckIn", hideUntilCheckIn);
//             encoder.encodeIfPresent("Limit", limit);
//         }
//     };
//
// `encode` always writes its key (false, zero and empty included); `encodeIfPresent` writes
// nothing for an absent optional. `decode` requires the key; `decodeIfPresent` leaves the
// member absent when the key is missing. A failure throws one of the DecodingError kinds
// with the coding path of the value at fault.
//
// Types that code out of the box: std::string, bool, std::int64_t, double, Date, Data, Value,
// std::vector<T>, std::map<std::string, T>, records (a class with
// `void encode(KeyedEncoder&) const` and a constructor from `const KeyedDecoder&`), held by
// value or by std::shared_ptr, and enumerations that specialise RawValues. Any other type
// plugs in by specialising Coding<T>.
//
// As on the platform, the string "$null" is the null marker: decodeIfPresent reads it as
// absent, decode as a missing value (valueNotFound).

#include <concepts>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "plist/DecodingError.hpp"
#include "plist/EncodingError.hpp"
#include "plist/Value.hpp"

namespace vornix::plist {

class KeyedEncoder;
class KeyedDecoder;

// The customisation point. A specialisation provides
//     static Value encode(const T& value, const CodingPath& path);
//     static T decode(const Value& value, const CodingPath& path);
// where `path` locates the value, for the errors either may throw.
template <class T>
struct Coding;

// An enumeration codes as its raw value once it specialises RawValues with a table of its
// cases and their raw values, all std::int64_t or all std::string_view:
//     template <> struct vornix::plist::RawValues<StartMonth> {
//         static constexpr std::pair<StartMonth, std::int64_t> table[] = {
//             {StartMonth::january, 1}, ..., {StartMonth::december, 12}};
//     };
// Decoding a raw value that is in no entry throws DataCorrupted.
template <class E>
struct RawValues;

template <class E>
concept RawValueEnum = std::is_enum_v<E> && requires { RawValues<E>::table[0].second; };

template <RawValueEnum E>
using RawValueType = std::remove_cvref_t<decltype(RawValues<E>::table[0].second)>;

// The raw value of a case, or nothing for a value outside the table.
template <RawValueEnum E>
std::optional<RawValueType<E>> rawValue(E value) {
    for (const auto& [entry, raw] : RawValues<E>::table) {
        if (entry == value) {
            return raw;
        }
    }
    return std::nullopt;
}

// The case with this raw value (exact, case-sensitive for text), or nothing.
template <RawValueEnum E>
std::optional<E> fromRawValue(const RawValueType<E>& raw) {
    for (const auto& [entry, value] : RawValues<E>::table) {
        if (value == raw) {
            return entry;
        }
    }
    return std::nullopt;
}

template <class R>
concept KeyedRecord = std::is_class_v<R> && std::constructible_from<R, const KeyedDecoder&> &&
                      requires(const R& record, KeyedEncoder& encoder) { record.encode(encoder); };

namespace detail {

CodingPath extended(const CodingPath& path, std::string key);
std::string indexKey(std::size_t index);
bool isNullMarker(const Value& value);
// The payload of `value` when it is of `kind`; else TypeMismatch, or ValueNotFound for the null marker.
const Value& expectKind(const Value& value, Value::Kind kind, const CodingPath& path);
[[noreturn]] void throwNullRecord(const CodingPath& path);
[[noreturn]] void throwNotACase(const CodingPath& path);
[[noreturn]] void throwUnknownRawValue(const CodingPath& path, const Value& raw);

// What decodeIfPresent returns: std::optional<T>, except that a shared pointer is its own
// optional (null when absent).
template <class T>
struct IfPresent {
    using Type = std::optional<T>;
};
template <class R>
struct IfPresent<std::shared_ptr<R>> {
    using Type = std::shared_ptr<R>;
};

}  // namespace detail

// Writes the members of one record into a dictionary.
class KeyedEncoder {
public:
    explicit KeyedEncoder(CodingPath codingPath = {}) : codingPath_(std::move(codingPath)) {}

    template <class T>
    void encode(std::string_view key, const T& value) {
        std::string name(key);
        Value encoded = Coding<T>::encode(value, detail::extended(codingPath_, name));
        dictionary_.set(std::move(name), std::move(encoded));
    }

    // Writes `*value` when `value` holds one (std::optional, std::shared_ptr or any type that
    // tests as a boolean and dereferences); an absent value leaves no key.
    template <class Optional>
        requires requires(const Optional& optional) {
            static_cast<bool>(optional);
            *optional;
        }
    void encodeIfPresent(std::string_view key, const Optional& value) {
        if (value) {
            encode(key, *value);
        }
    }

    const CodingPath& codingPath() const { return codingPath_; }
    const Dictionary& dictionary() const& { return dictionary_; }
    Dictionary dictionary() && { return std::move(dictionary_); }

private:
    CodingPath codingPath_;
    Dictionary dictionary_;
};

// Reads the members of one record from a dictionary, which must outlive the decoder.
class KeyedDecoder {
public:
    explicit KeyedDecoder(const Dictionary& dictionary, CodingPath codingPath = {})
        : dictionary_(dictionary), codingPath_(std::move(codingPath)) {}

    // The value under `key`; KeyNotFound when the key is missing.
    template <class T>
    T decode(std::string_view key) const {
        CodingPath path = detail::extended(codingPath_, std::string(key));
        const Value* value = dictionary_.find(key);
        if (value == nullptr) {
            throw KeyNotFound(std::move(path), "no value for the required key \"" + std::string(key) + "\"");
        }
        return Coding<T>::decode(*value, path);
    }

    // The value under `key`, or absent when the key is missing (or holds the null marker).
    template <class T>
    typename detail::IfPresent<T>::Type decodeIfPresent(std::string_view key) const {
        const Value* value = dictionary_.find(key);
        if (value == nullptr || detail::isNullMarker(*value)) {
            return {};
        }
        return Coding<T>::decode(*value, detail::extended(codingPath_, std::string(key)));
    }

    bool contains(std::string_view key) const { return dictionary_.contains(key); }
    const CodingPath& codingPath() const { return codingPath_; }
    const Dictionary& dictionary() const { return dictionary_; }

private:
    const Dictionary& dictionary_;
    CodingPath codingPath_;
};

// Top-level conversions between a typed value and a property-list value.
template <class T>
Value encodeValue(const T& value) {
    return Coding<T>::encode(value, {});
}

template <class T>
T decodeValue(const Value& value) {
    return Coding<T>::decode(value, {});
}

// Scalars: each reads only from its own kind (a boolean only from a boolean, an integer only
// from an integer), except that a real also reads an integer it holds exactly.

template <>
struct Coding<Value> {
    static Value encode(const Value& value, const CodingPath&) { return value; }
    static Value decode(const Value& value, const CodingPath&) { return value; }
};

template <>
struct Coding<std::string> {
    static Value encode(const std::string& value, const CodingPath&) { return value; }
    static std::string decode(const Value& value, const CodingPath& path) {
        return *detail::expectKind(value, Value::Kind::string, path).get<std::string>();
    }
};

template <>
struct Coding<bool> {
    static Value encode(bool value, const CodingPath&) { return value; }
    static bool decode(const Value& value, const CodingPath& path) {
        return *detail::expectKind(value, Value::Kind::boolean, path).get<bool>();
    }
};

template <>
struct Coding<std::int64_t> {
    static Value encode(std::int64_t value, const CodingPath&) { return value; }
    static std::int64_t decode(const Value& value, const CodingPath& path) {
        return *detail::expectKind(value, Value::Kind::integer, path).get<std::int64_t>();
    }
};

template <>
struct Coding<double> {
    static Value encode(double value, const CodingPath&) { return value; }
    static double decode(const Value& value, const CodingPath& path);
};

template <>
struct Coding<Date> {
    static Value encode(Date value, const CodingPath&) { return value; }
    static Date decode(const Value& value, const CodingPath& path) {
        return *detail::expectKind(value, Value::Kind::date, path).get<Date>();
    }
};

template <>
struct Coding<Data> {
    static Value encode(const Data& value, const CodingPath&) { return value; }
    static Data decode(const Value& value, const CodingPath& path) {
        return *detail::expectKind(value, Value::Kind::data, path).get<Data>();
    }
};

// Containers: elements extend the path with "Index N", map entries with their key.

template <class T>
struct Coding<std::vector<T>> {
    static Value encode(const std::vector<T>& values, const CodingPath& path) {
        Array array;
        array.reserve(values.size());
        for (std::size_t index = 0; index < values.size(); ++index) {
            array.push_back(Coding<T>::encode(values[index], detail::extended(path, detail::indexKey(index))));
        }
        return array;
    }
    static std::vector<T> decode(const Value& value, const CodingPath& path) {
        const Array& array = *detail::expectKind(value, Value::Kind::array, path).get<Array>();
        std::vector<T> values;
        values.reserve(array.size());
        for (std::size_t index = 0; index < array.size(); ++index) {
            values.push_back(Coding<T>::decode(array[index], detail::extended(path, detail::indexKey(index))));
        }
        return values;
    }
};

template <class T>
struct Coding<std::map<std::string, T>> {
    static Value encode(const std::map<std::string, T>& values, const CodingPath& path) {
        Dictionary dictionary;
        for (const auto& [key, element] : values) {
            dictionary.set(key, Coding<T>::encode(element, detail::extended(path, key)));
        }
        return dictionary;
    }
    static std::map<std::string, T> decode(const Value& value, const CodingPath& path) {
        const Dictionary& dictionary = *detail::expectKind(value, Value::Kind::dictionary, path).get<Dictionary>();
        std::map<std::string, T> values;
        for (const auto& [key, element] : dictionary) {
            values.emplace_hint(values.end(), key, Coding<T>::decode(element, detail::extended(path, key)));
        }
        return values;
    }
};

// Records: a dictionary of their members.

template <KeyedRecord R>
struct Coding<R> {
    static Value encode(const R& record, const CodingPath& path) {
        KeyedEncoder encoder(path);
        record.encode(encoder);
        return std::move(encoder).dictionary();
    }
    static R decode(const Value& value, const CodingPath& path) {
        return R(KeyedDecoder(*detail::expectKind(value, Value::Kind::dictionary, path).get<Dictionary>(), path));
    }
};

// A shared record; encoding a null pointer where a value is required is an EncodingError.
template <KeyedRecord R>
struct Coding<std::shared_ptr<R>> {
    static Value encode(const std::shared_ptr<R>& record, const CodingPath& path) {
        if (!record) {
            detail::throwNullRecord(path);
        }
        return Coding<R>::encode(*record, path);
    }
    static std::shared_ptr<R> decode(const Value& value, const CodingPath& path) {
        return std::make_shared<R>(
            KeyedDecoder(*detail::expectKind(value, Value::Kind::dictionary, path).get<Dictionary>(), path));
    }
};

// Enumerations: their raw value.

template <RawValueEnum E>
struct Coding<E> {
    using Raw = RawValueType<E>;
    using Stored = std::conditional_t<std::is_same_v<Raw, std::string_view>, std::string, Raw>;

    static Value encode(E value, const CodingPath& path) {
        const std::optional<Raw> raw = rawValue(value);
        if (!raw) {
            detail::throwNotACase(path);
        }
        return Stored(*raw);
    }
    static E decode(const Value& value, const CodingPath& path) {
        const Stored raw = Coding<Stored>::decode(value, path);
        const std::optional<E> found = fromRawValue<E>(raw);
        if (!found) {
            detail::throwUnknownRawValue(path, value);
        }
        return *found;
    }
};

}  // namespace vornix::plist
