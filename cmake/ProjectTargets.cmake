# What every target of the project shares: warnings, sanitizers, precompiled headers.

add_library(zeph_options INTERFACE)
target_compile_features(zeph_options INTERFACE cxx_std_20)
target_include_directories(zeph_options INTERFACE ${CMAKE_SOURCE_DIR}/src ${CMAKE_SOURCE_DIR}/tests)
if(MSVC)
  target_compile_options(zeph_options INTERFACE /W4 /utf-8 $<$<BOOL:${ZEPH_WARNINGS_AS_ERRORS}>:/WX>)
else()
  target_compile_options(zeph_options INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow $<$<BOOL:${ZEPH_WARNINGS_AS_ERRORS}>:-Werror>)
endif()
# Without it the compiler's cache can't see which precompiled header a source was compiled with.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  target_compile_options(zeph_options INTERFACE -fpch-preprocess)
endif()
# False alarms of this compiler about the bounds of its own strings, once it optimises.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(zeph_options INTERFACE -Wno-restrict -Wno-stringop-overflow -Wno-array-bounds)
endif()
if(ZEPH_SANITIZE)
  set(sanitizers -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_compile_options(zeph_options INTERFACE ${sanitizers})
  target_link_options(zeph_options INTERFACE ${sanitizers})
endif()
if(ZEPH_FUZZ)
  target_compile_options(zeph_options INTERFACE -fsanitize=fuzzer-no-link,address,undefined -fno-omit-frame-pointer)
  target_link_options(zeph_options INTERFACE -fsanitize=address,undefined)
endif()

# zeph_precompile_headers(NAME OWNER HEADERS...): the first target of a kind makes the headers ready, the others use
# what it has made. All of them have to be compiled alike.
function(zeph_precompile_headers name owner)
  if(name STREQUAL owner)
    target_precompile_headers(${name} PRIVATE ${ARGN})
  else()
    target_precompile_headers(${name} REUSE_FROM ${owner})
  endif()
endfunction()

# add_zeph_library(NAME SOURCES... [LINK libraries...])
function(add_zeph_library name)
  cmake_parse_arguments(arg "" "" "LINK" ${ARGN})
  add_library(${name} STATIC ${arg_UNPARSED_ARGUMENTS})
  target_link_libraries(${name} PUBLIC zeph_options ${arg_LINK})
  zeph_precompile_headers(${name} zeph_platform
    <array> <cstdint> <functional> <memory> <string> <string_view> <vector>)
endfunction()

# add_zeph_qt_library(NAME SOURCES... [LINK libraries...]): a library of windows; the headers stand among the
# sources, for the meta-object compiler to look at.
function(add_zeph_qt_library name)
  cmake_parse_arguments(arg "" "" "LINK" ${ARGN})
  add_library(${name} STATIC ${arg_UNPARSED_ARGUMENTS})
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
  target_link_libraries(${name} PUBLIC zeph_options Qt6::Widgets ${arg_LINK})
  zeph_precompile_headers(${name} zeph_widgets <QtWidgets> <functional> <memory> <string>)
endfunction()

# add_zeph_test_program(NAME SOURCES... [LINK libraries...]): a GoogleTest program. The owner of its headers depends
# on whether it is one of windows.
function(add_zeph_test_program name)
  cmake_parse_arguments(arg "" "" "LINK" ${ARGN})
  add_executable(${name} ${arg_UNPARSED_ARGUMENTS})
  target_link_libraries(${name} PRIVATE zeph_options zeph_test_cache zeph_test_support ${arg_LINK})
  target_compile_definitions(${name} PRIVATE
    ZEPH_DATA_DIR="${CMAKE_SOURCE_DIR}/data" ZEPH_TEST_DIR="${CMAKE_SOURCE_DIR}/tests")
  # With the sanitizers a test's own code is compiled for more than twice as long when it is optimised, and runs no
  # faster for it: what it tests is optimised all the same. The warnings that need it come with the other presets.
  if(ZEPH_SANITIZE)
    target_compile_options(${name} PRIVATE -O0)
  endif()
  set(headers <gtest/gtest.h> <string> <vector> <filesystem>)
  if("zeph_qt_test_support" IN_LIST arg_LINK)
    zeph_precompile_headers(${name} widgets_test ${headers} <QTest> <QtWidgets>)
  else()
    zeph_precompile_headers(${name} platform_test ${headers})
  endif()
endfunction()

# add_zeph_test(NAME SOURCES... [LINK libraries...]): the same, each of whose tests CTest knows by name.
function(add_zeph_test name)
  add_zeph_test_program(${name} ${ARGN})
  gtest_discover_tests(${name} NO_PRETTY_VALUES DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 600)
endfunction()
