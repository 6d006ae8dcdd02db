# The macOS build's languages and the frameworks Vornix OS.app embeds. The frameworks do not come
# with the system: FlutterMacOS, the Flutter application's own App.framework and its plug-ins come
# from the Flutter application's build, Sparkle from the updater's release. Cache variables say
# where they are (docs/MACOS.md); each becomes an imported target vornix::<Name> that compiles
# with -F<its folder> and links with -framework <Name>, so that the backend and the application
# both find them the same way.
enable_language(OBJC OBJCXX)

set(VORNIX_FLUTTER_MACOS_FRAMEWORK "" CACHE PATH "FlutterMacOS.framework, the engine's macOS embedding")
set(VORNIX_FLUTTER_APP_FRAMEWORK "" CACHE PATH "App.framework, the Flutter application's compiled code and assets")
set(VORNIX_SPARKLE_FRAMEWORK "" CACHE PATH "Sparkle.framework, the updater")
set(VORNIX_PLUGIN_FRAMEWORKS "" CACHE STRING "The Flutter application's plug-in frameworks, a list of .framework folders")
set(VORNIX_CODESIGN_IDENTITY "-" CACHE STRING "The code-signing identity for Vornix OS.app; \"-\" signs ad hoc")

foreach(variable VORNIX_FLUTTER_MACOS_FRAMEWORK VORNIX_FLUTTER_APP_FRAMEWORK VORNIX_SPARKLE_FRAMEWORK)
  if(NOT IS_DIRECTORY "${${variable}}")
    message(FATAL_ERROR "${variable} must name a .framework folder (now \"${${variable}}\"); see docs/MACOS.md")
  endif()
endforeach()
foreach(framework IN LISTS VORNIX_PLUGIN_FRAMEWORKS)
  if(NOT IS_DIRECTORY "${framework}")
    message(FATAL_ERROR "VORNIX_PLUGIN_FRAMEWORKS: ${framework} is not a .framework folder")
  endif()
endforeach()

# vornix_link_framework(TARGET FRAMEWORK_FOLDER): compile TARGET with the framework's headers
# and link it with the framework. The headers are found as system headers (-iframework), like
# Apple's own: they are not the project's, and a warning in one (a plug-in's generated header, say)
# must not fail a build whose warnings are errors. The linker takes the folder with -F.
function(vornix_link_framework target framework)
  get_filename_component(folder "${framework}" DIRECTORY)
  get_filename_component(name "${framework}" NAME_WE)
  target_compile_options(${target} INTERFACE "-iframework${folder}")
  target_link_options(${target} INTERFACE "-F${folder}" "SHELL:-framework ${name}")
endfunction()

add_library(vornix::FlutterMacOS INTERFACE IMPORTED GLOBAL)
vornix_link_framework(vornix::FlutterMacOS "${VORNIX_FLUTTER_MACOS_FRAMEWORK}")
add_library(vornix::Sparkle INTERFACE IMPORTED GLOBAL)
vornix_link_framework(vornix::Sparkle "${VORNIX_SPARKLE_FRAMEWORK}")
add_library(vornix::PluginFrameworks INTERFACE IMPORTED GLOBAL)
foreach(framework IN LISTS VORNIX_PLUGIN_FRAMEWORKS)
  vornix_link_framework(vornix::PluginFrameworks "${framework}")
endforeach()
