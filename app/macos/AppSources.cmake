# The macOS application's own Objective-C++ sources, for the bundle's executable target (which
# links vornix_platform_macos and the FlutterMacOS and Sparkle frameworks).
set(VORNIX_MACOS_APP_SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/main.mm
  ${CMAKE_CURRENT_LIST_DIR}/MainFlutterWindow.mm
  ${CMAKE_CURRENT_LIST_DIR}/VornixAppDelegate.mm)
