#include "document/prepass.hpp"

#include <algorithm>
#include <span>
#include <string_view>
#include <system_error>
#include <utility>

#include "encode/color.hpp"
#include "encode/font_mapping.hpp"
#include "encode/numbers.hpp"
#include "encode/text_decoding.hpp"
#include "entities/drawing_access.hpp"
#include "entities/stored_flags.hpp"
#include "entities/walk_entities.hpp"

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kModelSpace = "*Model_Space";
constexpr std::string_view kPaperSpace = "*Paper_Space";

// A text that is no valid path on this platform gives an empty one.
fs::path PathOf(std::string_view utf8) try {
  return {std::u8string(utf8.begin(), utf8.end())};
} catch (const std::exception&) {
  return {};
}

std::string Utf8Of(const fs::path& path) try {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
} catch (const std::exception&) {
  return {};
}

bool Exists(const fs::path& path) {
  std::error_code error;
  return !path.empty() && fs::exists(path, error);
}

std::string ResolvePdf(const std::string& declaredPath, const fs::path& drawingFolder) {
  if (Exists(PathOf(declaredPath))) {
    return declaredPath;
  }
  const fs::path fileName = PathOf(FileNameComponent(declaredPath));
  if (drawingFolder.empty() || fileName.empty()) {
    return {};
  }
  const fs::path beside = drawingFolder / fileName;
  return Exists(beside) ? Utf8Of(beside) : std::string{};
}

class Prepass {
 public:
  Prepass(bool unicodeText, const fs::path& drawingFolder)
      : unicodeText_(unicodeText), drawingFolder_(drawingFolder) {}

  void Add(const Dwg_Object& object) {
    const Handle handle = object.handle.value;
    switch (object.fixedtype) {
      case DWG_TYPE_LAYER: AddLayer(handle, ObjectData(object, &ObjectTio::LAYER)); break;
      case DWG_TYPE_STYLE: AddStyle(handle, ObjectData(object, &ObjectTio::STYLE)); break;
      case DWG_TYPE_DIMSTYLE: AddDimStyle(handle, ObjectData(object, &ObjectTio::DIMSTYLE)); break;
      case DWG_TYPE_IMAGEDEF: AddImageDef(handle, ObjectData(object, &ObjectTio::IMAGEDEF)); break;
      case DWG_TYPE_PDFDEFINITION:
        AddPdfDef(handle, ObjectData(object, &ObjectTio::PDFDEFINITION));
        break;
      case DWG_TYPE_BLOCK_HEADER:
        AddBlock(handle, ObjectData(object, &ObjectTio::BLOCK_HEADER));
        break;
      case DWG_TYPE_LAYOUT: AddLayout(ObjectData(object, &ObjectTio::LAYOUT)); break;
      case DWG_TYPE_VIEWPORT: AddClipBoundary(EntityData(object, &EntityTio::VIEWPORT)); break;
      default: break;
    }
    if (IsEntity(object)) {
      AddEntity(object);
    }
  }

  // Room for so many objects.
  void Reserve(std::size_t count) { tables_.entitiesByOwner.Reserve(count); }

  LookupTables Take() {
    tables_.entitiesByOwner.Finish();
    return std::move(tables_);
  }

 private:
  std::string Decode(const char* text) const { return DecodeText(unicodeText_, text); }

  void AddLayer(Handle handle, const Dwg_Object_LAYER* layer) {
    if (layer != nullptr && layer->name != nullptr) {
      tables_.layerNames[handle] = Decode(layer->name);
    }
  }

  void AddStyle(Handle handle, const Dwg_Object_STYLE* style) {
    if (style == nullptr) {
      return;
    }
    tables_.textStyles[handle] = style->text_size;
    const std::string fontFile = Decode(style->font_file);
    if (!fontFile.empty()) {
      tables_.styleFonts[handle] = MapFontFamily(fontFile);
    }
  }

  void AddDimStyle(Handle handle, const Dwg_Object_DIMSTYLE* style) {
    if (style == nullptr) {
      return;
    }
    tables_.dimStyles[handle] = {
        .textHeight = style->DIMTXT,
        .overallScale = style->DIMSCALE,
        .arrowSize = style->DIMASZ,
        .textStyle = HandleOf(style->DIMTXSTY),
        .textColor = ColorJsonOrEmpty(style->DIMCLRT),
        .lineColor = ColorJsonOrEmpty(style->DIMCLRD),
        .decimalPlaces = style->DIMDEC,
        .linearFactor = style->DIMLFAC,
        .rounding = style->DIMRND,
        .zeroSuppression = style->DIMZIN,
        .linearUnit = style->DIMLUNIT,
        .postfix = Decode(style->DIMPOST),
    };
  }

