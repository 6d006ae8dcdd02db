#include "plist/DecodingError.hpp"

namespace vornix::plist {
namespace {

std::string message(DecodingError::Kind kind, const CodingPath& codingPath, const std::string& description) {
    std::string text(kindName(kind));
    if (!codingPath.empty()) {
        text += " at " + codingPathText(codingPath);
    }
    return text + ": " + description;
}

}  // namespace

std::string codingPathText(const CodingPath& path) {
    std::string text;
    for (const std::string& key : path) {
        if (!text.empty()) {
            text += '/';
        }
        text += key;
    }
    return text;
}

DecodingError::DecodingError(Kind kind, CodingPath codingPath, std::string description)
    : std::runtime_error(message(kind, codingPath, description)),
      kind_(kind),
      codingPath_(std::move(codingPath)),
      description_(std::move(description)) {}

std::string_view kindName(DecodingError::Kind kind) {
    switch (kind) {
        case DecodingError::Kind::keyNotFound: return "keyNotFound";
        case DecodingError::Kind::typeMismatch: return "typeMismatch";
        case DecodingError::Kind::valueNotFound: return "valueNotFound";
        case DecodingError::Kind::dataCorrupted: return "dataCorrupted";
    }
    return "unknown";
}

}  // namespace vornix::plist
