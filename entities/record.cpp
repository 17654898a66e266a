#include "entities/record.hpp"

#include "entities/color.hpp"

void BeginRecord(JsonOut& out, std::string_view type, std::string_view quotedLayer) {
  out += "{\"type\":\"";
  out += type;
  out += "\",\"layer\":";
  out += quotedLayer;
}

void AppendCommonKeys(JsonOut& out, const Dwg_Object_Entity& entity, bool verbose,
                      const Palette& palette) {
  // Most entities take both from their layer.
  if (IsByLayer(entity.color) && !HasOwnLineweight(entity.linewt) && !verbose) {
    out += ",\"color\":\"L\",\"lw\":\"L\"";
    return;
  }
  out += ",\"color\":";
  AppendColor(out, entity.color, palette);
  out += ",\"lw\":";
  AppendLineweight(out, entity.linewt);
  if (verbose) {
    AppendColorDebug(out, entity.color);
  }
}
