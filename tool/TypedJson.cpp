#include "tool/TypedJson.hpp"

#include <charconv>
#include <cstdint>
#include <limits>
#include <system_error>
#include <type_traits>
#include <vector>

#include "base/RealText.hpp"
#include "engine/ValueReader.hpp"
#include "tool/Hex.hpp"

namespace vornix::tool {
namespace {

using nlohmann::json;
using engine::EncodableValue;

template <class T>
std::string numberText(T number) {
    if constexpr (std::is_floating_point_v<T>) {
        return base::shortestText(number);
    } else {
        char buffer[32];
        const auto result = std::to_chars(buffer, buffer + sizeof buffer, number);
        return std::string(buffer, result.ptr);
    }
}

template <class T>
json numberTexts(const std::vector<T>& numbers) {
    json texts = json::array();
    for (T number : numbers) {
        texts.push_back(numberText(number));
    }
    return texts;
}

class Reader {
public:
    EncodableValue value(const json& node, const std::string& path, int depth) {
        if (!node.is_object() || node.size() != 1) {
            fail(path, "a value is an object with one member naming its type, such as {\"int32\": \"5\"}");
        }
        const std::string& type = node.begin().key();
        const json& content = node.begin().value();
        const std::string inside = path + "." + type;
        if (type == "null") {
            if (!content.is_null()) fail(inside, "null takes null");
            return EncodableValue();
        }
        if (type == "bool") {
            if (!content.is_boolean()) fail(inside, "bool takes true or false");
            return content.get<bool>();
        }
        if (type == "int32") return number<std::int32_t>(content, inside);
        if (type == "int64") return number<std::int64_t>(content, inside);
        if (type == "double") return number<double>(content, inside);
        if (type == "string") {
            if (!content.is_string()) fail(inside, "string takes a JSON string");
            return content.get<std::string>();
        }
        if (type == "uint8list") return bytes(content, inside);
        if (type == "int32list") return numbers<std::int32_t>(content, inside);
        if (type == "int64list") return numbers<std::int64_t>(content, inside);
        if (type == "float32list") return numbers<float>(content, inside);
        if (type == "float64list") return numbers<double>(content, inside);
        if (type == "list" || type == "map") {
            if (depth >= engine::ValueReader::maxNesting) {
                fail(inside, "lists and maps nested deeper than " + std::to_string(engine::ValueReader::maxNesting));
            }
            if (!content.is_array()) fail(inside, type + " takes a JSON array");
            return type == "list" ? list(content, inside, depth) : map(content, inside, depth);
        }
        fail(path, "unknown type \"" + type + "\"");
    }

private:
    [[noreturn]] static void fail(const std::string& path, const std::string& problem) {
        throw TypedJsonError("at " + path + ": " + problem);
    }

    template <class T>
    static T number(const json& content, const std::string& path) {
        if (!content.is_string()) {
            fail(path, "numbers are written as JSON strings, such as \"5\"");
        }
        const std::string& text = content.get_ref<const std::string&>();
        T number{};
        bool outOfRange = false;
        bool whole = false;
        if constexpr (std::is_floating_point_v<T>) {
            const base::RealReading<T> reading = base::readRealPrefix<T>(text);
            using Status = typename base::RealReading<T>::Status;
            number = reading.value;
            outOfRange = reading.status == Status::outOfRange;
            whole = reading.status == Status::ok && reading.length == text.size();
        } else {
            const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
            outOfRange = result.ec == std::errc::result_out_of_range;
            whole = result.ec == std::errc() && result.ptr == text.data() + text.size();
        }
        if (outOfRange) {
            fail(path, "\"" + text + "\" is out of range");
        }
        if (!whole || text.empty()) {
            fail(path, "\"" + text + "\" is not a " + (std::is_integral_v<T> ? "decimal integer" : "number"));
        }
        return number;
    }

