// Any bytes, read as the text of a get-URL event, down to where the handler would stop the
// process (not a URL, no query, a part without "="; those are the sender's defects) and no
// further: the URL parses or not, keeps its text and its parts as written, and its query
// splits into fields that join back to it.
//
// Not reached by design: in url/URL.cpp, nothing; the handler's own code in
// host/CustomURLSchemes.cpp (alerts, the engine's channel, fatal stops) is not this fuzzer's.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/SplitFields.hpp"
#include "url/URL.hpp"

namespace {

using vornix::host::splitFields;
using vornix::url::URL;

void check(bool holds) {
    if (!holds) {
        std::abort();
    }
}

std::string join(const std::vector<std::string_view>& fields, char separator) {
    std::string text;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        text += i == 0 ? "" : std::string(1, separator);
        text += fields[i];
    }
    return text;
}

void checkSplit(std::string_view text, char separator) {
    const std::vector<std::string_view> fields = splitFields(text, separator);
    check(fields.size() == static_cast<std::size_t>(std::count(text.begin(), text.end(), separator)) + 1);
    check(join(fields, separator) == text);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const std::optional<URL> url = URL::parse(text);
    if (!url) {
        return 0;
    }
    check(url->absoluteString() == text);
    check(URL::parse(url->absoluteString()) == url);
    check(url->path().find_first_of("?#") == std::string_view::npos);
    if (const auto scheme = url->scheme()) {
        check(text.starts_with(std::string(*scheme) + ":"));
    }
    std::string tail;
    if (const auto query = url->query()) {
        check(query->find('#') == std::string_view::npos);
        tail += "?" + std::string(*query);
    }
    if (const auto fragment = url->fragment()) {
        tail += "#" + std::string(*fragment);
    }
    check(text.ends_with(tail));

    const auto query = url->query();
    if (!query) {
        return 0;
    }
    checkSplit(*query, '&');
    for (std::string_view part : splitFields(*query, '&')) {
        checkSplit(part, '=');
    }
    return 0;
}
