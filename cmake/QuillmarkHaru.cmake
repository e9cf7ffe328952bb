# libharu, which writes PDF files: the target HARU::HARU. This machine's own library for its own
# programs; for Windows it is built from Debian's source archive, which scripts/setup.sh puts under
# build/, without compression and pictures, which reports do not use. HARU::STATIC is the library
# that was built here; on Linux it is there where the sources are.
set(QUILLMARK_HARU_DIR ${PROJECT_SOURCE_DIR}/build/libharu-src CACHE PATH "libharu's sources")

if(EXISTS ${QUILLMARK_HARU_DIR}/src/hpdf_doc.c)
  set(config ${PROJECT_BINARY_DIR}/libharu)
  file(CONFIGURE OUTPUT ${config}/hpdf_config.h CONTENT [[
#define LIBHPDF_HAVE_NOZLIB
#define LIBHPDF_HAVE_NOPNGLIB
#define HPDF_NOPNGLIB
#define LIBHPDF_STDC_HEADERS
]])

  enable_language(C)
  file(GLOB sources ${QUILLMARK_HARU_DIR}/src/*.c)
  add_library(haru STATIC EXCLUDE_FROM_ALL ${sources})
  target_include_directories(haru SYSTEM PUBLIC ${config} ${QUILLMARK_HARU_DIR}/include)
  target_compile_options(haru PRIVATE -w ${QUILLMARK_HARDENING})
  set_target_properties(haru PROPERTIES EXPORT_COMPILE_COMMANDS OFF)
  add_library(HARU::STATIC ALIAS haru)
elseif(WIN32)
  message(FATAL_ERROR
    "There are no sources of libharu in ${QUILLMARK_HARU_DIR}: run scripts/setup.sh run test")
endif()

if(WIN32)
  add_library(HARU::HARU ALIAS haru)
else()
  find_path(QUILLMARK_HARU_INCLUDE hpdf.h REQUIRED)
  find_library(QUILLMARK_HARU_LIBRARY hpdf REQUIRED)
  add_library(HARU::HARU UNKNOWN IMPORTED)
  set_target_properties(HARU::HARU PROPERTIES IMPORTED_LOCATION ${QUILLMARK_HARU_LIBRARY}
    INTERFACE_INCLUDE_DIRECTORIES ${QUILLMARK_HARU_INCLUDE})
endif()
