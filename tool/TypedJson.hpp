#pragma once

#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>
#include <string_view>

#include "engine/EncodableValue.hpp"

namespace vornix::tool {

// Encodable values written as JSON that keeps every type of the codec apart, one member per
// object, numbers as text so that no precision is lost:
//   {"null": null}  {"bool": true}  {"int32": "5"}  {"int64": "5"}  {"double": "0.5"}
//   {"string": "..."}  {"uint8list": "0a0b"}  {"int32list": ["1", "-1"]}  {"int64list": [...]}
//   {"float32list": ["0.5"]}  {"float64list": [...]}  {"list": [value, ...]}
//   {"map": [[key, value], ...]}
// Doubles and floats are the shortest text that reads back to the same number ("nan", "inf"
// and "-inf" included).
nlohmann::json toTypedJson(const engine::EncodableValue& value);

// Refuses anything but the forms above, naming where: "at $.list[1]: ...".
engine::EncodableValue fromTypedJson(const nlohmann::json& json);

class TypedJsonError : public std::runtime_error {
public:
    explicit TypedJsonError(const std::string& what) : std::runtime_error(what) {}
};

class NotJsonError : public std::runtime_error {
public:
    explicit NotJsonError(const std::string& what) : std::runtime_error(what) {}
};

// The JSON text a command was given; throws NotJsonError with nlohmann's reason for text that
// is not JSON, a number beyond a double's range included.
nlohmann::json parseJson(std::string_view text);

}  // namespace vornix::tool
