/* The window function table as the engine side declares it for its foreign-function calls:
 * written from the engine side's point of view, independently of the library's own header, so
 * that tests can hold the library to it. The window is an opaque pointer to the engine side. */
#ifndef BITSDOJO_WINDOW_ENGINE_H
#define BITSDOJO_WINDOW_ENGINE_H

#include <stdbool.h>

#ifdef __cplusplus
extern "C" {
#endif

#define BDW_ENGINE_API_SYMBOL "bitsdojo_window_api"

typedef struct _BDWRect {
    double left;
    double top;
    double right;
    double bottom;
} _BDWRect;

typedef struct _BDWOffset {
    double x;
    double y;
} _BDWOffset;

typedef struct _BDWScreenInfo {
    _BDWRect* workingRect;
    _BDWRect* fullRect;
} _BDWScreenInfo;

typedef struct _BDWPublicAPI {
    void* (*getAppWindow)(void);
    void (*setWindowCanBeShown)(bool value);
    void (*setInsideDoWhenWindowReady)(bool value);
    void (*showWindow)(void* window);
    void (*hideWindow)(void* window);
    void (*moveWindow)(void* window);
    void (*setSize)(void* window, int width, int height);
    void (*setMinSize)(void* window, int width, int height);
    void (*setMaxSize)(void* window, int width, int height);
    bool (*getScreenInfoForWindow)(void* window, _BDWScreenInfo* info);
    bool (*setPositionForWindow)(void* window, _BDWOffset* offset);
    bool (*setRectForWindow)(void* window, _BDWRect* rect);
    bool (*getRectForWindow)(void* window, _BDWRect* rect);
    bool (*isWindowVisible)(void* window);
    bool (*isWindowMaximized)(void* window);
    void (*maximizeOrRestoreWindow)(void* window);
    void (*maximizeWindow)(void* window);
    void (*minimizeWindow)(void* window);
    void (*closeWindow)(void* window);
    void (*setWindowTitle)(void* window, const char* title);
    double (*getTitleBarHeight)(void* window);
} _BDWPublicAPI;

typedef struct _BDWPrivateAPI {
    bool (*windowCanBeShown)(void);
    void (*setAppWindow)(void* window);
} _BDWPrivateAPI;

typedef struct _BDWAPI {
    _BDWPublicAPI* publicAPI;
    _BDWPrivateAPI* privateAPI;
} _BDWAPI;

/* The type of the symbol the engine side looks up in the running executable. */
typedef _BDWAPI* (*BDWEngineAPIFunction)(void);

#ifdef __cplusplus
}
#endif

#endif
