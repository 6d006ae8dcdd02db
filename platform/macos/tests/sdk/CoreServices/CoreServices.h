// Declarations for the syntax check of the macOS backend off a Mac: the Apple Event Manager's
// types and the one keyword the backend reads (from AEDataModel.h).
#pragma once

#include <MacTypes.h>

typedef FourCharCode AEEventClass;
typedef FourCharCode AEEventID;
typedef FourCharCode AEKeyword;
typedef SInt16 AEReturnID;
typedef SInt32 AETransactionID;

enum {
    kAutoGenerateReturnID = -1,
};
enum {
    kAnyTransactionID = 0,
};

// '----', the direct object of an event (written as its value: the four characters, big-endian).
enum {
    keyDirectObject = 0x2D2D2D2D,
};
