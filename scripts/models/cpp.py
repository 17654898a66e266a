"""Structures for C++20, with a parser on nlohmann/json."""

# Keys that the language has another use for.
KEYWORDS = {"double"}


def written(one):
    kind = one[0]
    if kind == "name":
        # A record may hold records.
        return "std::shared_ptr<const Entity>" if one[1] == "Entity" else one[1]
    if kind in ("either", "tagged"):
        return f"std::variant<{', '.join(map(written, one[1:]))}>"
    if kind == "list":
        inner = "Entity" if one[1] == ("name", "Entity") else written(one[1])
        return f"std::vector<{inner}>"
    if kind == "map":
        return f"std::map<std::string, {written(one[1])}>"
    if kind == "numbers":
        return f"std::array<double, {one[1]}>"
    return {"text": "std::string", "words": "std::string", "number": "double",
            "integer": "std::int64_t", "boolean": "bool"}[kind]


def member(key):
    name = key.lstrip("_")
    return f"{name}_" if name in KEYWORDS else name


def declaration(field):
    kind = written(field.type)
    if not field.required and not kind.startswith("std::shared_ptr"):
        kind = f"std::optional<{kind}>"
    start = " = 0" if kind in ("double", "std::int64_t") else " = false" if kind == "bool" else ""
    comment = f"  // {field.description}" if field.description else ""
    return f"  {kind} {member(field.key)}{start};{comment}\n"


def structure(one):
    comment = f"// {one.description}.\n" if one.description else ""
    tag = f'  static constexpr std::string_view kType = "{one.tag}";\n' if one.tag else ""
    return f"{comment}struct {one.name} {{\n{tag}{''.join(map(declaration, one.fields))}}};\n"


def reader(one):
    calls = "".join(
        f'  {"Read" if field.required else "ReadIfThere"}'
        f'(json{".at(" if field.required else ", "}"{field.key}"{")" if field.required else ""}, '
        f"to.{member(field.key)});\n" for field in one.fields)
    if not calls:
        return f"inline void Read(const Json& /*json*/, {one.name}& /*to*/) {{}}\n"
    return f"inline void Read(const Json& json, {one.name}& to) {{\n{calls}}}\n"


HEAD = """// clang-format off
// Made by scripts/make_models.py from the schema, version @VERSION@. Do not edit.
//
// What @COMMAND@ prints, as structures. Keys that they do not name are passed over.
// What does not have the form of the schema raises std::runtime_error or one of nlohmann's
// exceptions, which derive from std::exception.
// NOLINTBEGIN(readability-identifier-naming)
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

namespace @NAME@ {

using Json = nlohmann::json;

struct Entity;
"""

READERS = """inline void Read(const Json& json, double& to) {
  to = json.get<double>();
}
inline void Read(const Json& json, std::int64_t& to) {
  to = json.get<std::int64_t>();
}
inline void Read(const Json& json, bool& to) {
  to = json.get<bool>();
}
inline void Read(const Json& json, std::string& to) {
  to = json.get<std::string>();
}
template <std::size_t kCount>
void Read(const Json& json, std::array<double, kCount>& to) {
  json.get_to(to);
}
template <typename Item>
void Read(const Json& json, std::vector<Item>& to);
template <typename Item>
void Read(const Json& json, std::map<std::string, Item>& to);
template <typename... Choices>
void Read(const Json& json, std::variant<Choices...>& to);
void Read(const Json& json, Entity& to);
void Read(const Json& json, std::shared_ptr<const Entity>& to);

template <typename Value>
void ReadIfThere(const Json& json, const char* key, std::optional<Value>& to) {
  if (const auto found = json.find(key); found != json.end()) {
    Read(*found, to.emplace());
  }
}
inline void ReadIfThere(const Json& json, const char* key, std::shared_ptr<const Entity>& to) {
  if (const auto found = json.find(key); found != json.end()) {
    Read(*found, to);
  }
}
"""

