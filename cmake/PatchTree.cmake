# dwg_patch_tree(<folder> <what> <patch>...)
# Applies patches to a copy of fetched sources, in their order.
function(dwg_patch_tree folder what)
  if(ARGN)
    find_program(PATCH_PROGRAM NAMES patch REQUIRED)
  endif()
  foreach(patch IN LISTS ARGN)
    # No fuzz: a patch that does not fit exactly is a mistake to look at.
    execute_process(COMMAND "${PATCH_PROGRAM}" -p1 --fuzz=0 --no-backup-if-mismatch -i "${patch}"
                    WORKING_DIRECTORY "${folder}" RESULT_VARIABLE result)
    if(NOT result EQUAL 0)
      message(FATAL_ERROR "${patch} does not fit the pinned ${what} sources")
    endif()
  endforeach()
endfunction()
