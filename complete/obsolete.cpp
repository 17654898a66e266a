#include "complete/obsolete.hpp"

#include "encode/json_text.hpp"

void AppendSpatialLine(JsonOut& out, const Dwg_Entity__3DLINE& line) {
  AppendNumberKey(out, ",\"startX\":", line.start.x);
  AppendNumberKey(out, ",\"startY\":", line.start.y);
  AppendNumberKey(out, ",\"startZ\":", line.start.z);
  AppendNumberKey(out, ",\"endX\":", line.end.x);
  AppendNumberKey(out, ",\"endY\":", line.end.y);
  AppendNumberKey(out, ",\"endZ\":", line.end.z);
}

void AppendRepeatStart(JsonOut& out, const Dwg_Entity_REPEAT& /*repeat*/) {
  out += ",\"begins\":true";
}

void AppendRepeatEnd(JsonOut& out, const Dwg_Entity_ENDREP& repeat) {
  AppendIntKey(out, ",\"columns\":", repeat.numcols);
  AppendIntKey(out, ",\"rows\":", repeat.numrows);
  AppendNumberKey(out, ",\"columnSpacing\":", repeat.colspacing);
  AppendNumberKey(out, ",\"rowSpacing\":", repeat.rowspacing);
}