TAIL = """template <typename Item>
void Read(const Json& json, std::vector<Item>& to) {
  to.reserve(json.size());
  for (const Json& item : json.get_ref<const Json::array_t&>()) {
    Item value{};
    Read(item, value);
    to.push_back(std::move(value));
  }
}

template <typename Item>
void Read(const Json& json, std::map<std::string, Item>& to) {
  for (const auto& [key, item] : json.get_ref<const Json::object_t&>()) {
    Read(item, to[key]);
  }
}

// Whether a value has the form of a type; objects without a type word are all alike.
template <typename Value>
bool Fits(const Json& json) {
  if constexpr (std::is_same_v<Value, std::string>) {
    return json.is_string();
  } else if constexpr (std::is_same_v<Value, double>) {
    return json.is_number();
  } else if constexpr (std::is_same_v<Value, std::int64_t>) {
    return json.is_number_integer();
  } else if constexpr (requires { std::tuple_size<Value>::value; }) {
    return json.is_array() && json.size() == std::tuple_size_v<Value>;
  } else {
    return json.is_object();
  }
}

template <std::size_t kIndex, typename... Choices>
void ReadFitting(const Json& json, std::variant<Choices...>& to) {
  if constexpr (kIndex < sizeof...(Choices)) {
    if (Fits<std::variant_alternative_t<kIndex, std::variant<Choices...>>>(json)) {
      Read(json, to.template emplace<kIndex>());
    } else {
      ReadFitting<kIndex + 1>(json, to);
    }
  } else {
    throw std::runtime_error("a value has none of its forms: " + std::string(json.type_name()));
  }
}

template <std::size_t kIndex, typename... Choices>
void ReadTagged(const Json& json, std::string_view type, std::variant<Choices...>& to) {
  if constexpr (kIndex < sizeof...(Choices)) {
    if (type == std::variant_alternative_t<kIndex, std::variant<Choices...>>::kType) {
      Read(json, to.template emplace<kIndex>());
    } else {
      ReadTagged<kIndex + 1>(json, type, to);
    }
  } else {
    throw std::runtime_error("there is no record of the type " + std::string(type));
  }
}

template <typename... Choices>
void Read(const Json& json, std::variant<Choices...>& to) {
  if constexpr ((requires { Choices::kType; } && ...)) {
    ReadTagged<0>(json, json.at("type").get_ref<const std::string&>(), to);
  } else {
    ReadFitting<0>(json, to);
  }
}

inline void Read(const Json& json, Entity& to) {
  Read(json, to.value);
}

inline void Read(const Json& json, std::shared_ptr<const Entity>& to) {
  auto record = std::make_shared<Entity>();
  Read(json, *record);
  to = std::move(record);
}

// The length of the character at the start of a text, 0 when its bytes are none: names
// of a broken drawing come as they are.
inline std::size_t Utf8Length(std::string_view text) {
  const auto byte = [text](std::size_t i) {
    return i < text.size() ? static_cast<unsigned char>(text[i]) : 0U;
  };
  const unsigned first = byte(0);
  if (first < 0x80) {
    return 1;
  }
  const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
  const unsigned second = byte(1);
  const unsigned least = first == 0xE0 ? 0xA0 : first == 0xF0 ? 0x90 : 0x80;
  const unsigned most = first == 0xED ? 0x9F : first == 0xF4 ? 0x8F : 0xBF;
  if (first < 0xC2 || first > 0xF4 || second < least || second > most) {
    return 0;
  }
  for (std::size_t i = 2; i < length; ++i) {
    if ((byte(i) & 0xC0U) != 0x80) {
      return 0;
    }
  }
  return length;
}

// The text with U+FFFD for each byte that belongs to no character.
inline std::string ValidUtf8(std::string_view text) {
  std::string valid;
  valid.reserve(text.size());
  while (!text.empty()) {
    const std::size_t length = Utf8Length(text);
    valid += length != 0 ? text.substr(0, length) : std::string_view("\\xEF\\xBF\\xBD");
    text.remove_prefix(length != 0 ? length : 1);
  }
  return valid;
}

// The document of a line that the worker has printed.
inline Document ParseDocument(std::string_view line) {
  const Json json = Json::parse(ValidUtf8(line));
  if (const auto error = json.find("error"); error != json.end()) {
    throw std::runtime_error(error->get<std::string>());
  }
  Document document;
  Read(json, document);
  return document;
}

}  // namespace @NAME@
// NOLINTEND(readability-identifier-naming)
"""


def alias(one):
    comment = f"// {one.description}.\n" if one.description else ""
    # What records refer to has to be a type of its own.
    if one.name == "Entity":
        return f"{comment}struct Entity {{\n  {written(one.type)} value;\n}};\n"
    return f"{comment}using {one.name} = {written(one.type)};\n"


def write(types):
    objects = [one for one in types.definitions if hasattr(one, "fields")]
    parts = [HEAD]
    parts += [structure(one) if one in objects else alias(one) for one in types.definitions]
    parts.append(READERS)
    parts += [reader(one) for one in objects if one.name != "Refusal"]
    parts.append(TAIL)
    text = "\n".join(parts)
    for mark in ("version", "command", "name"):
        text = text.replace(f"@{mark.upper()}@", getattr(types, mark))
    return text
