# Shared by the scripts beside it: finding the repository, saying what is going
# on, and installing missing build needs. Meant to be sourced by bash.

root="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"

# The folders of the worker's code, and the names of the fuzz targets.
mapfile -t rooms < <(grep -E '^[a-z]' "$root/cmake/rooms.txt")
mapfile -t fuzz_targets < <(grep -oE '^fuzz_[a-z_]+' "$root/fuzz/targets.txt")

# our_sources PATTERN...: our files of that name, in any folder, as in '*.cpp'
# and 'hosts/*.cpp', named from the root.
our_sources() {
  git -C "$root" ls-files --cached --others --exclude-standard -- "$@"
}

# The sources of the worker's rooms that compile here, and with LibreDWG alone: no
# Windows sources, nothing that needs sentry-native or mimalloc.
room_sources() {
  our_sources "${rooms[@]/%//*.cpp}" |
    grep -vE '(_win|_mimalloc|crash_reporting_(posix|sentry)|reading_memory_posix)\.cpp$'
}

# Messages go to standard error; standard output belongs to the result.
say() { printf '== %s\n' "$*" >&2; }
fail() { printf 'error: %s\n' "$*" >&2; exit 1; }

# What turns a source tree into the worker.
build_packages=(build-essential cmake ninja-build patch
                libcurl4-openssl-dev libssl-dev zlib1g-dev)

# install_packages NAME...: installs the Debian packages that are missing, and
# says which. Root or sudo is needed only when something is missing.
install_packages() {
  command -v dpkg-query >/dev/null || {
    say "This is not a Debian-like system; make sure that it has: $*"
    return 0
  }
  local missing=() package
  for package in "$@"; do
    dpkg-query -W -f='${db:Status-Abbrev}' "$package" 2>/dev/null | grep -q '^ii' ||
      missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return 0
  local as_root=()
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null ||
      fail "these packages are missing, and installing them needs root or sudo: ${missing[*]}"
    as_root=(sudo)
  fi
  say "Installing ${missing[*]}"
  "${as_root[@]}" apt-get update -qq >&2
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y -qq --no-install-recommends "${missing[@]}" >&2
}

# Cargo only fetches the pinned sources, but it has to be there. Debian 12's is new enough.
require_cargo() {
  has_cargo && return
  install_packages cargo ca-certificates
  has_cargo || fail "cargo is needed to fetch the pinned sources; rustup.rs says how to get it"
}
has_cargo() { command -v cargo >/dev/null || [ -x "${CARGO_HOME:-$HOME/.cargo}/bin/cargo" ]; }

# build_preset PRESET [TARGET...]: configures and builds, with all
# output on standard error.
build_preset() {
  local preset="$1"
  shift
  (
    cd "$root"
    say "Configuring $preset; the first time this also builds the pinned libraries"
    cmake --preset "$preset" >&2
    cmake --build "build/$preset" ${1:+--target "$@"} >&2
  )
}

# prepare_python: the interpreter with the Python packages of the tests, kept
# outside the build folder. CMake and scripts take it from the environment.
# Needs python3-venv.
prepare_python() {
  local venv="${DWG_TEST_VENV:-${XDG_CACHE_HOME:-$HOME/.cache}/dwg_import_worker/venv}"
  local wanted
  wanted="$(sha256sum "$root/tests/requirements.txt" | cut -d' ' -f1)"
  if [ "$(cat "$venv/installed" 2>/dev/null)" != "$wanted" ]; then
    say "Installing the tests' Python packages"
    /usr/bin/python3 -m venv "$venv"
    "$venv/bin/pip" install --quiet --disable-pip-version-check -r "$root/tests/requirements.txt" >&2
    echo "$wanted" > "$venv/installed"
  fi
  export VIRTUAL_ENV="$venv" PATH="$venv/bin:$PATH"
}
