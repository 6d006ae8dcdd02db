#include "launch_agent/DesktopEntry.hpp"

#include "base/Utf8.hpp"

namespace vornix::launch_agent {

namespace {

// Characters after which the format asks for a quoted word: blanks, quotes, the backslash and
// what a shell would read as syntax.
constexpr std::string_view reservedCharacters = " \t\n\r\"'\\><~|&;$*?#()`";
// Inside double quotes these keep their backslash.
constexpr std::string_view escapedInQuotes = "\"`$\\";

// Refuses what no escape of the format can carry.
void checkWritable(std::string_view text) {
    if (!base::isUtf8(text)) {
        throw DesktopEntryError("not UTF-8, which a desktop entry cannot hold");
    }
    for (char character : text) {
        const auto code = static_cast<unsigned char>(character);
        if ((code < 0x20 && character != '\t' && character != '\n' && character != '\r') || code == 0x7F) {
            throw DesktopEntryError("a control character, which a desktop entry cannot hold");
        }
    }
}

std::string quotedWord(std::string_view word) {
    const bool plain = !word.empty() && word.find_first_of(reservedCharacters) == std::string_view::npos;
    std::string written;
    if (!plain) {
        written += '"';
    }
    for (char character : word) {
        if (!plain && escapedInQuotes.find(character) != std::string_view::npos) {
            written += '\\';
        }
        written += character;
        if (character == '%') {
            written += '%';
        }
    }
    if (!plain) {
        written += '"';
    }
    return written;
}

// The value with the string escapes taken out.
std::string unescapedValue(std::string_view value) {
    std::string text;
    for (std::size_t index = 0; index < value.size(); ++index) {
        if (value[index] != '\\') {
            text += value[index];
            continue;
        }
        if (++index == value.size()) {
            throw DesktopEntryError("a value ends in a lone backslash");
        }
        switch (value[index]) {
            case 's':
                text += ' ';
                break;
            case 'n':
                text += '\n';
                break;
            case 't':
                text += '\t';
                break;
            case 'r':
                text += '\r';
                break;
            case '\\':
                text += '\\';
                break;
            default:
                throw DesktopEntryError(std::string("an unknown escape \\") + value[index]);
        }
    }
    return text;
}

}  // namespace

std::string escapedValue(std::string_view text) {
    checkWritable(text);
    std::string written;
    for (std::size_t index = 0; index < text.size(); ++index) {
        const char character = text[index];
        switch (character) {
            case '\\':
                written += "\\\\";
                break;
            case '\n':
                written += "\\n";
                break;
            case '\t':
                written += "\\t";
                break;
            case '\r':
                written += "\\r";
                break;
            case ' ':
                written += index == 0 || index + 1 == text.size() ? "\\s" : " ";
                break;
            default:
                written += character;
        }
    }
    return written;
}

std::string execValue(const std::vector<std::string>& words) {
    if (words.empty()) {
        throw DesktopEntryError("a command line needs a program");
    }
    std::string line;
    for (const std::string& word : words) {
        checkWritable(word);
        if (!line.empty()) {
            line += ' ';
        }
        line += quotedWord(word);
    }
    return escapedValue(line);
}

std::vector<std::string> execWords(std::string_view value) {
    const std::string line = unescapedValue(value);
    std::vector<std::string> words;
    std::string word;
    bool inWord = false;
    bool quoted = false;
    for (std::size_t index = 0; index < line.size(); ++index) {
        const char character = line[index];
        if (character == '%') {
            if (index + 1 == line.size() || line[index + 1] != '%') {
                throw DesktopEntryError("a field code in a command line that should have none");
            }
            ++index;
            word += '%';
            inWord = true;
        } else if (quoted) {
            if (character == '"') {
                quoted = false;
            } else if (character == '\\') {
                if (index + 1 == line.size() || escapedInQuotes.find(line[index + 1]) == std::string_view::npos) {
                    throw DesktopEntryError("a backslash in quotes before a character that needs none");
                }
                word += line[++index];
            } else {
                word += character;
            }
        } else if (character == ' ') {
            if (inWord) {
                words.push_back(std::move(word));
                word.clear();
                inWord = false;
            }
        } else if (character == '"') {
            quoted = true;
            inWord = true;
        } else if (reservedCharacters.find(character) != std::string_view::npos) {
            throw DesktopEntryError(std::string("a reserved character outside quotes: ") + character);
        } else {
            word += character;
            inWord = true;
        }
    }
    if (quoted) {
        throw DesktopEntryError("a quote that is not closed");
    }
    if (inWord) {
        words.push_back(std::move(word));
    }
    return words;
}

std::map<std::string, std::string> desktopEntryKeys(std::string_view text) {
    std::map<std::string, std::string> keys;
    bool inGroup = false;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        std::string_view line = text.substr(0, end);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        if (line.ends_with('\r')) {
            line.remove_suffix(1);
        }
        if (line.starts_with('[')) {
            inGroup = line == "[Desktop Entry]";
            continue;
        }
        const std::size_t equals = line.find('=');
        if (!inGroup || line.starts_with('#') || equals == std::string_view::npos) {
            continue;
        }
        std::string_view key = line.substr(0, equals);
        std::string_view value = line.substr(equals + 1);
        while (key.ends_with(' ')) {
            key.remove_suffix(1);
        }
        while (value.starts_with(' ')) {
            value.remove_prefix(1);
        }
        keys[std::string(key)] = std::string(value);
    }
    return keys;
}

}  // namespace vornix::launch_agent
