# Finds the unpacked source of a crate, fetching it with cargo when it is not
# there yet, and checks every file of it against a manifest kept in this
# repository. Cargo only downloads and unpacks: no Rust is compiled.

# dwg_tree_sha256(<out-var> <dir>)
# Sets <out-var> to one digest for all files below a folder: that of the list
# which `find . -type f -printf '%P\0' | LC_ALL=C sort -z | xargs -0 sha256sum` prints
# there.
function(dwg_tree_sha256 out dir)
  file(GLOB_RECURSE paths RELATIVE "${dir}" "${dir}/*")
  list(SORT paths COMPARE STRING)
  set(listing "")
  foreach(path IN LISTS paths)
    file(SHA256 "${dir}/${path}" digest)
    string(APPEND listing "${digest}  ${path}\n")
  endforeach()
  string(SHA256 digest "${listing}")
  set(${out} "${digest}" PARENT_SCOPE)
endfunction()

# dwg_check_manifest(<dir> <manifest>)
# Fails when a file named by the manifest is missing or differs. A line that
# names a folder holds that folder's tree digest.
function(dwg_check_manifest dir manifest)
  file(STRINGS "${manifest}" lines)
  foreach(line IN LISTS lines)
    string(SUBSTRING "${line}" 0 64 expected)
    string(SUBSTRING "${line}" 66 -1 path)
    if(NOT EXISTS "${dir}/${path}")
      message(FATAL_ERROR "${dir}: ${path} is missing; the source tree is not the pinned one")
    endif()
    if(IS_DIRECTORY "${dir}/${path}")
      dwg_tree_sha256(actual "${dir}/${path}")
    else()
      file(SHA256 "${dir}/${path}" actual)
    endif()
    if(NOT actual STREQUAL expected)
      message(FATAL_ERROR "${dir}: ${path} differs from the pinned source tree\n"
                          "  expected SHA-256 ${expected}\n  found SHA-256    ${actual}")
    endif()
  endforeach()
endfunction()

# dwg_find_crate(<out-var> <crate> <version>)
# Sets <out-var> to the folders in which cargo has unpacked the crate, and
# DWG_CARGO to cargo itself, which can fetch it.
function(dwg_find_crate out crate version)
  if(DEFINED ENV{CARGO_HOME})
    file(TO_CMAKE_PATH "$ENV{CARGO_HOME}" cargo_home)
  elseif(WIN32 AND CMAKE_HOST_WIN32)
    file(TO_CMAKE_PATH "$ENV{USERPROFILE}/.cargo" cargo_home)
  else()
    set(cargo_home "$ENV{HOME}/.cargo")
  endif()
  find_program(DWG_CARGO cargo HINTS "${cargo_home}/bin")
  file(GLOB found "${cargo_home}/registry/src/*/${crate}-${version}")
  set(${out} "${found}" PARENT_SCOPE)
endfunction()

# dwg_cargo_fetch(<folder>)
# Fetches what the project in a folder names. Cargo before 1.68 would first clone the
# whole index of crates, some hundred megabytes, unless it is told to use a feature that
# was not stable then.
function(dwg_cargo_fetch folder)
  execute_process(COMMAND "${DWG_CARGO}" --version OUTPUT_VARIABLE text)
  string(REGEX MATCH "[0-9]+\\.[0-9]+(\\.[0-9]+)?" version "${text}")
  set(early "")
  if(version AND version VERSION_LESS 1.68)
    set(early RUSTC_BOOTSTRAP=1 CARGO_UNSTABLE_SPARSE_REGISTRY=true)
  endif()
  foreach(environment IN ITEMS "${early};CARGO_REGISTRIES_CRATES_IO_PROTOCOL=sparse" "")
    execute_process(COMMAND "${CMAKE_COMMAND}" -E env ${environment} "${DWG_CARGO}" fetch
                    WORKING_DIRECTORY "${folder}" RESULT_VARIABLE result)
    if(result EQUAL 0)
      return()
    endif()
  endforeach()
  message(FATAL_ERROR
    "cargo ${version} could not fetch the pinned sources (its messages are above). Fetching "
    "was tried with 1.65, as in Debian 12, and with 1.95: if this one is older, install a newer "
    "one, for example with rustup. Without network, name unpacked source trees: see "
    "CONTRIBUTING.md.")
endfunction()

# dwg_crate_source(<out-var> <crate> <version>)
# Sets <out-var> to the crate's checked source folder.
function(dwg_crate_source out crate version)
  dwg_find_crate(found ${crate} ${version})
  if(NOT found)
    if(NOT DWG_CARGO)
      message(FATAL_ERROR "cargo is needed to fetch ${crate} ${version}; install it (Debian's "
                          "package suffices), or name an unpacked source tree (see CONTRIBUTING.md)")
    endif()
    message(STATUS "Fetching ${crate} ${version}")
    set(fetch_dir "${CMAKE_BINARY_DIR}/fetch-${crate}")
    file(WRITE "${fetch_dir}/src/lib.rs" "")
    file(WRITE "${fetch_dir}/Cargo.toml"
         "[package]\nname = \"fetch\"\nversion = \"0.0.0\"\nedition = \"2021\"\n"
         "[workspace]\n[dependencies]\n${crate} = \"=${version}\"\n")
    dwg_cargo_fetch("${fetch_dir}")
    dwg_find_crate(found ${crate} ${version})
  endif()
  if(NOT found)
    message(FATAL_ERROR "${crate} ${version} was fetched but its source is not under ${cargo_home}")
  endif()
  list(GET found 0 source)
  dwg_check_manifest("${source}"
                     "${PROJECT_SOURCE_DIR}/cmake/checksums/${crate}-${version}.sha256")
  set(${out} "${source}" PARENT_SCOPE)
endfunction()