    template <class T>
    static std::vector<T> numbers(const json& content, const std::string& path) {
        if (!content.is_array()) fail(path, "typed lists take a JSON array of strings");
        std::vector<T> result;
        result.reserve(content.size());
        for (std::size_t i = 0; i < content.size(); ++i) {
            result.push_back(number<T>(content[i], path + "[" + std::to_string(i) + "]"));
        }
        return result;
    }

    static std::vector<std::uint8_t> bytes(const json& content, const std::string& path) {
        if (!content.is_string()) fail(path, "uint8list takes a string of hex digits");
        try {
            return fromHex(content.get_ref<const std::string&>());
        } catch (const std::invalid_argument& error) {
            fail(path, error.what());
        }
    }

    EncodableValue list(const json& content, const std::string& path, int depth) {
        engine::EncodableList items;
        items.reserve(content.size());
        for (std::size_t i = 0; i < content.size(); ++i) {
            items.push_back(value(content[i], path + "[" + std::to_string(i) + "]", depth + 1));
        }
        return items;
    }

    EncodableValue map(const json& content, const std::string& path, int depth) {
        std::vector<engine::EncodableMap::Entry> entries;
        entries.reserve(content.size());
        for (std::size_t i = 0; i < content.size(); ++i) {
            const std::string at = path + "[" + std::to_string(i) + "]";
            if (!content[i].is_array() || content[i].size() != 2) {
                fail(at, "a map entry is a pair [key, value]");
            }
            EncodableValue key = value(content[i][0], at + "[0]", depth + 1);
            EncodableValue item = value(content[i][1], at + "[1]", depth + 1);
            entries.emplace_back(std::move(key), std::move(item));
        }
        return engine::EncodableMap::fromEntries(std::move(entries));
    }
};

}  // namespace

json toTypedJson(const EncodableValue& value) {
    const std::string type(engine::kindName(value.kind()));
    switch (value.kind()) {
        case EncodableValue::Kind::null: return {{type, nullptr}};
        case EncodableValue::Kind::boolean: return {{type, *value.get<bool>()}};
        case EncodableValue::Kind::int32: return {{type, numberText(*value.get<std::int32_t>())}};
        case EncodableValue::Kind::int64: return {{type, numberText(*value.get<std::int64_t>())}};
        case EncodableValue::Kind::float64: return {{type, numberText(*value.get<double>())}};
        case EncodableValue::Kind::string: return {{type, *value.get<std::string>()}};
        case EncodableValue::Kind::uint8List: return {{type, toHex(*value.get<std::vector<std::uint8_t>>())}};
        case EncodableValue::Kind::int32List: return {{type, numberTexts(*value.get<std::vector<std::int32_t>>())}};
        case EncodableValue::Kind::int64List: return {{type, numberTexts(*value.get<std::vector<std::int64_t>>())}};
        case EncodableValue::Kind::float32List: return {{type, numberTexts(*value.get<std::vector<float>>())}};
        case EncodableValue::Kind::float64List: return {{type, numberTexts(*value.get<std::vector<double>>())}};
        case EncodableValue::Kind::list: {
            json items = json::array();
            for (const EncodableValue& item : *value.get<engine::EncodableList>()) {
                items.push_back(toTypedJson(item));
            }
            return {{type, items}};
        }
        case EncodableValue::Kind::map: {
            json entries = json::array();
            for (const auto& [key, item] : *value.get<engine::EncodableMap>()) {
                entries.push_back(json::array({toTypedJson(key), toTypedJson(item)}));
            }
            return {{type, entries}};
        }
    }
    return nullptr;
}

EncodableValue fromTypedJson(const json& json) { return Reader().value(json, "$", 0); }

json parseJson(std::string_view text) {
    try {
        return json::parse(text);
    } catch (const json::exception& error) {
        // A syntax error is a parse_error, a number beyond a double's range an out_of_range.
        throw NotJsonError(error.what());
    }
}

}  // namespace vornix::tool