  void AddImageDef(Handle handle, const Dwg_Object_IMAGEDEF* definition) {
    std::string path = definition == nullptr ? std::string{} : Decode(definition->file_path);
    if (!path.empty()) {
      tables_.imageDefs[handle] = std::move(path);
    }
  }

  void AddPdfDef(Handle handle, const Dwg_Object_PDFDEFINITION* definition) {
    if (definition == nullptr) {
      return;
    }
    const std::string path = Decode(definition->filename);
    if (!path.empty()) {
      tables_.pdfDefs[handle] = {.resolvedPath = ResolvePdf(path, drawingFolder_),
                                 .declaredPath = path,
                                 .page = PdfPage(Decode(definition->name))};
    }
  }

  void AddBlock(Handle handle, const Dwg_Object_BLOCK_HEADER* block) {
    if (block == nullptr || block->name == nullptr) {
      return;
    }
    const std::string& name = tables_.blockNames[handle] = Decode(block->name);
    if (name == kModelSpace) {
      tables_.modelSpace = handle;
    } else if (name.starts_with(kPaperSpace) && paperSpaces_.insert(handle).second) {
      tables_.paperSpaces.push_back(handle);
    }
  }

  void AddLayout(const Dwg_Object_LAYOUT* layout) {
    const Handle block = layout == nullptr ? 0 : HandleOf(layout->block_header);
    if (block != 0) {
      tables_.layoutsByBlock[block] = layout;
    }
  }

  void AddClipBoundary(const Dwg_Entity_VIEWPORT* viewport) {
    const Handle boundary = viewport == nullptr ? 0 : ClipBoundaryOf(*viewport);
    if (boundary != 0) {
      tables_.clipBoundaries.insert(boundary);
    }
  }

  void AddEntity(const Dwg_Object& object) {
    switch (object.fixedtype) {
      case DWG_TYPE_SEQEND:
      case DWG_TYPE_VERTEX_2D:
      case DWG_TYPE_VERTEX_3D:
      case DWG_TYPE_VERTEX_MESH: return;
      default: break;
    }
    if (object.tio.entity == nullptr) {
      return;
    }
    tables_.entitiesByOwner.Add(HandleOf(object.tio.entity->ownerhandle), object);
  }

  bool unicodeText_;
  const fs::path& drawingFolder_;
  LookupTables tables_;
  HandleSet paperSpaces_;
};

const Dwg_Object_Entity* EntityAt(std::span<const Dwg_Object> objects, std::size_t position) {
  return position < objects.size() && IsEntity(objects[position]) ? objects[position].tio.entity
                                                                  : nullptr;
}

// What leads to the owners of the entities some way ahead.
void PrefetchOwner(std::span<const Dwg_Object> objects, std::size_t position) {
  constexpr std::size_t kStep = 8;
  if (const auto* entity = EntityAt(objects, position + 2 * kStep)) {
    Prefetch(&entity->ownerhandle);
  }
  if (const auto* entity = EntityAt(objects, position + kStep)) {
    Prefetch(entity->ownerhandle);
  }
}

}  // namespace

std::string FileNameComponent(std::string_view declaredPath) {
  const std::size_t separator = declaredPath.find_last_of("/\\");
  if (separator != std::string_view::npos) {
    return std::string(declaredPath.substr(separator + 1));
  }
  const auto isLetter = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); };
  if (declaredPath.size() >= 2 && isLetter(declaredPath[0]) && declaredPath[1] == ':') {
    declaredPath.remove_prefix(2);
  }
  return std::string(declaredPath);
}

std::int32_t PdfPage(std::string_view name) {
  return std::max(ParseInt32(name).value_or(1), 1);
}

LookupTables BuildLookupTables(const Dwg_Data& dwg, bool unicodeText,
                               const std::filesystem::path& drawingFolder) {
  Prepass prepass(unicodeText, drawingFolder);
  const auto objects = Objects(dwg);
  prepass.Reserve(objects.size());
  for (std::size_t i = 0; i < objects.size(); ++i) {
    PrefetchOwner(objects, i);
    prepass.Add(objects[i]);
  }
  return prepass.Take();
}
