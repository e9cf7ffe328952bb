# How this project's own targets are compiled; third-party sources keep their own rules.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

# Two builds of one commit give the same bytes, and none tells the folder that it was built in.
add_compile_options(-ffile-prefix-map=${PROJECT_SOURCE_DIR}=.)

# A hostile file that finds a mistake in a program meets memory that it can neither foresee nor
# execute. scripts/check_binaries.py holds the programs against this.
if(WIN32)
  # What came after Windows 7 is not declared.
  add_compile_definitions(_WIN32_WINNT=0x0601 WINVER=0x0601)
  # The linker strips the programs, since strip would write the time of day into them.
  add_link_options(-s LINKER:--no-insert-timestamp LINKER:--dynamicbase LINKER:--nxcompat)
  if(CMAKE_SIZEOF_VOID_P EQUAL 8)
    add_link_options(LINKER:--high-entropy-va)
  endif()
elseif(NOT QUILLMARK_SANITIZE)
  set(QUILLMARK_HARDENING -fPIE -fstack-protector-strong -D_FORTIFY_SOURCE=2)
  add_link_options(LINKER:-z,relro LINKER:-z,now)
endif()

if(QUILLMARK_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all
                      -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()

function(quillmark_options target)
  target_compile_options(${target} PRIVATE
    $<$<COMPILE_LANGUAGE:CXX>:-Wall -Wextra -Wshadow -Wconversion -Werror>)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # GCC 12 sees an overlap in std::string's operator+ where there is none (GCC bug 105651).
    target_compile_options(${target} PRIVATE $<$<COMPILE_LANGUAGE:CXX>:-Wno-restrict>)
  endif()
  target_compile_options(${target} PRIVATE ${QUILLMARK_HARDENING})
  target_compile_definitions(${target} PRIVATE
    "$<$<COMPILE_LANGUAGE:CXX>:QUILLMARK_VERSION=\"${PROJECT_VERSION}\">")
endfunction()

function(quillmark_library target)
  add_library(${target} STATIC)
  quillmark_options(${target})
  target_include_directories(${target} PUBLIC ${PROJECT_SOURCE_DIR})
  quillmark_precompile(${target})
endfunction()

# Most of the time of a build went into a few headers of the system, so they are compiled once for
# all sources. A source includes what it needs all the same: clang-tidy reads it without these.
set(QUILLMARK_COMMON_HEADERS <algorithm> <cstdint> <cstdio> <cstring> <functional> <memory> <string>
    <string_view> <utility> <vector>)
function(quillmark_precompile target)
  if(target STREQUAL "quillmark_core")
    target_precompile_headers(${target} PRIVATE ${QUILLMARK_COMMON_HEADERS})
  elseif(target STREQUAL "vorek")
    target_precompile_headers(${target} PRIVATE
      <windows.h> <commctrl.h> ${QUILLMARK_COMMON_HEADERS})
  elseif(target STREQUAL "qmktool")
    target_precompile_headers(${target} REUSE_FROM quillmark_core)
  elseif(NOT target STREQUAL "test_support")
    target_precompile_headers(${target} REUSE_FROM vorek)
  endif()
endfunction()

function(quillmark_program target)
  add_executable(${target} ${ARGN})
  quillmark_options(${target})
  target_link_libraries(${target} PRIVATE quillmark_core)
endfunction()

# Adds a resource script to a program. What it includes, pictures and the manifest among it, is not
# named on the compiler's line: further files that it includes may be named here.
function(quillmark_resources target script)
  file(GLOB parts CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/resources/*.rc
       ${PROJECT_SOURCE_DIR}/resources/*.h ${PROJECT_SOURCE_DIR}/resources/pictures/*)
  list(APPEND parts ${PROJECT_BINARY_DIR}/resources/version.h
       ${PROJECT_BINARY_DIR}/resources/quillmark.manifest ${ARGN})
  set_source_files_properties(${script} PROPERTIES OBJECT_DEPENDS "${parts}")
  target_sources(${target} PRIVATE ${script})
  target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR} ${PROJECT_BINARY_DIR})
endfunction()

# Tests are compiled four times and run once: compiling them fast is worth more than fast tests.
# One precompiled header, test_support's, serves all of them.
function(quillmark_test_options target)
  target_compile_options(${target} PRIVATE $<$<COMPILE_LANGUAGE:CXX>:-O0 -g0>)
  if(NOT WIN32)
    # The guards of the C library need an optimizing compiler.
    target_compile_options(${target} PRIVATE -U_FORTIFY_SOURCE)
  endif()
  if(NOT target STREQUAL "test_support")
    target_precompile_headers(${target} REUSE_FROM test_support)
    return()
  endif()
  set(headers <gtest/gtest.h> <functional> <random>)
  if(WIN32)
    # A precompiled header has to be the first that a source includes, so this one is a part of it.
    list(PREPEND headers "\"tests/googletest_notification.h\"")
    list(APPEND headers <windows.h> <commctrl.h>)
  endif()
  target_precompile_headers(${target} PRIVATE ${headers})
endfunction()

# Tests of a program are compiled several files at a time, which takes about half the time. Each file
# gets a namespace of its own, so two files may use the same name. All that they include has to come
# before these namespaces. A file is compiled by itself if it is not called NAME_test.cpp, if it has
# compiler options or a header of its own, or if ALONE names it.
function(quillmark_tests_together target)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" ALONE)
  get_target_property(sources ${target} SOURCES)
  set(together)
  foreach(source IN LISTS sources)
    string(REGEX REPLACE "cpp$" "h" own_header ${source})
    if(source MATCHES "_test\\.cpp$" AND NOT EXISTS ${own_header})
      list(APPEND together ${source})
    else()
      list(APPEND arg_ALONE ${source})
    endif()
  endforeach()
  set_source_files_properties(${arg_ALONE} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
  set(header ${CMAKE_CURRENT_BINARY_DIR}/${target}_includes.h)
  add_custom_command(OUTPUT ${header}
    COMMAND ${CMAKE_COMMAND} -D HEADER=${header} -D "SOURCES=${together}"
      -P ${PROJECT_SOURCE_DIR}/cmake/IncludesOf.cmake
    DEPENDS ${together} ${PROJECT_SOURCE_DIR}/cmake/IncludesOf.cmake VERBATIM)
  target_sources(${target} PRIVATE ${header})
  set_target_properties(${target} PROPERTIES
    UNITY_BUILD ${QUILLMARK_TESTS_TOGETHER}
    UNITY_BUILD_BATCH_SIZE 8
    UNITY_BUILD_UNIQUE_ID QUILLMARK_TESTS_OF_FILE
    UNITY_BUILD_CODE_BEFORE_INCLUDE
      "#include \"${header}\"\nnamespace QUILLMARK_TESTS_OF_FILE { namespace {"
    UNITY_BUILD_CODE_AFTER_INCLUDE "}}")
endfunction()

# The platform half of the portable library: NAME_win.cpp or NAME_posix.cpp.
function(quillmark_platform_sources)
  set(suffix $<IF:$<BOOL:${WIN32}>,win,posix>)
  foreach(name IN LISTS ARGN)
    target_sources(quillmark_core PRIVATE ${name}_${suffix}.cpp)
  endforeach()
endfunction()
