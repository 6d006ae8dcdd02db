#include "updates/AppcastParser.hpp"

#include <expat.h>

#include <climits>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vornix::updates {

namespace {

// Expat hands over namespaced names as "<namespace URI><separator><local name>".
constexpr char namespaceSeparator = ' ';

std::string sparkleName(std::string_view local) {
    return std::string(sparkleNamespace) + namespaceSeparator + std::string(local);
}

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(" \t\r\n");
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

class Reader {
public:
    Reader(XML_Parser parser, const AppcastLimits& limits) : parser_(parser), limits_(limits) {}

    void start(const XML_Char* name, const XML_Char** attributes) {
        path_.emplace_back(name);
        if (path_.size() > limits_.maxDepth) {
            return fail("elements are nested more than " + std::to_string(limits_.maxDepth) + " deep");
        }
        if (path_.size() == 1 && path_[0] != "rss") {
            return fail("the document is not an RSS feed (its root element is <" + path_[0] + ">)");
        }
        if (isAt({"rss", "channel"})) {
            sawChannel_ = true;
        } else if (isAt({"rss", "channel", "title"})) {
            collectInto(appcast_.title);
        } else if (isAt({"rss", "channel", "item"})) {
            if (appcast_.items.size() >= limits_.maxItems) {
                return fail("the feed has more than " + std::to_string(limits_.maxItems) + " items");
            }
            item_.emplace();
        } else if (item_ && path_.size() == 4) {
            startItemChild(path_[3], attributes);
        }
    }

    void end() {
        if (target_ && path_.size() == targetDepth_) {
            *target_ = std::string(trimmed(text_));
            target_ = nullptr;
            text_.clear();
        }
        if (item_ && isAt({"rss", "channel", "item"})) {
            appcast_.items.push_back(std::move(*item_));
            item_.reset();
        }
        path_.pop_back();
    }

    void characters(const XML_Char* text, int length) {
        if (!target_) {
            return;
        }
        if (text_.size() + static_cast<std::size_t>(length) > limits_.maxFieldBytes) {
            return fail("a value is longer than " + std::to_string(limits_.maxFieldBytes) + " bytes");
        }
        text_.append(text, static_cast<std::size_t>(length));
    }

    // Entities could expand without bound; an appcast never needs to declare any.
    void entityDeclared() { fail("the feed declares entities, which are not accepted"); }

    Appcast finish() {
        if (!sawChannel_) {
            throw AppcastError("the feed has no channel");
        }
        return std::move(appcast_);
    }

    const std::optional<std::string>& failure() const { return failure_; }

private:
    bool isAt(std::initializer_list<std::string_view> names) const {
        if (names.size() != path_.size()) {
            return false;
        }
        auto element = path_.begin();
        for (std::string_view name : names) {
            if (*element++ != name) {
                return false;
            }
        }
        return true;
    }

    void startItemChild(const std::string& name, const XML_Char** attributes) {
        AppcastItem& item = *item_;
        if (name == "title") {
            collectInto(item.title);
        } else if (name == "link") {
            collectInto(item.link);
        } else if (name == sparkleName("version")) {
            collectInto(item.version);
        } else if (name == sparkleName("shortVersionString")) {
            collectInto(item.shortVersionString);
        } else if (name == sparkleName("releaseNotesLink")) {
            collectInto(item.releaseNotesLink);
        } else if (name == sparkleName("minimumSystemVersion")) {
            collectInto(item.minimumSystemVersion);
        } else if (name == "enclosure" && item.enclosureUrl.empty()) {
            readEnclosure(item, attributes);
        }
    }

    // The enclosure's version attributes are the older way to give the version; the item's own
    // elements win when both are there.
    void readEnclosure(AppcastItem& item, const XML_Char** attributes) {
        for (const XML_Char** attribute = attributes; attribute[0] != nullptr; attribute += 2) {
            const std::string_view name = attribute[0];
            const std::string_view value = attribute[1];
            if (value.size() > limits_.maxFieldBytes) {
                return fail("a value is longer than " + std::to_string(limits_.maxFieldBytes) + " bytes");
            }
            if (name == "url") {
                item.enclosureUrl = trimmed(value);
            } else if (name == sparkleName("version") && item.version.empty()) {
                item.version = trimmed(value);
            } else if (name == sparkleName("shortVersionString") && item.shortVersionString.empty()) {
                item.shortVersionString = trimmed(value);
            }
        }
    }

    void collectInto(std::string& field) {
        target_ = &field;
        targetDepth_ = path_.size();
        text_.clear();
    }

    void fail(std::string reason) {
        if (!failure_) {
            failure_ = std::move(reason);
            XML_StopParser(parser_, XML_FALSE);
        }
    }

    XML_Parser parser_;
    const AppcastLimits& limits_;
    Appcast appcast_;
    std::vector<std::string> path_;
    std::optional<AppcastItem> item_;
    bool sawChannel_ = false;
    std::string* target_ = nullptr;
    std::size_t targetDepth_ = 0;
    std::string text_;
    std::optional<std::string> failure_;
};

Reader& readerOf(void* data) { return *static_cast<Reader*>(data); }

void onStart(void* data, const XML_Char* name, const XML_Char** attributes) { readerOf(data).start(name, attributes); }
void onEnd(void* data, const XML_Char*) { readerOf(data).end(); }
void onCharacters(void* data, const XML_Char* text, int length) { readerOf(data).characters(text, length); }
void onEntityDeclaration(void* data, const XML_Char*, int, const XML_Char*, int, const XML_Char*, const XML_Char*,
                         const XML_Char*, const XML_Char*) {
    readerOf(data).entityDeclared();
}

struct ParserFree {
    void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
};

}  // namespace

Appcast parseAppcast(std::string_view xml, const AppcastLimits& limits) {
    if (xml.size() > limits.maxBytes || xml.size() > static_cast<std::size_t>(INT_MAX)) {
        throw AppcastError("the feed is larger than " + std::to_string(limits.maxBytes) + " bytes");
    }
    std::unique_ptr<XML_ParserStruct, ParserFree> parser(XML_ParserCreateNS(nullptr, namespaceSeparator));
    if (!parser) {
        throw std::bad_alloc();
    }
    Reader reader(parser.get(), limits);
    XML_SetUserData(parser.get(), &reader);
    XML_SetElementHandler(parser.get(), onStart, onEnd);
    XML_SetCharacterDataHandler(parser.get(), onCharacters);
    XML_SetEntityDeclHandler(parser.get(), onEntityDeclaration);

    if (XML_Parse(parser.get(), xml.data(), static_cast<int>(xml.size()), XML_TRUE) != XML_STATUS_OK) {
        const auto line = std::to_string(XML_GetCurrentLineNumber(parser.get()));
        if (reader.failure()) {
            throw AppcastError(*reader.failure() + " (line " + line + ")");
        }
        throw AppcastError(std::string(XML_ErrorString(XML_GetErrorCode(parser.get()))) + " (line " + line + ")");
    }
    return reader.finish();
}

}  // namespace vornix::updates
