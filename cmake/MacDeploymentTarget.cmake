# The lowest macOS the application runs on, kept in this one place: the Mac build's deployment
# target, the bundle's LSMinimumSystemVersion and the Linux checks of the macOS sources all read
# VORNIX_MACOS_DEPLOYMENT_TARGET. The engine's frameworks are built for 10.15 and later, and dyld
# refuses to load a framework built for a newer system than the one running, so 10.15 is the floor.
set(VORNIX_MACOS_DEPLOYMENT_TARGET_FLOOR 10.15)
set(VORNIX_MACOS_DEPLOYMENT_TARGET ${VORNIX_MACOS_DEPLOYMENT_TARGET_FLOOR})
