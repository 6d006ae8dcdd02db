#include "plist/XmlReader.hpp"

#include <expat.h>

#include <climits>
#include <cstring>
#include <exception>
#include <iterator>
#include <memory>
#include <optional>
#include <random>

#include "plist/Base64.hpp"
#include "plist/DateText.hpp"
#include "plist/DecodingError.hpp"
#include "plist/NumberText.hpp"

namespace vornix::plist {
namespace {

enum class Element { plist, array, dict, key, string, integer, real, date, data, trueValue, falseValue, unknown };

Element elementNamed(const char* name) {
    // Dispatch on the first letter: the names are few and known.
    switch (name[0]) {
        case 'a': return std::strcmp(name, "array") == 0 ? Element::array : Element::unknown;
        case 'd':
            if (std::strcmp(name, "dict") == 0) return Element::dict;
            if (std::strcmp(name, "data") == 0) return Element::data;
            if (std::strcmp(name, "date") == 0) return Element::date;
            return Element::unknown;
        case 'f': return std::strcmp(name, "false") == 0 ? Element::falseValue : Element::unknown;
        case 'i': return std::strcmp(name, "integer") == 0 ? Element::integer : Element::unknown;
        case 'k': return std::strcmp(name, "key") == 0 ? Element::key : Element::unknown;
        case 'p': return std::strcmp(name, "plist") == 0 ? Element::plist : Element::unknown;
        case 'r': return std::strcmp(name, "real") == 0 ? Element::real : Element::unknown;
        case 's': return std::strcmp(name, "string") == 0 ? Element::string : Element::unknown;
        case 't': return std::strcmp(name, "true") == 0 ? Element::trueValue : Element::unknown;
        default: return Element::unknown;
    }
}

std::string_view elementName(Element element) {
    switch (element) {
        case Element::plist: return "plist";
        case Element::array: return "array";
        case Element::dict: return "dict";
        case Element::key: return "key";
        case Element::string: return "string";
        case Element::integer: return "integer";
        case Element::real: return "real";
        case Element::date: return "date";
        case Element::data: return "data";
        case Element::trueValue: return "true";
        case Element::falseValue: return "false";
        case Element::unknown: break;
    }
    return "unknown";
}

bool allXmlSpace(const char* text, int length) {
    for (int index = 0; index < length; ++index) {
        if (!isXmlSpace(text[index])) {
            return false;
        }
    }
    return true;
}

struct ParserDeleter {
    void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
};

// One salt per process for expat's hash tables: still unknown to an author of a document
// (so colliding attribute names cannot flood them), without a system call per parser.
unsigned long processHashSalt() {
    static const unsigned long salt = [] {
        std::random_device device;
        return (static_cast<unsigned long>(device()) << 32 | device()) | 1;
    }();
    return salt;
}

// Builds the value while expat walks the document. Finished values wait on one shared stack
// (dictionary entries on another) until their container closes, so a container takes exactly
// one allocation for its elements. Errors stop the parser from inside a handler and are thrown
// once expat has returned, never across its C frames.
//
// Each thread keeps one reader, and with it one expat parser and the stacks' capacity: setting
// them up anew costs more than the parse of a small job file.
class Reader {
public:
    Value read(std::string_view bytes) {
        if (bytes.size() > static_cast<std::size_t>(INT_MAX)) {
            throw DataCorrupted({}, "the document is larger than 2 GiB");
        }
        const Cleanup cleanup{*this};
        resetParser();
        const XML_Status status = XML_Parse(parser_, bytes.data(), static_cast<int>(bytes.size()), XML_TRUE);
        if (failure_) {
            std::rethrow_exception(failure_);
        }
        if (status != XML_STATUS_OK) {
            throw positioned(XML_ErrorString(XML_GetErrorCode(parser_)));
        }
        if (!result_) {
            throw DataCorrupted({}, "the document holds no property-list value");
        }
        return std::move(*result_);
    }

private:
    static constexpr std::size_t maximumDepth = 512;
    static constexpr std::size_t textCapacityKept = 64 * 1024;

    struct Frame {
        explicit Frame(Element kind, std::size_t first = 0) : element(kind), firstItem(first) {}

        Element element;
        std::size_t firstItem = 0;  // dictionaries: first entry; arrays: first item
        bool keyPending = false;    // dictionaries: a <key> waits for its value
        bool hasValue = false;      // <plist>: holds its one value
        std::string key;            // dictionaries: the pending key
    };

