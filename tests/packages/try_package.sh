#!/usr/bin/env bash
# Tries one package as its users would: unpacks or installs it into an empty place,
# converts a drawing there, and checks its bill of materials.
#
#   try_package.sh FILE
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/../../scripts/common.sh"
. "$root/scripts/windows_packages.sh"

file="$(realpath "$1")"
name="$(basename "$file")"
place="$(mktemp -d)"
trap 'rm -rf "$place"' EXIT
drawing="$root/examples/plan.dwg"

# is_document TEXT
is_document() {
  case "$1" in
    '{"dwgVersion":'*'}}') ;;
    *) fail "$name: the program printed ${1:0:200}" ;;
  esac
}

# is_picture PROGRAM: the preview draws, with the worker beside it.
is_picture() {
  local picture="$place/picture.png"
  (cd / && env -i QT_QPA_PLATFORM=offscreen HOME="$place" "$1" "$drawing" --png "$picture" 2>/dev/null) ||
    fail "$name: the preview ends with $?"
  [ "$(head -c 8 "$picture" | od -An -tx1 | tr -d ' \n')" = 89504e470d0a1a0a ] ||
    fail "$name: the preview has not written a picture"
  rm "$picture"
}

# check_page PAGE...: man finds them, where it is installed.
check_page() {
  local page
  command -v man >/dev/null || return 0
  for page in "$@"; do
    MANPATH="$(find "$place" -type d -path '*share/man')" man -w "$page" >/dev/null ||
      fail "$name: no man page $page is found"
  done
}

# under_wine FOLDER: what the worker in it prints.
under_wine() {
  (use_wine && cd "$1" && wine ./dwg_import_worker.exe "Z:${drawing//\//\\}" 2>/dev/null)
}

# try_windows_node PROJECT: wine has no console for this Node, which takes files instead.
try_windows_node() {
  local node
  node="$(windows_node)" || {
    say "$name: not run with the Node of Windows, which npm does not fetch here"
    return 0
  }
  use_wine
  (cd "$1" && NODE_SKIP_PLATFORM_CHECK=1 wine "$node" try_node.js "Z:${drawing//\//\\}" \
    </dev/null >"$place/node.log" 2>&1) ||
    fail "$name: the Node of Windows says $(cat "$place/node.log")"
}

# check_bill [SUBJECT [PLACE PROGRAMS]]: the bill in a place tells of the programs in a
# folder; by default both are everything.
check_bill() {
  local bill
  bill="$(find "${2:-$place}" -name "${1:-dwg_import_worker}.spdx.json")"
  [ -n "$bill" ] || fail "$name holds no bill of materials"
  python3 "$root/tests/packages/check_bill.py" "$bill" "${3:-$place}" >&2
}

# No program names a folder of the machine that built it.
check_paths() {
  local named
  named="$(find "$place" -type f \( -name 'dwg_*' -o -name 'crashpad_handler*' \) ! -name '*.*' \
    -o -name '*.exe' -type f | xargs grep -lF -e "$root/" -e "$HOME/")" || return 0
  fail "$name: built into $named is $root or $HOME"
}

# The texts of what is linked in.
check_licences() {
  local one
  for one in libredwg mimalloc sentry-native crashpad mini_chromium zlib gcc-runtime; do
    [ -s "$(find "$place" -path "*licenses/$one.txt" | head -1)" ] ||
      fail "$name holds no licence of $one"
  done
}

