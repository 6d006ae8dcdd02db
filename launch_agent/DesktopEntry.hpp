#pragma once

#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace vornix::launch_agent {

// A text that a desktop entry cannot hold: not UTF-8, or with a control character other than
// tab, line feed and carriage return (which have escapes), or a NUL.
class DesktopEntryError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// The Desktop Entry format's escapes for a value of type string: backslash, line feed, tab and
// carriage return as "\\", "\n", "\t", "\r", and a blank at either end as "\s" (readers drop
// blanks around the value otherwise). Throws DesktopEntryError for what cannot be written.
std::string escapedValue(std::string_view text);

// The Exec value (as it stands after "Exec=" in the file) that makes a launcher run exactly
// these argument words, the first being the program. A word that holds a character the format
// reserves, or is empty, is written in double quotes with '"', '`', '$' and '\' escaped by a
// backslash; every '%' is doubled, so no word is read as a field code; then the whole value
// gets the string escapes of `escapedValue`. Throws DesktopEntryError for an empty list or a
// word that cannot be written.
std::string execValue(const std::vector<std::string>& words);

// The argument words of an Exec value, the inverse of execValue: string escapes first, "%%"
// to "%", then quoting. Throws DesktopEntryError for a value the format does not allow (an
// unknown escape, an unterminated quote, a reserved character outside quotes, a field code).
std::vector<std::string> execWords(std::string_view value);

// The keys of the "[Desktop Entry]" group of an entry's text, with their values as written.
// Comments, blank lines and other groups are skipped; a repeated key keeps its last value.
std::map<std::string, std::string> desktopEntryKeys(std::string_view text);

}  // namespace vornix::launch_agent
