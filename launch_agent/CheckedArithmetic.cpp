#include "launch_agent/CheckedArithmetic.hpp"

#include <string>

#include "base/FatalError.hpp"

namespace vornix::launch_agent {
namespace {

[[noreturn]] void overflow(std::int64_t left, char operation, std::int64_t right) {
    base::fatalError("arithmetic overflow: " + std::to_string(left) + ' ' + operation + ' ' + std::to_string(right));
}

}  // namespace

std::int64_t checkedAdd(std::int64_t left, std::int64_t right) {
    std::int64_t result = 0;
    if (__builtin_add_overflow(left, right, &result)) {
        overflow(left, '+', right);
    }
    return result;
}

std::int64_t checkedSubtract(std::int64_t left, std::int64_t right) {
    std::int64_t result = 0;
    if (__builtin_sub_overflow(left, right, &result)) {
        overflow(left, '-', right);
    }
    return result;
}

std::int64_t checkedMultiply(std::int64_t left, std::int64_t right) {
    std::int64_t result = 0;
    if (__builtin_mul_overflow(left, right, &result)) {
        overflow(left, '*', right);
    }
    return result;
}

}  // namespace vornix::launch_agent