    // Leaves the reader empty after every read, finished or failed, keeping only capacity.
    struct Cleanup {
        Reader& reader;
        ~Cleanup() {
            reader.failure_ = nullptr;
            reader.frames_.clear();
            reader.items_.clear();
            reader.entries_.clear();
            reader.leaf_.reset();
            reader.result_.reset();
            reader.text_.clear();
            if (reader.text_.capacity() > textCapacityKept) {
                reader.text_.shrink_to_fit();
            }
        }
    };

    void resetParser() {
        if (!parserStorage_) {
            parserStorage_.reset(XML_ParserCreate(nullptr));
        } else if (!XML_ParserReset(parserStorage_.get(), nullptr)) {
            parserStorage_.reset();
        }
        if (!parserStorage_) {
            throw std::bad_alloc();
        }
        parser_ = parserStorage_.get();
        XML_SetHashSalt(parser_, processHashSalt());
        XML_SetUserData(parser_, this);
        XML_SetElementHandler(parser_, &Reader::onStart, &Reader::onEnd);
        XML_SetCharacterDataHandler(parser_, &Reader::onText);
        XML_SetEntityDeclHandler(parser_, &Reader::onEntityDeclaration);
        // With an external DTD subset (every plist names one) expat skips undeclared entities
        // instead of failing; they are errors here, as no DTD is ever loaded.
        XML_SetSkippedEntityHandler(parser_, &Reader::onSkippedEntity);
    }

    static Reader& self(void* data) { return *static_cast<Reader*>(data); }

    DataCorrupted positioned(std::string_view why) const {
        const auto line = XML_GetCurrentLineNumber(parser_);
        const auto column = XML_GetCurrentColumnNumber(parser_) + 1;
        return DataCorrupted(
            {}, "line " + std::to_string(line) + ", column " + std::to_string(column) + ": " + std::string(why));
    }

    // Stops the parse from inside a handler; read() throws the error once expat returns.
    void fail(std::string_view why) {
        if (failure_) {
            return;
        }
        failure_ = std::make_exception_ptr(positioned(why));
        XML_StopParser(parser_, XML_FALSE);
    }

    template <class Body>
    void guarded(Body&& body) {
        if (failure_) {
            return;
        }
        try {
            body();
        } catch (...) {
            failure_ = std::current_exception();
            XML_StopParser(parser_, XML_FALSE);
        }
    }

    static void XMLCALL onStart(void* data, const XML_Char* name, const XML_Char**) {
        Reader& reader = self(data);
        reader.guarded([&] { reader.start(name); });
    }

    static void XMLCALL onEnd(void* data, const XML_Char*) {
        Reader& reader = self(data);
        reader.guarded([&] { reader.end(); });
    }

    static void XMLCALL onText(void* data, const XML_Char* text, int length) {
        Reader& reader = self(data);
        reader.guarded([&] {
            if (reader.leaf_) {
                reader.text_.append(text, static_cast<std::size_t>(length));
            } else if (!allXmlSpace(text, length)) {
                reader.fail("text between elements");
            }
        });
    }

    static void XMLCALL onEntityDeclaration(void* data, const XML_Char* name, int, const XML_Char*, int,
                                           const XML_Char*, const XML_Char*, const XML_Char*, const XML_Char*) {
        Reader& reader = self(data);
        reader.guarded([&] { reader.fail("the document declares the entity \"" + std::string(name) + "\""); });
    }

    static void XMLCALL onSkippedEntity(void* data, const XML_Char* name, int) {
        Reader& reader = self(data);
        reader.guarded([&] { reader.fail("undefined entity \"" + std::string(name) + "\""); });
    }

    void start(const char* name) {
        if (leaf_) {
            fail("element <" + std::string(name) + "> inside <" + std::string(elementName(*leaf_)) + ">");
            return;
        }
        const Element element = elementNamed(name);
        if (element == Element::unknown) {
            fail("unknown element <" + std::string(name) + ">");
            return;
        }
        if (element == Element::plist) {
            if (!frames_.empty() || result_) {
                fail("<plist> inside a value");
                return;
            }
            frames_.emplace_back(Element::plist);
            return;
        }
        if (element == Element::key) {
            if (frames_.empty() || frames_.back().element != Element::dict) {
                fail("<key> outside a dictionary");
                return;
            }
            if (frames_.back().keyPending) {
                fail("the key \"" + frames_.back().key + "\" has no value");
                return;
            }
        } else if (!frames_.empty() && frames_.back().element == Element::dict && !frames_.back().keyPending) {
            fail("<" + std::string(name) + "> in a dictionary without a <key> before it");
            return;
        }
        if (element == Element::array || element == Element::dict) {
            const bool wrapped = !frames_.empty() && frames_.front().element == Element::plist;
            if (frames_.size() - (wrapped ? 1 : 0) >= maximumDepth) {
                fail("containers nested deeper than " + std::to_string(maximumDepth) + " levels");
                return;
            }
            frames_.emplace_back(element, element == Element::dict ? entries_.size() : items_.size());
            return;
        }
        leaf_ = element;
        text_.clear();
    }

