#include "plist/XmlWriter.hpp"

#include <algorithm>
#include <charconv>

#include "plist/Base64.hpp"
#include "plist/DateText.hpp"
#include "plist/EncodingError.hpp"
#include "plist/NumberText.hpp"

namespace vornix::plist {
namespace {

constexpr std::string_view header =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" \"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
    "<plist version=\"1.0\">\n";
constexpr std::string_view footer = "</plist>\n";

// Where the writer is, for the path of an EncodingError: built into a CodingPath only on failure.
struct Step {
    const Step* parent = nullptr;
    std::string_view key;
    std::size_t index = 0;
    bool isIndex = false;
};

CodingPath pathOf(const Step* step) {
    CodingPath path;
    for (; step != nullptr; step = step->parent) {
        path.push_back(step->isIndex ? "Index " + std::to_string(step->index) : std::string(step->key));
    }
    std::reverse(path.begin(), path.end());
    return path;
}

// The length of the UTF-8 sequence starting at `at` that XML can carry, or 0.
std::size_t sequenceLength(std::string_view text, std::size_t at) {
    const auto byte = [&](std::size_t offset) { return static_cast<unsigned char>(text[at + offset]); };
    const auto continuation = [&](std::size_t offset) { return (byte(offset) & 0xC0) == 0x80; };
    const unsigned char lead = byte(0);
    const std::size_t left = text.size() - at;
    if (lead >= 0xC2 && lead <= 0xDF) {
        return left >= 2 && continuation(1) ? 2 : 0;
    }
    if (lead >= 0xE0 && lead <= 0xEF) {
        if (left < 3 || !continuation(1) || !continuation(2)) {
            return 0;
        }
        if ((lead == 0xE0 && byte(1) < 0xA0) || (lead == 0xED && byte(1) > 0x9F)) {
            return 0;  // overlong, or a surrogate
        }
        if (lead == 0xEF && byte(1) == 0xBF && byte(2) >= 0xBE) {
            return 0;  // U+FFFE and U+FFFF are no XML characters
        }
        return 3;
    }
    if (lead >= 0xF0 && lead <= 0xF4) {
        if (left < 4 || !continuation(1) || !continuation(2) || !continuation(3)) {
            return 0;
        }
        if ((lead == 0xF0 && byte(1) < 0x90) || (lead == 0xF4 && byte(1) > 0x8F)) {
            return 0;
        }
        return 4;
    }
    return 0;
}

class Writer {
public:
    std::string finish(const Value& value) {
        out_.append(header);
        write(value, 0, nullptr);
        out_.append(footer);
        return std::move(out_);
    }

private:
    void indent(std::size_t level) { out_.append(level, '\t'); }

    void element(std::size_t level, std::string_view name, std::string_view content) {
        indent(level);
        out_ += '<';
        out_ += name;
        out_ += '>';
        out_ += content;
        out_ += "</";
        out_ += name;
        out_ += ">\n";
    }

    void escapedElement(std::size_t level, std::string_view name, std::string_view text, const Step* at) {
        indent(level);
        out_ += '<';
        out_ += name;
        out_ += '>';
        appendEscaped(text, at);
        out_ += "</";
        out_ += name;
        out_ += ">\n";
    }

    void appendEscaped(std::string_view text, const Step* at) {
        std::size_t run = 0;
        const auto replace = [&](std::size_t position, std::string_view replacement) {
            out_.append(text.substr(run, position - run));
            out_ += replacement;
            run = position + 1;
        };
        for (std::size_t position = 0; position < text.size(); ++position) {
            const auto character = static_cast<unsigned char>(text[position]);
            if (character >= 0x80) {
                const std::size_t length = sequenceLength(text, position);
                if (length == 0) {
                    throw EncodingError(pathOf(at), "the string is not UTF-8 or holds a character XML cannot carry");
                }
                position += length - 1;
                continue;
            }
            switch (character) {
                case '&': replace(position, "&amp;"); break;
                case '<': replace(position, "&lt;"); break;
                case '>': replace(position, "&gt;"); break;
                case '\r': replace(position, "&#13;"); break;
                case '\t':
                case '\n': break;
                default:
                    if (character < 0x20) {
                        throw EncodingError(pathOf(at), "the string holds the control character U+00" +
                                                            std::string{"0123456789ABCDEF"[character >> 4],
                                                                        "0123456789ABCDEF"[character & 15]});
                    }
            }
        }
        out_.append(text.substr(run));
    }

    void writeData(const Data& bytes, std::size_t level) {
        indent(level);
        out_ += "<data>\n";
        // Lines narrow by a tab's eight columns per level, down to 16 characters.
        const std::size_t indentWidth = 8 * level;
        const std::size_t lineWidth = indentWidth + 16 <= 76 ? 76 - indentWidth : 16;
        const std::size_t bytesPerLine = lineWidth / 4 * 3;
        for (std::size_t start = 0; start < bytes.size(); start += bytesPerLine) {
            indent(level);
            out_ += base64Encode(bytes.data() + start, std::min(bytesPerLine, bytes.size() - start));
            out_ += '\n';
        }
        indent(level);
        out_ += "</data>\n";
    }

    void write(const Value& value, std::size_t level, const Step* at) {
        switch (value.kind()) {
            case Value::Kind::string: escapedElement(level, "string", *value.get<std::string>(), at); return;
            case Value::Kind::integer: {
                char buffer[24];
                const auto result = std::to_chars(buffer, buffer + sizeof buffer, *value.get<std::int64_t>());
                element(level, "integer", std::string_view(buffer, static_cast<std::size_t>(result.ptr - buffer)));
                return;
            }
            case Value::Kind::real: element(level, "real", formatReal(*value.get<double>())); return;
            case Value::Kind::boolean:
                indent(level);
                out_ += *value.get<bool>() ? "<true/>\n" : "<false/>\n";
                return;
            case Value::Kind::date: {
                const std::optional<std::string> text = formatDate(*value.get<Date>());
                if (!text) {
                    throw EncodingError(pathOf(at), "the date lies outside the years 0000 to 9999");
                }
                element(level, "date", *text);
                return;
            }
            case Value::Kind::data: writeData(*value.get<Data>(), level); return;
            case Value::Kind::array: writeArray(*value.get<Array>(), level, at); return;
            case Value::Kind::dictionary: writeDictionary(*value.get<Dictionary>(), level, at); return;
        }
    }

    void writeArray(const Array& array, std::size_t level, const Step* at) {
        indent(level);
        if (array.empty()) {
            out_ += "<array/>\n";
            return;
        }
        out_ += "<array>\n";
        for (std::size_t index = 0; index < array.size(); ++index) {
            const Step step{at, {}, index, true};
            write(array[index], level + 1, &step);
        }
        indent(level);
        out_ += "</array>\n";
    }

    void writeDictionary(const Dictionary& dictionary, std::size_t level, const Step* at) {
        indent(level);
        if (dictionary.empty()) {
            out_ += "<dict/>\n";
            return;
        }
        out_ += "<dict>\n";
        for (const auto& [key, value] : dictionary) {
            const Step step{at, key, 0, false};
            escapedElement(level + 1, "key", key, &step);
            write(value, level + 1, &step);
        }
        indent(level);
        out_ += "</dict>\n";
    }

    std::string out_;
};

}  // namespace

std::string writeXml(const Value& value) { return Writer().finish(value); }

}  // namespace vornix::plist
