#pragma once

#include <locale.h>
#if defined(__APPLE__)
#include <xlocale.h>
#endif

namespace vornix::base {

// While it lives, the calling thread's C library reads and prints numbers in the "C" locale,
// whatever locale the application set (a desktop toolkit sets the user's, where the decimal
// point may be a comma). Other threads are not touched.
class CLocaleScope {
public:
    CLocaleScope();
    ~CLocaleScope();
    CLocaleScope(const CLocaleScope&) = delete;
    CLocaleScope& operator=(const CLocaleScope&) = delete;

private:
    locale_t previous_;
};

}  // namespace vornix::base
