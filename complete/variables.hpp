// Variables of a drawing or a dimension style, under the names that DXF gives them.
#pragma once

#include <dwg.h>

#include <concepts>
#include <string_view>

#include "complete/complete_context.hpp"
#include "complete/json_object.hpp"
#include "encode/json_list.hpp"
#include "encode/json_out.hpp"
#include "encode/json_text.hpp"

// A variable's value as JSON; nothing for a reference to what has no name.
inline void AppendValue(JsonOut& out, double value, const CompleteContext& /*context*/) {
  AppendNumber(out, value);
}
template <std::integral Integer>
void AppendValue(JsonOut& out, Integer value, const CompleteContext& /*context*/) {
  AppendInt(out, value);
}
void AppendValue(JsonOut& out, const char* text, const CompleteContext& context);
template <typename Point>
requires requires(const Point& point) {
  point.x + point.y;
}
void AppendValue(JsonOut& out, const Point& point, const CompleteContext& /*context*/) {
  JsonList coordinates(out);
  coordinates.Number(point.x);
  coordinates.Number(point.y);
  if constexpr (requires { point.z; }) {
    coordinates.Number(point.z);
  }
  coordinates.Close();
}
void AppendValue(JsonOut& out, const Dwg_Color& color, const CompleteContext& context);
// The name of what it refers to.
void AppendValue(JsonOut& out, const Dwg_Object_Ref* reference, const CompleteContext& context);

template <typename Owner>
struct Variable {
  std::string_view name;
  Dwg_Version_Type since;  // the first release of DWG that has it
  void (*append)(JsonOut& out, const Owner& owner, const CompleteContext& context);
};

template <typename Owner, auto Member>
void AppendMember(JsonOut& out, const Owner& owner, const CompleteContext& context) {
  AppendValue(out, owner.*Member, context);
}

// Appends `"NAME":value`, or nothing when there is no value.
template <typename Owner>
void AppendVariable(JsonObject& object, const Variable<Owner>& variable, const Owner& owner,
                    const CompleteContext& context) {
  object.Item(variable.name, [&] { variable.append(object.out(), owner, context); });
}
