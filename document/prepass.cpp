#include "document/prepass.hpp"

#include <cstddef>
#include <span>
#include <string>
#include <utility>

#include "document/pdf_files.hpp"
#include "encode/font_mapping.hpp"
#include "encode/text_decoding.hpp"
#include "entities/block_names.hpp"
#include "entities/color.hpp"
#include "entities/drawing_access.hpp"
#include "entities/stored_flags.hpp"
#include "entities/walk_entities.hpp"

namespace {

class Prepass {
 public:
  Prepass(const Drawing& drawing, Grouping grouping)
      : drawing_(drawing), isGrouping_(grouping == Grouping::kByStoredOwner) {}

  void Add(const Dwg_Object& object) {
    const Handle handle = object.handle.value;
    switch (object.fixedtype) {
      case DWG_TYPE_LAYER: AddLayer(object, ObjectData(object, &ObjectTio::LAYER)); break;
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
    if (isGrouping_) {
      AddEntity(object);
    }
  }

  // Room for so many objects.
  void Reserve(std::size_t count) {
    if (isGrouping_) {
      tables_.entitiesByOwner.Reserve(count);
    }
  }

  LookupTables Take() {
    tables_.entitiesByOwner.Finish();
    return std::move(tables_);
  }

 private:
  std::string Decode(const char* text) const { return std::string(drawing_.Decode(text)); }

  // The layers section has a record for those whose raw type says so, too.
  void AddLayer(const Dwg_Object& object, const Dwg_Object_LAYER* layer) {
    if (layer != nullptr && layer->name != nullptr) {
      const auto* record = TableRecord(object, DWG_TYPE_LAYER, &ObjectTio::LAYER);
      tables_.layers.Add(object.handle.value, LayerEntry(drawing_.Decode(layer->name), record));
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
        .textColor = ColorJsonOrEmpty(style->DIMCLRT, drawing_.palette),
        .lineColor = ColorJsonOrEmpty(style->DIMCLRD, drawing_.palette),
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
      tables_.pdfDefs[handle] = {.resolvedPath = ResolvePdf(path, drawing_.folder),
                                 .declaredPath = path,
                                 .page = PdfPage(Decode(definition->name))};
    }
  }

  void AddBlock(Handle handle, const Dwg_Object_BLOCK_HEADER* block) {
    if (block == nullptr || block->name == nullptr) {
      return;
    }
    const std::string& name = tables_.blockNames[handle] = Decode(block->name);
    if (name == kModelSpaceName) {
      tables_.modelSpace = handle;
    } else if (name.starts_with(kPaperSpaceName) && paperSpaces_.insert(handle).second) {
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
    const Dwg_Object_Entity* entity = EntityOf(object);
    if (entity == nullptr || IsPolylinePart(object)) {
      return;
    }
    tables_.entitiesByOwner.Add(HandleOf(entity->ownerhandle), object);
  }

  const Drawing& drawing_;
  bool isGrouping_;
  LookupTables tables_;
  HandleSet paperSpaces_;
};

// The library looks for the block through its BLOCK_CONTROL, which it takes to
// have its data.
Handle ModelSpaceByLibrary(Dwg_Data& dwg) {
  for (const Dwg_Object& object : Objects(dwg)) {
    if (object.fixedtype == DWG_TYPE_BLOCK_CONTROL &&
        ObjectData(object, &ObjectTio::BLOCK_CONTROL) == nullptr) {
      return 0;
    }
  }
  return HandleOf(dwg_model_space_ref(&dwg));
}

}  // namespace

LookupTables BuildLookupTables(const Drawing& drawing, Grouping grouping) {
  Prepass prepass(drawing, grouping);
  const auto objects = Objects(drawing.data);
  prepass.Reserve(objects.size());
  for (std::size_t i = 0; i < objects.size(); ++i) {
    PrefetchOwner(objects, i);
    prepass.Add(objects[i]);
  }
  LookupTables tables = prepass.Take();
  if (tables.modelSpace == 0) {
    tables.modelSpace = ModelSpaceByLibrary(drawing.data);
  }
  return tables;
}
