#!/usr/bin/env bash
# Makes the pictures of docs/preview.md anew.
#
#   scripts/preview_pictures.sh PREVIEW WORKER
#
# PREVIEW and WORKER are the two programs.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"
[ $# -eq 2 ] || fail "usage: preview_pictures.sh PREVIEW WORKER"
preview="$1"
worker="$2"
pictures="$root/docs/images"
mkdir -p "$pictures"

# picture NAME DRAWING [OPTION...]
picture() {
  local name="$1" drawing="$2"
  shift 2
  "$preview" --worker "$worker" "$root/tests/drawings/$drawing" --png "$pictures/$name.png" \
    --width 640 "$@" 2>/dev/null
  [ "$(stat -c %s "$pictures/$name.png")" -lt 100000 ] || fail "$name.png is too large"
}

picture board zenyun/example3.dwg
picture plate autodim/test3.DWG
picture viewports generated/viewport_clip_R2000.dxf --layout Layout1
picture text aspose-cad/Multileaders.dwg
picture dimension libdxf/qcad-example_R2000.dxf
picture wipeout ezdxf/wipeout_random.dxf --background dark
say "The pictures are in $pictures"
