#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vornix::url {

// A URL reference as RFC 3986 defines it: absolute ("scheme://host/path?query#fragment") or
// relative without a base. Parsing refuses what the RFC's grammar refuses (a space, a bare
// "%", a character outside the allowed sets, a bad port or IP literal) and, as the platform's
// URL type does, the empty string. Components are kept exactly as written: nothing is
// percent-decoded or normalised.
class URL {
public:
    static std::optional<URL> parse(std::string_view text);

    // The whole text, as given.
    const std::string& absoluteString() const { return text_; }

    std::optional<std::string_view> scheme() const { return part(scheme_); }
    // The host of the authority, without user information, port or IP-literal brackets.
    std::optional<std::string_view> host() const { return part(host_); }
    std::optional<std::string_view> port() const { return part(port_); }
    std::string_view path() const { return std::string_view(text_).substr(path_.start, path_.length); }
    // The text after "?" up to "#", when there is a "?".
    std::optional<std::string_view> query() const { return part(query_); }
    // The text after "#", when there is a "#".
    std::optional<std::string_view> fragment() const { return part(fragment_); }

    friend bool operator==(const URL& a, const URL& b) { return a.text_ == b.text_; }

private:
    struct Range {
        std::size_t start = 0;
        std::size_t length = 0;
    };

    explicit URL(std::string text) : text_(std::move(text)) {}
    std::optional<std::string_view> part(const std::optional<Range>& range) const {
        if (!range) {
            return std::nullopt;
        }
        return std::string_view(text_).substr(range->start, range->length);
    }

    std::string text_;
    std::optional<Range> scheme_;
    std::optional<Range> host_;
    std::optional<Range> port_;
    Range path_;
    std::optional<Range> query_;
    std::optional<Range> fragment_;
};

}  // namespace vornix::url
