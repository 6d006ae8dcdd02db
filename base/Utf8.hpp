#pragma once

#include <string_view>

namespace vornix::base {

// Whether `bytes` is well-formed UTF-8: no stray continuation byte, no overlong form, no
// surrogate, nothing beyond U+10FFFF.
bool isUtf8(std::string_view bytes);

}  // namespace vornix::base
