# The lowest macOS the application runs on, kept in this one place: the Mac build's deployment
# target (CMAKE_OSX_DEPLOYMENT_TARGET) and the bundle's LSMinimumSystemVersion both come from
# VORNIX_MACOS_DEPLOYMENT_TARGET. dyld refuses to load a framework built for a newer system than the
# one running, so the target is the engine framework's own minimum: what the Info.plist of the
# FlutterMacOS.framework given at configure time (VORNIX_FLUTTER_MACOS_FRAMEWORK) states, and never
# below 10.15, the lowest system current engine frameworks are built for. Included before project(),
# where CMAKE_OSX_DEPLOYMENT_TARGET must be known.
set(VORNIX_MACOS_DEPLOYMENT_TARGET_FLOOR 10.15)

# vornix_framework_minimum_system(FRAMEWORK OUTPUT): the LSMinimumSystemVersion the framework's
# Info.plist (Resources/Info.plist, the versioned layout of a macOS framework) states, or nothing
# when it has none. A binary property list is read through Apple's plutil, which only a Mac has.
function(vornix_framework_minimum_system framework output)
  set(${output} "" PARENT_SCOPE)
  set(plist "${framework}/Resources/Info.plist")
  if(NOT EXISTS "${plist}")
    return()
  endif()
  file(READ "${plist}" start LIMIT 6)
  if(start STREQUAL "bplist")
    execute_process(COMMAND plutil -convert xml1 -o - "${plist}"
      OUTPUT_VARIABLE text RESULT_VARIABLE result ERROR_QUIET)
    if(NOT result EQUAL 0)
      message(FATAL_ERROR "cannot read ${plist}, a binary property list, without plutil")
    endif()
  else()
    file(READ "${plist}" text)
  endif()
  if(text MATCHES "<key>LSMinimumSystemVersion</key>[ \t\r\n]*<string>([0-9]+(\\.[0-9]+)*)</string>")
    set(${output} "${CMAKE_MATCH_1}" PARENT_SCOPE)
  endif()
endfunction()

# vornix_macos_deployment_target(FRAMEWORK OUTPUT): the framework's minimum, or the floor where it
# states none or a lower one.
function(vornix_macos_deployment_target framework output)
  set(target ${VORNIX_MACOS_DEPLOYMENT_TARGET_FLOOR})
  if(framework)
    vornix_framework_minimum_system("${framework}" minimum)
    if(minimum AND minimum VERSION_GREATER target)
      set(target ${minimum})
    endif()
  endif()
  set(${output} ${target} PARENT_SCOPE)
endfunction()

vornix_macos_deployment_target("${VORNIX_FLUTTER_MACOS_FRAMEWORK}" VORNIX_MACOS_DEPLOYMENT_TARGET)
# Recomputed at every configuration, so that another engine framework moves the target with it.
if(CMAKE_HOST_APPLE)
  set(CMAKE_OSX_DEPLOYMENT_TARGET ${VORNIX_MACOS_DEPLOYMENT_TARGET} CACHE STRING
      "The lowest macOS the application runs on (cmake/MacDeploymentTarget.cmake)" FORCE)
endif()
