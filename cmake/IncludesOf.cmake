# Writes a header that includes everything that some sources include, each header once. It is written
# anew only when it changes, so that nothing else is compiled again.
# Usage: cmake -D HEADER=FILE -D SOURCES=FILE;FILE... -P IncludesOf.cmake
set(includes)
foreach(source IN LISTS SOURCES)
  file(STRINGS ${source} lines REGEX "^#include ")
  list(APPEND includes ${lines})
endforeach()
list(REMOVE_DUPLICATES includes)
list(JOIN includes "\n" includes)
file(CONFIGURE OUTPUT ${HEADER} CONTENT "#pragma once\n${includes}\n" @ONLY)
