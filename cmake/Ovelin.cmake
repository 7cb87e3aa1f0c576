# Helpers shared by every folder's CMakeLists.txt.

add_library(ovelin_options INTERFACE)
target_include_directories(ovelin_options INTERFACE ${CMAKE_SOURCE_DIR})
target_compile_options(ovelin_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion)
target_compile_definitions(ovelin_options INTERFACE
  OVELIN_VERSION_MAJEURE=${PROJECT_VERSION_MAJOR}
  OVELIN_VERSION_MINEURE=${PROJECT_VERSION_MINOR}
  OVELIN_VERSION_REVISION=${PROJECT_VERSION_PATCH})
if(OVELIN_STRICT)
  target_compile_options(ovelin_options INTERFACE -Werror)
endif()
if(OVELIN_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
if(OVELIN_TSAN)
  add_compile_options(-fsanitize=thread -fno-omit-frame-pointer)
  add_link_options(-fsanitize=thread)
endif()
if(OVELIN_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all)
  add_link_options(-fsanitize=address,undefined)
endif()
if(OVELIN_COVERAGE)
  add_compile_options(--coverage -O0 -fprofile-update=atomic)  # counters of several threads
  add_link_options(--coverage)
endif()

# Precompiled headers of the tests and windows: most of the time of their compilation is the toolkit's and the test
# framework's headers. A build without them (preset release) shows that every source includes what it uses. The first
# target of a kind compiles the header, the others take it from there.
function(ovelin_precompile name kind)
  if(NOT OVELIN_PRECOMPILE)
    return()
  endif()
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # The compiler cache sees through the header. GCC 12 warns of the standard library's own strings when they come out
    # of a precompiled header (its bug 105329).
    target_compile_options(${name} PRIVATE -fpch-preprocess -Wno-array-bounds -Wno-restrict -Wno-stringop-overflow
      -Wno-stringop-overread)
  endif()
  get_property(first GLOBAL PROPERTY OVELIN_PRECOMPILED_${kind})
  if(first)
    target_precompile_headers(${name} REUSE_FROM ${first})
  else()
    set_property(GLOBAL PROPERTY OVELIN_PRECOMPILED_${kind} ${name})
    target_precompile_headers(${name} PRIVATE ${ARGN})
  endif()
endfunction()

# A library of small loops over many points is worth more of the compiler's time.
function(ovelin_hot name)
  target_compile_options(${name} PRIVATE $<$<CONFIG:Release>:-O3>)
endfunction()

# One static library a folder: every .cpp that lies in it. `DEPENDS` names the libraries it stands on.
function(ovelin_library name)
  cmake_parse_arguments(ARG "" "" "DEPENDS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
  add_library(${name} STATIC ${sources})
  set_target_properties(${name} PROPERTIES LINKER_LANGUAGE CXX)
  target_link_libraries(${name} PUBLIC ovelin_options ${ARG_DEPENDS})
endfunction()

# GCC 12 takes the inside of std::regex for uninitialized where the sanitizers are on (its bug 105562).
function(ovelin_quiet_regex)
  if(NOT (OVELIN_SANITIZE OR OVELIN_TSAN) OR NOT CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    return()
  endif()
  foreach(source ${ARGN})
    file(STRINGS ${source} uses REGEX "include <regex>" LIMIT_COUNT 1)
    if(uses)
      set_source_files_properties(${source} PROPERTIES COMPILE_OPTIONS -Wno-maybe-uninitialized)
    endif()
  endforeach()
endfunction()

# The windows of a folder, on Qt Widgets.
function(ovelin_ui_library name)
  ovelin_library(${name} ${ARGN})
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
  target_compile_definitions(${name} PUBLIC QT_NO_KEYWORDS)
  target_link_libraries(${name} PUBLIC Qt6::Widgets)
  ovelin_precompile(${name} windows <QtWidgets> <algorithm> <functional> <string> <vector>)
endfunction()

# One test program of windows: tests/ui/<folder>, on the platform without a screen.
function(ovelin_ui_test name)
  cmake_parse_arguments(ARG "" "" "DEPENDS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
  if(NOT sources)
    return()
  endif()
  add_executable(${name} ${sources})
  ovelin_quiet_regex(${sources})
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
  target_link_libraries(${name} PRIVATE ${ARG_DEPENDS} test_ui_support test_places)
  ovelin_precompile(${name} window_tests <QtWidgets> <QtTest> <gmock/gmock.h> <gtest/gtest.h> <algorithm> <filesystem>
    <functional> <string> <vector>)
  add_test(NAME ${name} COMMAND ${name} --gtest_shuffle --gtest_brief=1)
  set_tests_properties(${name} PROPERTIES TIMEOUT 900 ENVIRONMENT QT_QPA_PLATFORM=offscreen)
endfunction()

# One test program a folder of tests/unit. Tests run in random order.
function(ovelin_test name)
  cmake_parse_arguments(ARG "PLAIN" "" "DEPENDS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
  if(NOT sources)
    return()
  endif()
  add_executable(${name} ${sources})
  ovelin_quiet_regex(${sources})
  # PLAIN: a library that knows nothing of the document needs no fresh document either.
  if(ARG_PLAIN)
    target_link_libraries(${name} PRIVATE ${ARG_DEPENDS} test_places ovelin_options GTest::gtest_main GTest::gmock)
  else()
    target_link_libraries(${name} PRIVATE ${ARG_DEPENDS} test_support test_places)
  endif()
  ovelin_precompile(${name} tests <gmock/gmock.h> <gtest/gtest.h> <algorithm> <filesystem> <fstream> <functional>
    <map> <regex> <sstream> <string> <vector>)
  add_test(NAME ${name} COMMAND ${name} --gtest_shuffle --gtest_brief=1)
  set_tests_properties(${name} PROPERTIES TIMEOUT 900)
endfunction()
