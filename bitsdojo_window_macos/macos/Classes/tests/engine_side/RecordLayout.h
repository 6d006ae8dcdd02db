/* Every size and field offset of the window records, listed once and measured twice: by a C
 * compiler over the engine side's declarations and by the C++ compiler over the library's own. */
#ifndef BITSDOJO_WINDOW_RECORD_LAYOUT_H
#define BITSDOJO_WINDOW_RECORD_LAYOUT_H

#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

struct BDWLayoutEntry {
    const char* name;
    size_t value;
};

/* The engine side's layout, measured in C. */
const struct BDWLayoutEntry* engine_record_layout(size_t* count);

#ifdef __cplusplus
}
#endif

#define BDW_LAYOUT_SIZE(T) {"sizeof(" #T ")", sizeof(struct T)},
#define BDW_LAYOUT_OFFSET(T, field) {"offsetof(" #T ", " #field ")", offsetof(struct T, field)},

#define BDW_RECORD_LAYOUT                                      \
    BDW_LAYOUT_SIZE(_BDWRect)                                  \
    BDW_LAYOUT_OFFSET(_BDWRect, left)                          \
    BDW_LAYOUT_OFFSET(_BDWRect, top)                           \
    BDW_LAYOUT_OFFSET(_BDWRect, right)                         \
    BDW_LAYOUT_OFFSET(_BDWRect, bottom)                        \
    BDW_LAYOUT_SIZE(_BDWOffset)                                \
    BDW_LAYOUT_OFFSET(_BDWOffset, x)                           \
    BDW_LAYOUT_OFFSET(_BDWOffset, y)                           \
    BDW_LAYOUT_SIZE(_BDWScreenInfo)                            \
    BDW_LAYOUT_OFFSET(_BDWScreenInfo, workingRect)             \
    BDW_LAYOUT_OFFSET(_BDWScreenInfo, fullRect)                \
    BDW_LAYOUT_SIZE(_BDWAPI)                                   \
    BDW_LAYOUT_OFFSET(_BDWAPI, publicAPI)                      \
    BDW_LAYOUT_OFFSET(_BDWAPI, privateAPI)                     \
    BDW_LAYOUT_SIZE(_BDWPrivateAPI)                            \
    BDW_LAYOUT_OFFSET(_BDWPrivateAPI, windowCanBeShown)        \
    BDW_LAYOUT_OFFSET(_BDWPrivateAPI, setAppWindow)            \
    BDW_LAYOUT_SIZE(_BDWPublicAPI)                             \
    BDW_LAYOUT_OFFSET(_BDWPublicAPI, getAppWindow)             \
    BDW_LAYOUT_OFFSET(_BDWPublicAPI, setWindowCanBeShown)      \
    BDW_LAYOUT_OFFSET(_BDWPublicAPI, setInsideDoWhenWindowReady) \
    BDW_LAYOUT_OFFSET(_BDWPublicAPI, showWindow)               \
    BDW_LAYOUT_OFFSET(_BDWPublicAPI, hideWindow)               \
    BDW_LAYOUT_OFFSET(_BDWPublicAPI, moveWindow)               \
    BDW_LAYOUT_OFFSET(_BDWPublicAPI, setSize)                  \
    BDW_LAYOUT_OFFSET(_BDWPublicAPI, setMinSize)               \
    BDW_LAYOUT_OFFSET(_BDWPublicAPI, setMaxSize)               \
    BDW_LAYOUT_OFFSET(_BDWPublicAPI, getScreenInfoForWindow)   \
    BDW_LAYOUT_OFFSET(_BDWPublicAPI, setPositionForWindow)     \
    BDW_LAYOUT_OFFSET(_BDWPublicAPI, setRectForWindow)         \
    BDW_LAYOUT_OFFSET(_BDWPublicAPI, getRectForWindow)         \
    BDW_LAYOUT_OFFSET(_BDWPublicAPI, isWindowVisible)          \
    BDW_LAYOUT_OFFSET(_BDWPublicAPI, isWindowMaximized)        \
    BDW_LAYOUT_OFFSET(_BDWPublicAPI, maximizeOrRestoreWindow)  \
    BDW_LAYOUT_OFFSET(_BDWPublicAPI, maximizeWindow)           \
    BDW_LAYOUT_OFFSET(_BDWPublicAPI, minimizeWindow)           \
    BDW_LAYOUT_OFFSET(_BDWPublicAPI, closeWindow)              \
    BDW_LAYOUT_OFFSET(_BDWPublicAPI, setWindowTitle)           \
    BDW_LAYOUT_OFFSET(_BDWPublicAPI, getTitleBarHeight)

#endif
