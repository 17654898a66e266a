# What differs between platforms in building our own programs.

if(WIN32)
  set(DWG_PLATFORM win)
  enable_language(RC)
else()
  set(DWG_PLATFORM posix)
endif()

# dwg_program(<target>)
# Gives a program what it needs on Windows: the application manifest, which
# makes UTF-8 the code page of file names, arguments and environment, and a
# stack as large as on Linux. Does nothing elsewhere.
function(dwg_program target)
  if(MSVC)
    target_sources(${target} PRIVATE "${PROJECT_SOURCE_DIR}/cmake/windows/program.manifest")
    target_link_options(${target} PRIVATE /STACK:8388608)
  elseif(WIN32)
    target_sources(${target} PRIVATE "${PROJECT_SOURCE_DIR}/cmake/windows/program.rc")
    set_source_files_properties("${PROJECT_SOURCE_DIR}/cmake/windows/program.rc" PROPERTIES
      OBJECT_DEPENDS "${PROJECT_SOURCE_DIR}/cmake/windows/program.manifest")
    target_link_options(${target} PRIVATE -Wl,--stack,8388608)
  endif()
endfunction()
