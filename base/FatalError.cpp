#include "base/FatalError.hpp"

#include <cstdio>
#include <cstdlib>

namespace vornix::base {

void fatalError(std::string_view cause) {
    std::fprintf(stderr, "Fatal error: %.*s\n", static_cast<int>(cause.size()), cause.data());
    std::fflush(stderr);
    std::abort();
}

}  // namespace vornix::base
