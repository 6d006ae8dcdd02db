# Build helpers shared by every module: one static library per module, tests beside it.

# Warnings are errors only where the compiler is known: the project's presets (and so CI) turn
# VORNIX_WERROR on. A packager's build, with its own flags or a newer compiler, must not fail on a
# warning that compiler added.
set(VORNIX_WARNINGS -Wall -Wextra)
if(VORNIX_WERROR)
  list(APPEND VORNIX_WARNINGS -Werror)
endif()

if(VORNIX_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()

# Every test whose processes start the desktop stack runs with its leak suppressions; see
# sanitizers/desktop-stack.supp. The desktop stack is built without frame pointers, so the
# allocation stacks are unwound the slow, complete way: the suppressions match by what is deep in
# a stack, and the project's own leaks keep every frame.
set(VORNIX_DESKTOP_STACK_ENVIRONMENT
  "LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/sanitizers/desktop-stack.supp:print_suppressions=0:fast_unwind_on_malloc=0")

# vornix_starts_desktop_stack(TEST ...): those tests' processes start GTK.
function(vornix_starts_desktop_stack)
  set_property(TEST ${ARGN} APPEND PROPERTY ENVIRONMENT ${VORNIX_DESKTOP_STACK_ENVIRONMENT})
endfunction()

# libFuzzer steers by the edges it sees, so every library a fuzzer reaches carries the coverage
# hooks, not only the harness (the coverage build only replays corpora: it needs none).
if(VORNIX_FUZZERS)
  add_custom_target(fuzzers)
  if(NOT VORNIX_COVERAGE)
    add_compile_options(-fsanitize=fuzzer-no-link)
  endif()
endif()

# Source-based coverage, for replaying the fuzzers' corpora and reporting what they reached.
if(VORNIX_COVERAGE)
  add_compile_options(-fprofile-instr-generate -fcoverage-mapping)
  add_link_options(-fprofile-instr-generate)
endif()

# vornix_module(NAME [TEST_SUPPORT] [SOURCES ...] [LIBS ...]): the module's library, target
# vornix_NAME (an interface library while the module is headers only). TEST_SUPPORT marks doubles
# and helpers of tests and benchmarks: built only when one of those is, so never by the Mac build.
function(vornix_module name)
  cmake_parse_arguments(ARG "TEST_SUPPORT" "" "SOURCES;LIBS" ${ARGN})
  if(NOT ARG_SOURCES)
    add_library(vornix_${name} INTERFACE)
    target_include_directories(vornix_${name} INTERFACE ${PROJECT_SOURCE_DIR})
    target_link_libraries(vornix_${name} INTERFACE ${ARG_LIBS})
    return()
  endif()
  set(onlyWhenNeeded)
  if(ARG_TEST_SUPPORT)
    set(onlyWhenNeeded EXCLUDE_FROM_ALL)
  endif()
  add_library(vornix_${name} STATIC ${onlyWhenNeeded} ${ARG_SOURCES})
  target_include_directories(vornix_${name} PUBLIC ${PROJECT_SOURCE_DIR})
  target_compile_options(vornix_${name} PRIVATE ${VORNIX_WARNINGS})
  target_link_libraries(vornix_${name} PUBLIC ${ARG_LIBS})
endfunction()

# vornix_test(NAME SOURCES ... [LIBS ...]): a GoogleTest executable whose cases CTest runs one by one.
function(vornix_test name)
  if(NOT VORNIX_TESTS)
    return()
  endif()
  cmake_parse_arguments(ARG "" "" "SOURCES;LIBS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  set_target_properties(${name} PROPERTIES VORNIX_CHECK TRUE)
  target_compile_options(${name} PRIVATE ${VORNIX_WARNINGS})
  target_link_libraries(${name} PRIVATE ${ARG_LIBS} GTest::gmock GTest::gtest_main)
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST
    PROPERTIES ENVIRONMENT "VORNIX_SOURCE_DIR=${PROJECT_SOURCE_DIR}")
endfunction()

# vornix_benchmark(NAME SOURCES ... [LIBS ...]): a Google Benchmark executable (not run by CTest).
function(vornix_benchmark name)
  if(NOT VORNIX_BENCHMARKS)
    return()
  endif()
  cmake_parse_arguments(ARG "" "" "SOURCES;LIBS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  set_target_properties(${name} PROPERTIES VORNIX_CHECK TRUE)
  target_compile_options(${name} PRIVATE ${VORNIX_WARNINGS})
  target_link_libraries(${name} PRIVATE ${ARG_LIBS} benchmark::benchmark_main)
endfunction()

# vornix_fuzzer(NAME SOURCES ... [LIBS ...] COVERS ...): a libFuzzer target, built only in the fuzz
# presets. COVERS names the sources (from the project's root) of the module the fuzzer targets:
# their coverage is what scripts/fuzz.sh reports for it, from build/<preset>/fuzzers/NAME.covers.
function(vornix_fuzzer name)
  if(NOT VORNIX_FUZZERS)
    return()
  endif()
  cmake_parse_arguments(ARG "" "" "SOURCES;LIBS;COVERS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  set_target_properties(${name} PROPERTIES VORNIX_CHECK TRUE)
  target_compile_options(${name} PRIVATE ${VORNIX_WARNINGS} -fsanitize=fuzzer)
  target_link_options(${name} PRIVATE -fsanitize=fuzzer)
  target_link_libraries(${name} PRIVATE ${ARG_LIBS})
  add_dependencies(fuzzers ${name})
  list(TRANSFORM ARG_COVERS PREPEND "${PROJECT_SOURCE_DIR}/")
  list(JOIN ARG_COVERS "\n" covers)
  file(WRITE "${PROJECT_BINARY_DIR}/fuzzers/${name}.covers" "${covers}\n")
endfunction()
