# Cross compilation with MinGW-w64; QUILLMARK_TRIPLE names the target (i686-w64-mingw32 or
# x86_64-w64-mingw32).
set(CMAKE_SYSTEM_NAME Windows)
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES QUILLMARK_TRIPLE)

set(CMAKE_C_COMPILER ${QUILLMARK_TRIPLE}-gcc-win32) # for Expat, and for GoogleTest's project line
set(CMAKE_CXX_COMPILER ${QUILLMARK_TRIPLE}-g++-win32)
set(CMAKE_RC_COMPILER ${QUILLMARK_TRIPLE}-windres)
set(CMAKE_FIND_ROOT_PATH /usr/${QUILLMARK_TRIPLE})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)

# A program is one file: no run-time DLL beside it.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")

if(QUILLMARK_TRIPLE MATCHES "^i686")
  # SSE arithmetic rounds every step to the type at hand, so a 32-bit build sums balances bit for
  # bit as the 64-bit one; callbacks from the system may come with a stack aligned to four only.
  set(CMAKE_CXX_FLAGS_INIT "-msse2 -mfpmath=sse -mstackrealign")
endif()