case "$name" in
  *.tar.xz)
    tar -xJf "$file" -C "$place"
    is_document "$(cd "$place"/*/bin && env -i ./dwg_import_worker "$drawing" 2>/dev/null)"
    is_picture "$(echo "$place"/*/bin/dwg_preview)"
    check_page dwg_import_worker dwg_preview
    ;;
  dwg-preview_*.deb)
    # Beside the worker, which it depends on.
    dpkg-deb --extract "$(echo "$(dirname "$file")"/dwg-import-worker_*.deb)" "$place"
    rm -r "$place/usr/share"
    dpkg-deb --extract "$file" "$place"
    is_picture "$place/usr/bin/dwg_preview"
    check_page dwg_preview
    rm -r "$place/usr/libexec"
    check_bill dwg_preview
    check_paths
    say "$name works"
    exit
    ;;
  *.deb)
    dpkg-deb --extract "$file" "$place"
    is_document "$(env -i "$place/usr/bin/dwg_import_worker" "$drawing" 2>/dev/null)"
    check_page dwg_import_worker
    ;;
  *.zip)
    python3 -m zipfile -e "$file" "$place"
    is_document "$(under_wine "$place"/dwg_import_worker-*)"
    ;;
  *win_amd64.whl)
    # As pip would on Windows; there is no Python of Windows here to go on with.
    /usr/bin/python3 -m venv "$place/venv"
    "$place/venv/bin/pip" install --quiet --disable-pip-version-check --no-index --only-binary=:all: \
      --platform win_amd64 --python-version 3.10 --target "$place/installed" "$file"
    is_document "$(under_wine "$place/installed/dwg_import_worker/programs")"
    ;;
  *.whl)
    /usr/bin/python3 -m venv "$place"
    "$place/bin/pip" install --quiet --disable-pip-version-check --no-index "$file"
    "$place/bin/python" -m py_compile "$place"/lib/python3*/site-packages/dwg_import_worker/models{,_complete}.py
    "$place/bin/python" - "$drawing" <<'PYTHON'
import sys
import dwg_import_worker
result = dwg_import_worker.convert(sys.argv[1])
assert result.kind == "document" and result.document["entities"], result
assert dwg_import_worker.convert(sys.argv[1], complete=True).document["form"]["name"] == "complete"
assert dwg_import_worker.convert("none.dwg").kind == "refused"
assert dwg_import_worker.convert(sys.argv[1], megabytes=1).kind != "document"
PYTHON
    ;;
  *.tgz)
    mkdir "$place/project"
    if command -v npm >/dev/null; then
      (cd "$place/project" && npm init --yes >/dev/null &&
        npm install --offline --ignore-scripts --no-audit --no-fund "$file" >/dev/null)
    else
      say "$name: unpacked by hand, for want of npm"
      mkdir -p "$place/project/node_modules/dwg-import-worker"
      tar -xzf "$file" -C "$place/project/node_modules/dwg-import-worker" --strip-components=1
    fi
    cp "$root/tests/packages/try_node.js" "$place/project"
    if command -v node >/dev/null; then
      (cd "$place/project" && node try_node.js "$drawing")
    else
      say "$name: not run, for want of Node"
    fi
    installed="$place/project/node_modules/dwg-import-worker"
    if [ -d "$installed/programs/win32-x64" ]; then
      try_windows_node "$place/project"
      # Its bill stands for itself.
      check_bill dwg_import_worker "$installed/licenses/win32-x64" "$installed/programs/win32-x64"
      rm -r "$installed"/{licenses,programs}/win32-x64
    fi
    if command -v tsc >/dev/null; then
      cat > "$place/project/typed.ts" <<'TYPESCRIPT'
import {convert} from "dwg-import-worker";
export async function radii(drawing: string): Promise<number[]> {
  const result = await convert(drawing, {seconds: 5});
  return (result.document?.entities ?? []).flatMap(
      (entity) => entity.type === "CIRCLE" ? [entity.radius] : []);
}
export async function linetypes(drawing: string): Promise<string[]> {
  const result = await convert(drawing, {complete: true});
  return (result.document?.linetypes ?? []).map((linetype) => linetype.name);
}
TYPESCRIPT
      (cd "$place/project" && tsc --strict --noEmit --target es2020 --moduleResolution node typed.ts) ||
        fail "$name: its types do not fit"
    fi
    ;;
  *) fail "what kind of package is $name?" ;;
esac
check_bill
check_paths
check_licences
say "$name works"
