#include "plist/TypedJson.hpp"

#include <nlohmann/json.hpp>

#include "plist/Base64.hpp"
#include "plist/DateText.hpp"
#include "plist/DecodingError.hpp"
#include "plist/EncodingError.hpp"
#include "plist/NumberText.hpp"

namespace vornix::plist {
namespace {

using Json = nlohmann::json;

constexpr std::size_t maximumDepth = 512;

Json toJson(const Value& value, CodingPath& path) {
    switch (value.kind()) {
        case Value::Kind::string: return {{"string", *value.get<std::string>()}};
        case Value::Kind::integer: return {{"integer", std::to_string(*value.get<std::int64_t>())}};
        case Value::Kind::real: return {{"real", shortestReal(*value.get<double>())}};
        case Value::Kind::boolean: return {{"bool", *value.get<bool>()}};
        case Value::Kind::date: {
            const std::optional<std::string> text = formatDateExactly(*value.get<Date>());
            if (!text) {
                throw EncodingError(path, "the date has no exact text form within the years 0000 to 9999");
            }
            return {{"date", *text}};
        }
        case Value::Kind::data: return {{"data", base64Encode(*value.get<Data>())}};
        case Value::Kind::array: {
            Json items = Json::array();
            const Array& array = *value.get<Array>();
            for (std::size_t index = 0; index < array.size(); ++index) {
                path.push_back("Index " + std::to_string(index));
                items.push_back(toJson(array[index], path));
                path.pop_back();
            }
            return {{"array", std::move(items)}};
        }
        case Value::Kind::dictionary: {
            Json entries = Json::object();
            for (const auto& [key, element] : *value.get<Dictionary>()) {
                path.push_back(key);
                entries[key] = toJson(element, path);
                path.pop_back();
            }
            return {{"dict", std::move(entries)}};
        }
    }
    return {};
}

[[noreturn]] void notTyped(const CodingPath& path, const std::string& why) { throw DataCorrupted(path, why); }

const std::string& textPayload(const Json& payload, std::string_view kind, const CodingPath& path) {
    if (!payload.is_string()) {
        notTyped(path, "the content of \"" + std::string(kind) + "\" is not a JSON string");
    }
    return payload.get_ref<const std::string&>();
}

Value fromJson(const Json& json, CodingPath& path) {
    if (path.size() > maximumDepth) {
        notTyped(path, "values nested deeper than " + std::to_string(maximumDepth) + " levels");
    }
    if (!json.is_object() || json.size() != 1) {
        notTyped(path, "a value is not a JSON object with exactly one member naming its kind");
    }
    const std::string& kind = json.begin().key();
    const Json& payload = json.begin().value();
    if (kind == "string") {
        return textPayload(payload, kind, path);
    }
    if (kind == "integer") {
        const std::string& text = textPayload(payload, kind, path);
        const IntegerText number = parseInteger(text);
        if (number.status != IntegerText::Status::ok) {
            notTyped(path, "\"" + text + "\" is not a 64-bit integer");
        }
        return number.value;
    }
    if (kind == "real") {
        const std::string& text = textPayload(payload, kind, path);
        const std::optional<double> number = parseReal(text);
        if (!number) {
            notTyped(path, "\"" + text + "\" is not a real");
        }
        return *number;
    }
    if (kind == "bool") {
        if (!payload.is_boolean()) {
            notTyped(path, "the content of \"bool\" is not true or false");
        }
        return payload.get<bool>();
    }
    if (kind == "date") {
        const std::string& text = textPayload(payload, kind, path);
        const std::optional<Date> date = parseDate(text, true);
        if (!date) {
            notTyped(path, "\"" + text + "\" is not a date of the form YYYY-MM-DDTHH:MM:SSZ");
        }
        return *date;
    }
    if (kind == "data") {
        std::optional<Data> bytes = base64Decode(textPayload(payload, kind, path));
        if (!bytes) {
            notTyped(path, "the content of \"data\" is not base64");
        }
        return std::move(*bytes);
    }
    if (kind == "array") {
        if (!payload.is_array()) {
            notTyped(path, "the content of \"array\" is not a JSON array");
        }
        Array array;
        array.reserve(payload.size());
        for (std::size_t index = 0; index < payload.size(); ++index) {
            path.push_back("Index " + std::to_string(index));
            array.push_back(fromJson(payload[index], path));
            path.pop_back();
        }
        return array;
    }
    if (kind == "dict") {
        if (!payload.is_object()) {
            notTyped(path, "the content of \"dict\" is not a JSON object");
        }
        std::vector<Dictionary::Entry> entries;
        entries.reserve(payload.size());
        for (const auto& [key, element] : payload.items()) {
            path.push_back(key);
            entries.emplace_back(key, fromJson(element, path));
            path.pop_back();
        }
        return Dictionary::fromEntries(std::move(entries));
    }
    notTyped(path, "\"" + kind + "\" is not a kind (string, integer, real, bool, date, data, array, dict)");
}

}  // namespace

std::string writeTypedJson(const Value& value) {
    CodingPath path;
    const Json json = toJson(value, path);
    try {
        return json.dump(2) + "\n";
    } catch (const Json::type_error&) {
        throw EncodingError({}, "a string is not UTF-8");
    }
}

Value readTypedJson(std::string_view text) {
    Json json;
    try {
        json = Json::parse(text);
    } catch (const Json::exception& error) {
        // A syntax error is a parse_error, a number beyond a double's range an out_of_range:
        // "[json.exception.parse_error.101] parse error at line 1, column 5: ..." and
        // "[json.exception.out_of_range.406] number overflow parsing '1e999'".
        const std::string message = error.what();
        throw DataCorrupted({}, "not JSON: " + message.substr(message.find("] ") + 2));
    }
    CodingPath path;
    return fromJson(json, path);
}

}  // namespace vornix::plist
