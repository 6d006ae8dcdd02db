#pragma once

#include <string_view>
#include <vector>

namespace vornix::host {

// Splits on every `separator`, keeping empty fields: "a=" gives "a" and "", "" gives one empty
// field. Joining the fields with `separator` gives `text` back.
std::vector<std::string_view> splitFields(std::string_view text, char separator);

}  // namespace vornix::host
