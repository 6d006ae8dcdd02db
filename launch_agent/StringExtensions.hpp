#pragma once

#include <cstdint>
#include <string_view>

namespace vornix::launch_agent {

// The character of `text` at `offset`, counted in characters (UTF-8 code points) from the
// start, as a text of its own. An offset outside the text is a caller's defect: fatal error.
std::string_view characterAt(std::string_view text, std::int64_t offset);

}  // namespace vornix::launch_agent
