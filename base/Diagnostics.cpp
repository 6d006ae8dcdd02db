#include "base/Diagnostics.hpp"

#include <cstdio>

namespace vornix::base {

void printLine(std::string_view line) {
    std::fwrite(line.data(), 1, line.size(), stdout);
    std::fputc('\n', stdout);
    std::fflush(stdout);
}

}  // namespace vornix::base