    void end() {
        if (leaf_) {
            const Element element = *leaf_;
            leaf_.reset();
            if (element == Element::key) {
                frames_.back().key.swap(text_);
                frames_.back().keyPending = true;
                return;
            }
            finishLeaf(element);
            return;
        }
        const Frame frame = std::move(frames_.back());
        frames_.pop_back();
        switch (frame.element) {
            case Element::plist:
                if (!frame.hasValue) {
                    fail("<plist> holds no value");
                }
                return;
            case Element::array: {
                Array array(std::make_move_iterator(items_.begin() + static_cast<std::ptrdiff_t>(frame.firstItem)),
                            std::make_move_iterator(items_.end()));
                items_.resize(frame.firstItem);
                add(std::move(array));
                return;
            }
            default: {
                if (frame.keyPending) {
                    fail("the key \"" + frame.key + "\" has no value");
                    return;
                }
                std::vector<Dictionary::Entry> entries(
                    std::make_move_iterator(entries_.begin() + static_cast<std::ptrdiff_t>(frame.firstItem)),
                    std::make_move_iterator(entries_.end()));
                entries_.resize(frame.firstItem);
                add(Dictionary::fromEntries(std::move(entries)));
                return;
            }
        }
    }

    // Turns the text of a finished leaf element into its value and adds it to its container.
    void finishLeaf(Element element) {
        switch (element) {
            case Element::string:
                add(Value(std::move(text_)));
                text_.clear();
                return;
            case Element::integer: {
                const IntegerText number = parseInteger(text_);
                if (number.status == IntegerText::Status::ok) {
                    add(Value(number.value));
                } else {
                    fail(number.status == IntegerText::Status::outOfRange
                             ? "the integer \"" + text_ + "\" does not fit in 64 bits"
                             : "\"" + text_ + "\" is not an integer");
                }
                return;
            }
            case Element::real:
                if (const std::optional<double> number = parseReal(text_)) {
                    add(Value(*number));
                } else {
                    fail("\"" + text_ + "\" is not a real");
                }
                return;
            case Element::date:
                if (const std::optional<Date> date = parseDate(trimXmlSpace(text_))) {
                    add(Value(*date));
                } else {
                    fail("\"" + text_ + "\" is not a date of the form YYYY-MM-DDTHH:MM:SSZ");
                }
                return;
            case Element::data:
                if (std::optional<Data> bytes = base64Decode(text_)) {
                    add(Value(std::move(*bytes)));
                } else {
                    fail("the data is not base64");
                }
                return;
            default:
                if (!allXmlSpace(text_.data(), static_cast<int>(text_.size()))) {
                    fail("text inside <" + std::string(elementName(element)) + "/>");
                    return;
                }
                add(Value(element == Element::trueValue));
                return;
        }
    }

    void add(Value&& value) {
        if (frames_.empty()) {
            result_ = std::move(value);
            return;
        }
        Frame& parent = frames_.back();
        switch (parent.element) {
            case Element::plist:
                if (parent.hasValue) {
                    fail("<plist> holds more than one value");
                    return;
                }
                parent.hasValue = true;
                result_ = std::move(value);
                return;
            case Element::array: items_.push_back(std::move(value)); return;
            default:
                entries_.emplace_back(std::move(parent.key), std::move(value));
                parent.keyPending = false;
                return;
        }
    }

    std::unique_ptr<XML_ParserStruct, ParserDeleter> parserStorage_;
    XML_Parser parser_ = nullptr;
    std::exception_ptr failure_;
    std::vector<Frame> frames_;
    std::vector<Value> items_;
    std::vector<Dictionary::Entry> entries_;
    std::optional<Element> leaf_;
    std::string text_;
    std::optional<Value> result_;
};

}  // namespace

Value readXml(std::string_view bytes) {
    thread_local Reader reader;
    return reader.read(bytes);
}

}  // namespace vornix::plist
