#!/usr/bin/env bash
# Makes the pictures of docs/preview.md anew.
#
#   scripts/preview_pictures.sh PREVIEW WORKER [FOLDER]
#
# PREVIEW and WORKER are the two programs. FOLDER holds the drawings that are too large
# for the repository, below the names of their projects; without it their pictures stay.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"
[ $# -eq 2 ] || [ $# -eq 3 ] || fail "usage: preview_pictures.sh PREVIEW WORKER [FOLDER]"
preview="$(realpath "$1")"
worker="$(realpath "$2")"
pictures="$root/docs/images"
mkdir -p "$pictures"

# picture NAME DRAWING [OPTION...]
picture() {
  local name="$1" drawing="$2"
  shift 2
  "$preview" --worker "$worker" "$drawing" --png "$pictures/$name.png" \
    --width 640 "$@" 2>/dev/null
  [ "$(stat -c %s "$pictures/$name.png")" -lt 150000 ] || fail "$name.png is too large"
}

cd "$root/tests/drawings"
picture board zenyun/example3.dwg
picture plate autodim/test3.DWG
picture viewports generated/viewport_clip_R2000.dxf --layout Layout1
picture wipeout ezdxf/wipeout_random.dxf --background dark
if [ $# -eq 3 ]; then
  cd "$3"
  picture floorplan skymakerolof-dxf/floorplan.dxf --width 900
  picture building gdal/Building_A_Floor_0_Mapwize.dwg --width 900
  picture ceiling tika/testDWGmech2007.dwg
  picture types netdxf-2021/sample.dxf --width 900
  picture machine autodim/test.dwg --width 800 --region 2816,108,3322,490
  picture gate "aspose-cad/D ZD junior D10m H2m.dwg" --width 900
fi
say "The pictures are in $pictures"
