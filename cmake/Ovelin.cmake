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
if(OVELIN_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all)
  add_link_options(-fsanitize=address,undefined)
endif()
if(OVELIN_COVERAGE)
  add_compile_options(--coverage -O0)
  add_link_options(--coverage)
endif()

# One static library a folder: every .cpp that lies in it. `DEPENDS` names the libraries it stands on.
function(ovelin_library name)
  cmake_parse_arguments(ARG "" "" "DEPENDS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
  add_library(${name} STATIC ${sources})
  set_target_properties(${name} PROPERTIES LINKER_LANGUAGE CXX)
  target_link_libraries(${name} PUBLIC ovelin_options ${ARG_DEPENDS})
endfunction()

# The windows of a folder, on Qt Widgets.
function(ovelin_ui_library name)
  ovelin_library(${name} ${ARGN})
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
  target_compile_definitions(${name} PUBLIC QT_NO_KEYWORDS)
  target_link_libraries(${name} PUBLIC Qt6::Widgets)
endfunction()

# One test program of windows: tests/ui/<folder>, on the platform without a screen.
function(ovelin_ui_test name)
  cmake_parse_arguments(ARG "" "" "DEPENDS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
  if(NOT sources)
    return()
  endif()
  add_executable(${name} ${sources})
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
  target_link_libraries(${name} PRIVATE ${ARG_DEPENDS} test_ui_support)
  target_compile_definitions(${name} PRIVATE
    OVELIN_SOURCE_DIR="${CMAKE_SOURCE_DIR}" OVELIN_BINARY_DIR="${CMAKE_BINARY_DIR}")
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
  # PLAIN: a library that knows nothing of the document needs no fresh document either.
  if(ARG_PLAIN)
    target_link_libraries(${name} PRIVATE ${ARG_DEPENDS} ovelin_options GTest::gtest_main GTest::gmock)
  else()
    target_link_libraries(${name} PRIVATE ${ARG_DEPENDS} test_support)
  endif()
  target_compile_definitions(${name} PRIVATE
    OVELIN_SOURCE_DIR="${CMAKE_SOURCE_DIR}" OVELIN_BINARY_DIR="${CMAKE_BINARY_DIR}")
  add_test(NAME ${name} COMMAND ${name} --gtest_shuffle --gtest_brief=1)
  set_tests_properties(${name} PROPERTIES TIMEOUT 900)
endfunction()
