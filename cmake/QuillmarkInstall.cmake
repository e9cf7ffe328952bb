# What a package holds, and where: `cmake --install` puts the same list into a folder. On Windows
# all files lie side by side, since the program finds its help in its own folder.

if(WIN32)
  # Notepad of Windows 7 shows only lines that end in CR and LF.
  foreach(pair LICENSE:LICENSE.txt THIRD-PARTY-NOTICES.md:THIRD-PARTY-NOTICES.txt
          packaging/README-windows.txt.in:README.txt)
    string(REPLACE ":" ";" pair ${pair})
    list(GET pair 0 source)
    list(GET pair 1 name)
    configure_file(${PROJECT_SOURCE_DIR}/${source} ${PROJECT_BINARY_DIR}/packaging/${name}
                   @ONLY NEWLINE_STYLE CRLF)
    install(FILES ${PROJECT_BINARY_DIR}/packaging/${name} DESTINATION .)
  endforeach()
  install(TARGETS quillmark qmktool RUNTIME DESTINATION .)
  install(FILES $<TARGET_FILE_DIR:quillmark>/quillmark.chm samples/household.qmk DESTINATION .)
  return()
endif()

include(GNUInstallDirs)
install(TARGETS qmktool RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
# The manual and the completion are made of what the program that is installed says of itself.
set(manual ${PROJECT_BINARY_DIR}/packaging)
install(CODE "
  execute_process(COMMAND python3 -B \"${PROJECT_SOURCE_DIR}/scripts/manual.py\"
    \"$<TARGET_FILE:qmktool>\" \"${manual}\" COMMAND_ERROR_IS_FATAL ANY)")
install(FILES ${manual}/qmktool.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${manual}/qmktool.bash
        DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME qmktool)
install(FILES LICENSE THIRD-PARTY-NOTICES.md samples/household.qmk
        DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/qmktool)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME qmktool)
set(CPACK_PACKAGE_VENDOR "the Quillmark authors")
set(CPACK_PACKAGE_CONTACT "the Quillmark authors <quillmark@quillmark.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "look into, check, convert and fill check registers")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
include(CPack)
