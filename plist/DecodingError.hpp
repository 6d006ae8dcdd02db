#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace vornix::plist {

// The keys from the top of a property list down to one value; an array element appears as
// "Index N". Example: {"StartCalendarInterval", "Weekday"}.
using CodingPath = std::vector<std::string>;

// The path joined by "/": "StartCalendarInterval/Weekday"; empty for the top level.
std::string codingPathText(const CodingPath& path);

// Why a property list could not be read, or could not be read as the type asked for. Catch
// DecodingError for all of them, or one of the four kinds below. what() reads
// "<kind> at <path>: <description>" ("<kind>: <description>" at the top level).
class DecodingError : public std::runtime_error {
public:
    enum class Kind { keyNotFound, typeMismatch, valueNotFound, dataCorrupted };

    Kind kind() const { return kind_; }
    const CodingPath& codingPath() const { return codingPath_; }
    std::string pathText() const { return codingPathText(codingPath_); }
    // The readable cause alone, without kind and path.
    const std::string& description() const { return description_; }

protected:
    DecodingError(Kind kind, CodingPath codingPath, std::string description);

private:
    Kind kind_;
    CodingPath codingPath_;
    std::string description_;
};

// "keyNotFound", "typeMismatch", "valueNotFound" or "dataCorrupted".
std::string_view kindName(DecodingError::Kind kind);

// A required key is missing; the path ends with that key.
class KeyNotFound final : public DecodingError {
public:
    KeyNotFound(CodingPath codingPath, std::string description)
        : DecodingError(Kind::keyNotFound, std::move(codingPath), std::move(description)) {}
};

// A value is of another kind than the one asked for (a string where a boolean belongs).
class TypeMismatch final : public DecodingError {
public:
    TypeMismatch(CodingPath codingPath, std::string description)
        : DecodingError(Kind::typeMismatch, std::move(codingPath), std::move(description)) {}
};

// A value is asked for where the property list holds the null marker.
class ValueNotFound final : public DecodingError {
public:
    ValueNotFound(CodingPath codingPath, std::string description)
        : DecodingError(Kind::valueNotFound, std::move(codingPath), std::move(description)) {}
};

// The bytes are no property list (the description gives the position when it is known), or a
// value is of the right kind but not one the type accepts (an enumeration's unknown raw value).
class DataCorrupted final : public DecodingError {
public:
    DataCorrupted(CodingPath codingPath, std::string description)
        : DecodingError(Kind::dataCorrupted, std::move(codingPath), std::move(description)) {}
};

}  // namespace vornix::plist
