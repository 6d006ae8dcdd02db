#include "plist/EncodingError.hpp"

namespace vornix::plist {

EncodingError::EncodingError(CodingPath codingPath, std::string description)
    : std::runtime_error("invalidValue" + (codingPath.empty() ? std::string() : " at " + codingPathText(codingPath)) +
                         ": " + description),
      codingPath_(std::move(codingPath)),
      description_(std::move(description)) {}

}  // namespace vornix::plist
