# Expat, which parses XML: the target EXPAT::EXPAT. This machine's own library for its own programs;
# for Windows it is built from Debian's sources, which scripts/setup.sh puts under build/.
# EXPAT::STATIC is the library that was built here; on Linux it is there where the sources are.
set(QUILLMARK_EXPAT_DIR ${PROJECT_SOURCE_DIR}/build/expat-src CACHE PATH "Expat's sources")
set(source ${QUILLMARK_EXPAT_DIR}/lib)

if(EXISTS ${source}/xmlparse.c)
  # Debian patches these sources for the configuration that its own build makes and not for that of
  # Expat's CMakeLists.txt, which gives its macros no values.
  set(config ${PROJECT_BINARY_DIR}/expat)
  file(CONFIGURE OUTPUT ${config}/expat_config.h CONTENT [[
#define BYTEORDER 1234
#define XML_CONTEXT_BYTES 1024
#define XML_DTD 1
#define XML_GE 1
#define XML_NS 1
]])

  enable_language(C)
  add_library(expat STATIC EXCLUDE_FROM_ALL
    ${source}/xmlparse.c ${source}/xmlrole.c ${source}/xmltok.c)
  target_include_directories(expat PRIVATE ${config})
  target_include_directories(expat SYSTEM INTERFACE ${source})
  target_compile_definitions(expat PUBLIC XML_STATIC)
  target_compile_options(expat PRIVATE -w ${QUILLMARK_HARDENING})
  if(NOT WIN32)
    # Its tables of names get their random start from the device: every Linux has it.
    target_compile_definitions(expat PRIVATE XML_DEV_URANDOM)
    set_target_properties(expat PROPERTIES EXPORT_COMPILE_COMMANDS OFF)
  endif()
  add_library(EXPAT::STATIC ALIAS expat)
elseif(WIN32)
  message(FATAL_ERROR
    "There are no sources of Expat in ${QUILLMARK_EXPAT_DIR}: run scripts/setup.sh run test")
endif()

if(WIN32)
  add_library(EXPAT::EXPAT ALIAS expat)
else()
  find_package(EXPAT REQUIRED)
endif()
