#include <gtest/gtest.h>

#include <cstddef>
#include <iterator>
#include <string>

#include "bitsdojo_window_macos/macos/Classes/bitsdojo_window_api.hpp"
#include "bitsdojo_window_macos/macos/Classes/tests/engine_side/RecordLayout.h"

namespace {

TEST(WindowApiLayout, EveryRecordHasTheLayoutTheEngineSideDeclaresInC) {
    static const BDWLayoutEntry library[] = {BDW_RECORD_LAYOUT};
    std::size_t count = 0;
    const BDWLayoutEntry* engine = engine_record_layout(&count);
    ASSERT_EQ(count, std::size(library));
    for (std::size_t i = 0; i < count; ++i) {
        EXPECT_EQ(std::string(engine[i].name), library[i].name);
        EXPECT_EQ(engine[i].value, library[i].value) << library[i].name;
    }
}

TEST(WindowApiLayout, RecordsArePackedDoublesAndPointers) {
    EXPECT_EQ(sizeof(_BDWRect), 4 * sizeof(double));
    EXPECT_EQ(offsetof(_BDWRect, bottom), 3 * sizeof(double));
    EXPECT_EQ(sizeof(_BDWOffset), 2 * sizeof(double));
    EXPECT_EQ(sizeof(_BDWScreenInfo), 2 * sizeof(void*));
    EXPECT_EQ(sizeof(_BDWAPI), 2 * sizeof(void*));
    EXPECT_EQ(sizeof(_BDWPrivateAPI), 2 * sizeof(void*));
}

TEST(WindowApiLayout, ThePublicTableHasTwentyOneSlotsWithVisibleBeforeMaximized) {
    EXPECT_EQ(sizeof(_BDWPublicAPI), 21 * sizeof(void*));
    EXPECT_EQ(offsetof(_BDWPublicAPI, getAppWindow), 0u);
    EXPECT_EQ(offsetof(_BDWPublicAPI, isWindowVisible), 13 * sizeof(void*));
    EXPECT_EQ(offsetof(_BDWPublicAPI, isWindowMaximized), 14 * sizeof(void*));
    EXPECT_EQ(offsetof(_BDWPublicAPI, getTitleBarHeight), 20 * sizeof(void*));
}

}  // namespace
