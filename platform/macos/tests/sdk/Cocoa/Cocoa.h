// Declarations for the syntax check of the macOS backend off a Mac: Cocoa is Foundation and AppKit.
#pragma once

#import <Foundation/Foundation.h>
#import <AppKit/AppKit.h>
