#include "base/CLocaleScope.hpp"

#include "base/FatalError.hpp"

namespace vornix::base {

namespace {

locale_t cLocale() {
    static const locale_t locale = [] {
        const locale_t made = ::newlocale(LC_ALL_MASK, "C", locale_t{});
        if (made == locale_t{}) {
            fatalError("cannot make the C locale");
        }
        return made;
    }();
    return locale;
}

}  // namespace

CLocaleScope::CLocaleScope() : previous_(::uselocale(cLocale())) {}

CLocaleScope::~CLocaleScope() { ::uselocale(previous_); }

}  // namespace vornix::base
