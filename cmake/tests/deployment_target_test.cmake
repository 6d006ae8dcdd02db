# The Mac deployment target follows the engine framework given at configure time, never below the
# floor: frameworks stating a newer, an older, an equal and no minimum system, and none given.
#   cmake -DMODULE=cmake/MacDeploymentTarget.cmake -DWORK=<empty folder> -P deployment_target_test.cmake
file(REMOVE_RECURSE "${WORK}")

# framework(NAME INFO_PLIST_BODY): a framework in the versioned layout with this Info.plist.
function(framework name body)
  set(root "${WORK}/${name}/FlutterMacOS.framework")
  file(MAKE_DIRECTORY "${root}/Versions/A/Resources")
  file(WRITE "${root}/Versions/A/Resources/Info.plist" "<?xml version=\"1.0\" encoding=\"UTF-8\"?>
<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" \"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">
<plist version=\"1.0\">
<dict>
	<key>CFBundleIdentifier</key>
	<string>io.flutter.flutter-macos</string>
${body}</dict>
</plist>
")
  file(CREATE_LINK A "${root}/Versions/Current" SYMBOLIC)
  file(CREATE_LINK Versions/Current/Resources "${root}/Resources" SYMBOLIC)
endfunction()

framework(newer "	<key>LSMinimumSystemVersion</key>\n	<string>11.0</string>\n")
framework(patch "	<key>LSMinimumSystemVersion</key>\n	<string>10.15.4</string>\n")
framework(older "	<key>LSMinimumSystemVersion</key>\n	<string>10.13</string>\n")
framework(none "	<key>CFBundleVersion</key>\n	<string>1.0</string>\n")

set(failures 0)
function(expect given expected)
  vornix_macos_deployment_target("${given}" actual)
  if(NOT actual STREQUAL expected)
    message(SEND_ERROR "for \"${given}\" the target is \"${actual}\", not \"${expected}\"")
  endif()
endfunction()

set(VORNIX_FLUTTER_MACOS_FRAMEWORK "${WORK}/newer/FlutterMacOS.framework")
include("${MODULE}")
if(NOT VORNIX_MACOS_DEPLOYMENT_TARGET STREQUAL "11.0")
  message(SEND_ERROR "the configured framework gave \"${VORNIX_MACOS_DEPLOYMENT_TARGET}\", not 11.0")
endif()
expect("${WORK}/newer/FlutterMacOS.framework" 11.0)
expect("${WORK}/patch/FlutterMacOS.framework" 10.15.4)
expect("${WORK}/older/FlutterMacOS.framework" 10.15)
expect("${WORK}/none/FlutterMacOS.framework" 10.15)
expect("${WORK}/missing/FlutterMacOS.framework" 10.15)
expect("" 10.15)
file(REMOVE_RECURSE "${WORK}")
message(STATUS "deployment target: checked")
