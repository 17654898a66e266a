# What "cmake --install" installs: the worker with its handler beside it, pages, man
# pages and licences. Packages are made of it (scripts/package.sh).

include(GNUInstallDirs)

if(WIN32)
  # Unpacked into one folder, where the worker looks for its handler.
  set(DWG_INSTALL_PROGRAMS .)
  set(DWG_INSTALL_DOCUMENTS docs)
  set(DWG_INSTALL_LICENSES licenses)
  set(DWG_INSTALL_FIRST .)
else()
  set(DWG_INSTALL_PROGRAMS "${CMAKE_INSTALL_LIBEXECDIR}/dwg_import_worker")
  set(DWG_INSTALL_DOCUMENTS "${CMAKE_INSTALL_DOCDIR}")
  set(DWG_INSTALL_LICENSES "${CMAKE_INSTALL_DOCDIR}/licenses")
  set(DWG_INSTALL_FIRST "${CMAKE_INSTALL_DOCDIR}")
  install(FILES docs/man/dwg_import_worker.1 DESTINATION "${CMAKE_INSTALL_MANDIR}/man1")
  # The worker looks for its handler beside the file that the link leads to.
  file(RELATIVE_PATH link "/${CMAKE_INSTALL_BINDIR}" "/${DWG_INSTALL_PROGRAMS}/dwg_import_worker")
  install(CODE "
    file(MAKE_DIRECTORY \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}\")
    file(CREATE_LINK \"${link}\"
         \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}/dwg_import_worker\" SYMBOLIC)")
endif()

install(TARGETS dwg_import_worker RUNTIME DESTINATION "${DWG_INSTALL_PROGRAMS}")
if(DWG_CRASH_REPORTING)
  install(PROGRAMS "${CMAKE_BINARY_DIR}/crashpad_handler${CMAKE_EXECUTABLE_SUFFIX}"
          DESTINATION "${DWG_INSTALL_PROGRAMS}")
endif()
file(GLOB pages CONFIGURE_DEPENDS docs/*.md)
install(FILES ${pages} docs/document.schema.json DESTINATION "${DWG_INSTALL_DOCUMENTS}")
install(FILES README.md CHANGELOG.md SECURITY.md LICENSE
        DESTINATION "${DWG_INSTALL_FIRST}")
# The texts of what is linked in are there when the libraries have been built.
install(DIRECTORY "${CMAKE_BINARY_DIR}/licenses/" DESTINATION "${DWG_INSTALL_LICENSES}")
