#include "complete/plane_keys.hpp"

#include "complete/common_keys.hpp"
#include "encode/json_text.hpp"

void AppendPlaneKeys(JsonOut& out, double elevation, double thickness,
                     const BITCODE_BE& extrusion) {
  if (elevation != 0) {
    AppendNumberKey(out, ",\"elevation\":", elevation);
  }
  if (thickness != 0) {
    AppendNumberKey(out, ",\"thickness\":", thickness);
  }
  if (extrusion.x != 0 || extrusion.y != 0 || extrusion.z != 1) {
    AppendPointKey(out, ",\"extrusion\":", extrusion.x, extrusion.y, extrusion.z);
  }
}
