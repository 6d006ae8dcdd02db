/* The engine side's record layout, as a C compiler lays it out. */
#include "bitsdojo_window_macos/macos/Classes/tests/engine_side/RecordLayout.h"
#include "bitsdojo_window_macos/macos/Classes/tests/engine_side/bitsdojo_window_engine.h"

static const struct BDWLayoutEntry entries[] = {BDW_RECORD_LAYOUT};

const struct BDWLayoutEntry* engine_record_layout(size_t* count) {
    *count = sizeof entries / sizeof entries[0];
    return entries;
}
