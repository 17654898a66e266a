// Whole drawings in memory: objects of every handled type, built from fuzz
// bytes with missing data, wrong counts, values that are not finite, dangling
// and circular handles and wrong owners, through the whole conversion. It goes
// beyond what the library's readers let through.
//
// A count never exceeds its array here unless the array is missing: nobody
// could tell.

#include <dwg.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "complete/document.hpp"
#include "document/document.hpp"
#include "encode/text_decoding.hpp"
#include "entities/drawing_access.hpp"
#include "entities/entity_context.hpp"
#include "fuzz/check.hpp"
#include "fuzz/fuzz_input.hpp"
#include "reading/dxf_settling.hpp"
#include "tests/support/json_grammar.hpp"
#include "tests/support/memory_drawing.hpp"

namespace {

constexpr std::size_t kMaxObjects = 96;
constexpr std::uint32_t kHandles = 24;
constexpr Handle kPlaceholderHandle = 0x1F;  // of the DXF reader's own block

class DrawingBuilder {
 public:
  explicit DrawingBuilder(FuzzInput& input) : input_(input) {
    unicodeText_ = input_.OneIn(2);
    dwg().header.version = static_cast<Dwg_Version_Type>(input_.Below(48));
    dwg().header_vars.INSUNITS = static_cast<BITCODE_BS>(input_.Word());
    const bool hasObjectMap = !input_.OneIn(16);
    if (input_.OneIn(4)) {
      AddPlaceholder();
    }
    while (!input_.IsEmpty() && drawing_.objects().size() < kMaxObjects) {
      AddObject();
    }
    for (Dwg_Object_Ref* reference : modelSpaceReferences_) {
      reference->obj = Find(reference->absolute_ref);
    }
    for (std::size_t i = 0; i < drawing_.objects().size(); ++i) {
      drawing_.EnterHandle(i);
    }
    if (!hasObjectMap) {
      dwg().object_map = nullptr;
    }
  }
  ~DrawingBuilder() {
    for (const Dwg_Object_BLOCK_HEADER* block : blocks_) {
      std::free(block->name);
    }
    for (std::size_t i = 0; i < dwg().num_object_refs; ++i) {
      std::free(dwg().object_ref[i]);
    }
    std::free(dwg().object_ref);
    std::free(dwg().object_ordered_ref);
  }
  DrawingBuilder(const DrawingBuilder&) = delete;
  DrawingBuilder& operator=(const DrawingBuilder&) = delete;

  Dwg_Data& dwg() { return drawing_.data(); }
  bool unicodeText() const { return unicodeText_; }

 private:
  // An array of up to 12 values and its count; sometimes missing with a count.
  template <typename T, typename Count, typename Fill>
  void Array(T*& data, Count& count, Fill fill) {
    if (input_.OneIn(10)) {
      data = nullptr;
      count = static_cast<Count>(input_.Word() * 65537U);
      return;
    }
    std::vector<T> values(input_.Below(13));
    for (T& value : values) {
      fill(value);
    }
    count = static_cast<Count>(values.size());
    data = drawing_.Array(std::move(values));
  }

  // In the drawing's form, with its terminating zeros; none for a missing text.
  std::optional<std::vector<char>> StoredText() {
    if (input_.OneIn(8)) {
      return std::nullopt;
    }
    // The last three are paths of something that exists, or exists beside the
    // drawing.
    static constexpr std::array<const char*, 11> kNames = {
        "*Model_Space",
        "*Paper_Space",
        "*PAPER_SPACE3",
        "*model_spaceX",
        "block",
        "romans.shx",
        "\\fSimSun|b1|i1|c134|p1;x\xe9\\Q1;\\H2.5x;{\\W0.8;\\T2;a\\pi1,l2,r3,qc,t4,5;}\\S1/2;",
        "%%u%%o%%c%%d%%p%%%%%065%%176",
        "/",
        "absent\\.",
        "C:."};
    const std::string bytes =
        input_.OneIn(3) ? kNames[input_.Below(kNames.size())] : input_.Bytes(60);
    std::vector<char> stored;
    for (const char c : bytes) {
      stored.push_back(c);
      if (unicodeText_) {
        stored.push_back(input_.OneIn(6) ? static_cast<char>(input_.Byte()) : '\0');
      }
    }
    stored.insert(stored.end(), 2, '\0');
    return stored;
  }

  char* Text() {
    auto stored = StoredText();
    if (!stored) {
      return nullptr;
    }
    return drawing_.Array(std::move(*stored));
  }

  // A text for the library to free: what settles a drawing from DXF replaces it.
  char* MallocedText() {
    const auto stored = StoredText();
    if (!stored) {
      return nullptr;
    }
    auto* copy = static_cast<char*>(std::malloc(stored->size()));
    std::memcpy(copy, stored->data(), stored->size());
    return copy;
  }

  Handle AnyHandle() {
    const std::uint32_t handle = input_.Below(kHandles);
    return handle == kHandles - 1 ? kPlaceholderHandle : handle;
  }

  Dwg_Object* Find(Handle handle) {
    for (Dwg_Object& object : drawing_.objects()) {
      if (object.handle.value == handle && handle != 0) {
        return &object;
      }
    }
    return nullptr;
  }

  // A reference to anything, to nothing, or, mostly, to an earlier object of the
  // type that belongs there.
  Dwg_Object_Ref* Reference(DWG_OBJECT_TYPE type = DWG_TYPE_UNUSED) {
    if (input_.OneIn(6)) {
      return nullptr;
    }
    Dwg_Object_Ref* reference = drawing_.Ref(0);
    const std::vector<Handle>& candidates = handlesByType_[type];
    reference->absolute_ref = candidates.empty() || input_.OneIn(4)
                                  ? AnyHandle()
                                  : candidates[input_.Byte() % candidates.size()];
    return reference;
  }

  DWG_OBJECT_TYPE OwnerType() { return input_.OneIn(4) ? DWG_TYPE_INSERT : DWG_TYPE_BLOCK_HEADER; }

  DWG_OBJECT_TYPE ClipType() {
    static constexpr std::array<DWG_OBJECT_TYPE, 5> kTypes = {
        DWG_TYPE_LWPOLYLINE, DWG_TYPE_POLYLINE_2D, DWG_TYPE_VIEWPORT, DWG_TYPE_SPLINE,
        DWG_TYPE_HATCH};
    return kTypes[input_.Byte() % kTypes.size()];
  }

  // Mostly the z axis, as in real drawings.
  void FillExtrusion(BITCODE_BE& extrusion) {
    if (input_.OneIn(2)) {
      extrusion = {0, 0, input_.OneIn(2) ? 1.0 : -1.0};
    } else {
      Fill(extrusion);
    }
  }

  // Three rows of four, or none.
  double* Matrix() {
    constexpr std::size_t kMatrixSize = 12;
    if (input_.OneIn(4)) {
      return nullptr;
    }
    std::vector<double> matrix(kMatrixSize);
    for (double& value : matrix) {
      value = input_.Double();
    }
    return drawing_.Array(std::move(matrix));
  }

  // Extended data of the applications that are read, or of any.
  template <typename Data>
  void FillExtendedData(Data& data) {
    if (!input_.OneIn(4)) {
      return;
    }
    std::vector<Dwg_Eed> items(input_.Below(9));
    for (Dwg_Eed& item : items) {
      item.handle.value = input_.OneIn(2) ? 0 : HandleOf(Reference(DWG_TYPE_APPID));
      item.data = input_.OneIn(10) ? nullptr : ExtendedValue();
    }
    data.num_eed = static_cast<BITCODE_BL>(items.size());
    data.eed = drawing_.Array(std::move(items));
  }

  Dwg_Eed_Data* ExtendedValue() {
    static constexpr std::array<BITCODE_RC, 9> kCodes = {0, 2, 3, 5, 10, 40, 70, 71, 200};
    static constexpr std::array<const char*, 3> kTexts = {"DSTYLE", "MVIEW", "x"};
    static constexpr std::array<BITCODE_RS, 4> kGroups = {40, 41, 341, 16};
    constexpr std::size_t kRoom = 64;
    auto* value = reinterpret_cast<Dwg_Eed_Data*>(drawing_.Array(std::vector<char>(kRoom)));
    value->code = kCodes[input_.Below(kCodes.size())];
    switch (value->code) {
      case 0: {
        const std::string text = kTexts[input_.Below(kTexts.size())];
        value->u.eed_0.length = static_cast<BITCODE_RS>(text.size());
        value->u.eed_0.is_tu = unicodeText_ ? 1 : 0;
        for (std::size_t i = 0; i < text.size(); ++i) {
          if (unicodeText_) {
            value->u.eed_0_r2007.string[i] = static_cast<unsigned char>(text[i]);
          } else {
            value->u.eed_0.string[i] = text[i];
          }
        }
        break;
      }
      case 2: value->u.eed_2.close = input_.Byte() & 1U; break;
      case 3: value->u.eed_3.layer = AnyHandle(); break;
      case 5: value->u.eed_5.entity = AnyHandle(); break;
      case 70: value->u.eed_70.rs = kGroups[input_.Below(kGroups.size())]; break;
      case 71: value->u.eed_71.rl = input_.Word() << 16U | input_.Word(); break;
      case 40: value->u.eed_40.real = input_.Double(); break;
      case 10:
        value->u.eed_10.point.x = input_.Double();
        value->u.eed_10.point.y = input_.Double();
        value->u.eed_10.point.z = input_.Double();
        break;
      default: break;
    }
    return value;
  }

  void Fill(BITCODE_2RD& point) { point = {input_.Double(), input_.Double()}; }
  void Fill(BITCODE_2DPOINT& point) { point = {input_.Double(), input_.Double()}; }
  void Fill(BITCODE_3BD& point) { point = {input_.Double(), input_.Double(), input_.Double()}; }
  void Fill(Dwg_Color& color) {
    static constexpr std::array<std::uint32_t, 5> kMethods = {0, 0xC0, 0xC2, 0xC3, 0xFF};
    color.index = static_cast<BITCODE_BSd>(input_.OneIn(2) ? input_.Byte() : input_.Word());
    color.rgb =
        kMethods[input_.Below(kMethods.size())] << 24U | input_.Word() << 8U | input_.Byte();
    color.alpha_type = input_.OneIn(2) ? 3 : input_.Byte();
    color.alpha = input_.Byte();
    color.alpha_raw = input_.Word();
  }

  Dwg_Object& Begin(unsigned type) {
    Dwg_Object& object = drawing_.Add(static_cast<DWG_OBJECT_TYPE>(type), 0);
    if (input_.OneIn(20)) {
      object.type = input_.Byte();
    }
    if (input_.OneIn(30)) {
      object.index = input_.Word();
    }
    object.handle.value = AnyHandle();
    static char entityName[] = "THING";
    static char blockName[] = "BLOCK";
    object.name = input_.OneIn(4) ? nullptr : input_.OneIn(4) ? blockName : entityName;
    handlesByType_[object.fixedtype].push_back(object.handle.value);
    return object;
  }

  template <typename T, typename FillData>
  void Entity(unsigned type, T* EntityTio::*member, FillData fill) {
    Dwg_Object& object = Begin(type);
    object.supertype = DWG_SUPERTYPE_ENTITY;
    if (input_.OneIn(40)) {
      return;  // no entity data
    }
    auto* entity = &drawing_.New<Dwg_Object_Entity>();
    object.tio.entity = entity;
    entity->ownerhandle = input_.OneIn(3) ? nullptr : Reference(OwnerType());
    entity->layer = Reference(DWG_TYPE_LAYER);
    Fill(entity->color);
    entity->linewt = input_.Byte();
    entity->entmode = static_cast<BITCODE_BB>(input_.Byte() % 4);
    FillExtendedData(*entity);
    if (input_.OneIn(25)) {
      return;  // none of its type
    }
    T* data = &drawing_.New<T>();
    entity->tio.*member = data;
    fill(*data);
  }

  template <typename T, typename FillData>
  void Object(unsigned type, T* ObjectTio::*member, FillData fill) {
    Dwg_Object& object = Begin(type);
    object.supertype = DWG_SUPERTYPE_OBJECT;
    if (input_.OneIn(40)) {
      return;
    }
    object.tio.object = &drawing_.New<Dwg_Object_Object>();
    object.tio.object->ownerhandle =
        Reference(input_.OneIn(2) ? DWG_TYPE_DICTIONARY : DWG_TYPE_INSERT);
    object.tio.object->xdicobjhandle = Reference(DWG_TYPE_DICTIONARY);
    FillExtendedData(*object.tio.object);
    if (input_.OneIn(25)) {
      return;
    }
    T* data = &drawing_.New<T>();
    object.tio.object->tio.*member = data;
    fill(*data);
  }

  void AddObject() {
    switch (input_.Byte() % 8) {
      case 0:
      case 1: AddTable(); break;
      case 2:
      case 3: AddCurve(); break;
      case 4: AddPolyline(); break;
      case 5: AddArea(); break;
      case 6: AddText(); break;
      default: AddReference(); break;
    }
  }

  void AddTable() {
    switch (input_.Byte() % 16) {
      case 10:
        Object(DWG_TYPE_APPID, &ObjectTio::APPID, [this](auto& application) {
          static constexpr std::array<const char*, 3> kNames = {"ACAD", "HATCHBACKGROUNDCOLOR",
                                                                "AcDbBlockRepBTag"};
          application.name = input_.OneIn(4) ? Text() : Utf(kNames[input_.Below(kNames.size())]);
        });
        break;
      case 11: AddDrawOrder(); break;
      case 12: AddClip(); break;
      case 13:
        Object(DWG_TYPE_DICTIONARY, &ObjectTio::DICTIONARY, [this](auto& dictionary) {
          Array(dictionary.itemhandles, dictionary.numitems,
                [this](BITCODE_H& item) { item = Reference(DWG_TYPE_XRECORD); });
        });
        break;
      case 14: AddRecord(); break;
      case 15:
        Object(DWG_TYPE_BLOCKREPRESENTATION, &ObjectTio::BLOCKREPRESENTATION,
               [this](auto& data) { data.block = Reference(DWG_TYPE_BLOCK_HEADER); });
        break;
      case 0:
        Object(DWG_TYPE_LAYER, &ObjectTio::LAYER, [this](Dwg_Object_LAYER& layer) {
          layer.name = Text();
          layer.off = input_.Byte();
          layer.locked = input_.Byte();
          layer.flag = input_.Byte();
          layer.linewt = input_.Byte();
          Fill(layer.color);
        });
        break;
      case 1:
        Object(DWG_TYPE_STYLE, &ObjectTio::STYLE, [this](Dwg_Object_STYLE& style) {
          style.text_size = input_.Double();
          style.font_file = Text();
        });
        break;
      case 2: AddDimStyle(); break;
      case 3:
        Object(DWG_TYPE_IMAGEDEF, &ObjectTio::IMAGEDEF,
               [this](Dwg_Object_IMAGEDEF& definition) { definition.file_path = Text(); });
        break;
      case 4:
        Object(DWG_TYPE_PDFDEFINITION, &ObjectTio::PDFDEFINITION,
               [this](Dwg_Object_PDFDEFINITION& definition) {
                 definition.filename = Text();
                 definition.name = Text();
               });
        break;
      case 5: AddLayout(); break;
      case 6: AddBlockControl(); break;
      default: AddBlock(); break;
    }
  }

  // In the drawing's form.
  char* Utf(const char* text) {
    std::vector<char> stored;
    for (; *text != 0; ++text) {
      stored.push_back(*text);
      if (unicodeText_) {
        stored.push_back(0);
      }
    }
    stored.insert(stored.end(), 2, 0);
    return drawing_.Array(std::move(stored));
  }

  void AddDrawOrder() {
    Object(DWG_TYPE_SORTENTSTABLE, &ObjectTio::SORTENTSTABLE, [this](auto& table) {
      table.block_owner = Reference(DWG_TYPE_BLOCK_HEADER);
      std::vector<BITCODE_H> keys(input_.Below(13));
      std::vector<BITCODE_H> entities(keys.size());
      for (BITCODE_H& key : keys) {
        key = Reference();
      }
      for (BITCODE_H& entity : entities) {
        entity = Reference(DWG_TYPE_LINE);
      }
      table.num_ents = static_cast<BITCODE_BL>(keys.size());
      table.sort_ents = input_.OneIn(10) ? nullptr : drawing_.Array(std::move(keys));
      table.ents = input_.OneIn(10) ? nullptr : drawing_.Array(std::move(entities));
    });
  }

  void AddClip() {
    Object(DWG_TYPE_SPATIAL_FILTER, &ObjectTio::SPATIAL_FILTER, [this](auto& filter) {
      Array(filter.clip_verts, filter.num_clip_verts, [this](auto& point) { this->Fill(point); });
      FillExtrusion(filter.extrusion);
      Fill(filter.origin);
      filter.display_boundary_on = input_.Byte() & 1U;
      filter.front_clip_on = input_.Byte() & 1U;
      filter.back_clip_on = input_.Byte() & 1U;
      filter.inverse_transform = Matrix();
      filter.transform = Matrix();
    });
  }

  // Result buffers, sometimes in a circle.
  void AddRecord() {
    Object(DWG_TYPE_XRECORD, &ObjectTio::XRECORD, [this](auto& record) {
      std::vector<Dwg_Resbuf> values(1 + input_.Below(5));
      const std::string text = input_.OneIn(2) ? "ACAD_INVERTEDCLIP_ROUNDTRIP" : input_.Bytes(40);
      for (Dwg_Resbuf& value : values) {
        value.type = static_cast<short>(input_.OneIn(2) ? 102 : input_.Byte());
        value.value.str.size = static_cast<unsigned short>(text.size());
        value.value.str.u.data = input_.OneIn(6) ? nullptr : drawing_.Text(text);
      }
      record.num_xdata = static_cast<BITCODE_BL>(values.size());
      record.xdata = drawing_.Array(std::move(values));
      for (std::size_t i = 0; i < record.num_xdata; ++i) {
        const bool isLast = i + 1 == record.num_xdata;
        record.xdata[i].nextrb = !isLast           ? &record.xdata[i + 1]
                                 : input_.OneIn(3) ? record.xdata
                                                   : nullptr;
      }
    });
  }

  void AddBlock() {
    Object(DWG_TYPE_BLOCK_HEADER, &ObjectTio::BLOCK_HEADER, [this](Dwg_Object_BLOCK_HEADER& block) {
      block.name = MallocedText();
      blocks_.push_back(&block);
      Fill(block.base_pt);
      if (input_.OneIn(3)) {
        Array(block.entities, block.num_owned,
              [this](BITCODE_H& entity) { entity = Reference(DWG_TYPE_LINE); });
      }
    });
  }

  // The block that the DXF reader starts every drawing with.
  void AddPlaceholder() {
    AddBlock();
    Dwg_Object& object = drawing_.last();
    object.handle.value = kPlaceholderHandle;
    auto* block = ObjectData(object, &ObjectTio::BLOCK_HEADER);
    if (!unicodeText_ && block != nullptr && block->name != nullptr && input_.OneIn(2)) {
      std::memcpy(block->name, "*", 2);
    }
  }

  void AddDimStyle() {
    Object(DWG_TYPE_DIMSTYLE, &ObjectTio::DIMSTYLE, [this](Dwg_Object_DIMSTYLE& style) {
      style.DIMTXT = input_.Double();
      style.DIMSCALE = input_.Double();
      style.DIMASZ = input_.Double();
      style.DIMTXSTY = Reference(DWG_TYPE_STYLE);
      Fill(style.DIMCLRT);
      Fill(style.DIMCLRD);
      style.DIMDEC = static_cast<BITCODE_BS>(input_.Word());
      style.DIMLFAC = input_.Double();
      style.DIMRND = input_.Double();
      style.DIMZIN = static_cast<BITCODE_BS>(input_.Byte());
      style.DIMLUNIT = static_cast<BITCODE_BS>(input_.Byte());
      style.DIMPOST = Text();
    });
  }

  void AddLayout() {
    Object(DWG_TYPE_LAYOUT, &ObjectTio::LAYOUT, [this](Dwg_Object_LAYOUT& layout) {
      layout.block_header = Reference(DWG_TYPE_BLOCK_HEADER);
      layout.layout_name = Text();
      Array(layout.viewports, layout.num_viewports,
            [this](BITCODE_H& viewport) { viewport = Reference(DWG_TYPE_VIEWPORT); });
      layout.tab_order = static_cast<BITCODE_BS>(input_.Word());
      Dwg_Object_PLOTSETTINGS& plot = layout.plotsettings;
      plot.plot_paper_unit = input_.Byte();
      plot.plot_rotation_mode = input_.Byte();
      for (double* number :
           {&plot.paper_width, &plot.paper_height, &plot.left_margin, &plot.bottom_margin,
            &plot.right_margin, &plot.top_margin, &plot.paper_units, &plot.drawing_units}) {
        *number = input_.Double();
      }
      Fill(plot.plot_origin);
      Fill(layout.LIMMIN);
      Fill(layout.LIMMAX);
      Fill(layout.EXTMIN);
      Fill(layout.EXTMAX);
    });
  }

  // Through this the library finds model space when no block bears its name.
  void AddBlockControl() {
    Object(DWG_TYPE_BLOCK_CONTROL, &ObjectTio::BLOCK_CONTROL,
           [this](Dwg_Object_BLOCK_CONTROL& control) {
             control.model_space = Reference(DWG_TYPE_BLOCK_HEADER);
             if (control.model_space != nullptr) {
               modelSpaceReferences_.push_back(control.model_space);
             }
           });
  }

  void AddCurve() {
    switch (input_.Byte() % 8) {
      case 0:
        Entity(DWG_TYPE_LINE, &EntityTio::LINE, [this](auto& line) {
          Fill(line.start);
          Fill(line.end);
          line.thickness = input_.OneIn(2) ? 0 : input_.Double();
          FillExtrusion(line.extrusion);
        });
        break;
      case 1:
        Entity(DWG_TYPE_POINT, &EntityTio::POINT, [this](auto& point) {
          point.x = input_.Double();
          point.y = input_.Double();
        });
        break;
      case 2:
        Entity(DWG_TYPE_ARC, &EntityTio::ARC, [this](auto& arc) {
          Fill(arc.center);
          arc.radius = input_.Double();
          arc.start_angle = input_.Double();
          arc.end_angle = input_.Double();
          FillExtrusion(arc.extrusion);
        });
        break;
      case 3:
        Entity(DWG_TYPE_CIRCLE, &EntityTio::CIRCLE, [this](auto& circle) {
          Fill(circle.center);
          circle.radius = input_.Double();
        });
        break;
      case 4:
        Entity(DWG_TYPE_ELLIPSE, &EntityTio::ELLIPSE, [this](auto& ellipse) {
          Fill(ellipse.center);
          Fill(ellipse.sm_axis);
          ellipse.axis_ratio = input_.Double();
          ellipse.start_angle = input_.Double();
          ellipse.end_angle = input_.Double();
        });
        break;
      case 5:
        Entity(DWG_TYPE_RAY, &EntityTio::RAY, [this](auto& ray) {
          Fill(ray.point);
          Fill(ray.vector);
        });
        break;
      case 6:
        Entity(DWG_TYPE_XLINE, &EntityTio::XLINE, [this](auto& xline) {
          Fill(xline.point);
          Fill(xline.vector);
        });
        break;
      default: AddSpline(); break;
    }
  }

  void AddSpline() {
    Entity(DWG_TYPE_SPLINE, &EntityTio::SPLINE, [this](Dwg_Entity_SPLINE& spline) {
      spline.degree = static_cast<BITCODE_BS>(input_.OneIn(10) ? input_.Word() : input_.Byte() % 6);
      spline.closed_b = input_.Byte() & 1U;
      spline.rational = input_.Byte() & 1U;
      spline.weighted = input_.Byte() & 1U;
      Fill(spline.beg_tan_vec);
      Fill(spline.end_tan_vec);
      if (input_.OneIn(4)) {
        Array(spline.fit_pts, spline.num_fit_pts, [this](auto& point) { this->Fill(point); });
      }
      Array(spline.ctrl_pts, spline.num_ctrl_pts, [this](auto& point) {
        point.x = input_.Double();
        point.y = input_.Double();
        point.w = input_.Double();
      });
      double knot = 0;
      const bool isOrdered = !input_.OneIn(4);
      Array(spline.knots, spline.num_knots, [this, &knot, isOrdered](double& value) {
        knot += input_.Byte() % 4;
        value = isOrdered ? knot : input_.Double();
      });
    });
  }

  template <typename Polyline>
  void FillVertices(Polyline& polyline, DWG_OBJECT_TYPE type) {
    if (input_.OneIn(2)) {
      Array(polyline.vertex, polyline.num_owned,
            [this, type](BITCODE_H& vertex) { vertex = Reference(type); });
    }
  }

  void AddPolyline() {
    switch (input_.Byte() % 6) {
      case 0:
        Entity(DWG_TYPE_LWPOLYLINE, &EntityTio::LWPOLYLINE, [this](auto& polyline) {
          polyline.flag = static_cast<BITCODE_BS>(input_.Word());
          Array(polyline.points, polyline.num_points, [this](auto& point) { this->Fill(point); });
          Array(polyline.bulges, polyline.num_bulges, [this](double& b) { b = input_.Double(); });
          Array(polyline.widths, polyline.num_widths, [this](auto& width) {
            width = {input_.Double(), input_.Double()};
          });
          Array(polyline.vertexids, polyline.num_vertexids,
                [this](BITCODE_BL& id) { id = input_.Byte(); });
          polyline.const_width = input_.Double();
          polyline.elevation = input_.Double();
          FillExtrusion(polyline.extrusion);
        });
        break;
      case 1:
        Entity(DWG_TYPE_POLYLINE_2D, &EntityTio::POLYLINE_2D, [this](auto& polyline) {
          polyline.flag = input_.Byte();
          polyline.curve_type = input_.Byte() % 9;
          polyline.start_width = input_.Double();
          FillExtrusion(polyline.extrusion);
          FillVertices(polyline, DWG_TYPE_VERTEX_2D);
        });
        break;
      case 2:
        Entity(DWG_TYPE_POLYLINE_3D, &EntityTio::POLYLINE_3D, [this](auto& polyline) {
          polyline.flag = input_.Byte();
          polyline.curve_type = input_.Byte();
          FillVertices(polyline, DWG_TYPE_VERTEX_3D);
        });
        break;
      case 3:
        Entity(DWG_TYPE_VERTEX_2D, &EntityTio::VERTEX_2D, [this](auto& vertex) {
          Fill(vertex.point);
          vertex.flag = input_.Byte();
          vertex.bulge = input_.Double();
          vertex.start_width = input_.OneIn(3) ? -1 : input_.Double();
          vertex.tangent_dir = input_.OneIn(3) ? input_.Double() : 0;
        });
        break;
      case 4:
        Entity(DWG_TYPE_VERTEX_3D, &EntityTio::VERTEX_3D, [this](auto& v) {
          Fill(v.point);
          v.flag = input_.OneIn(3) ? 16 : 0;
        });
        break;
      default: Entity(DWG_TYPE_SEQEND, &EntityTio::SEQEND, [](auto&) {}); break;
    }
  }

  void AddArea() {
    switch (input_.Byte() % 5) {
      case 0:
        Entity(DWG_TYPE_SOLID, &EntityTio::SOLID, [this](auto& solid) {
          Fill(solid.corner1);
          Fill(solid.corner2);
          Fill(solid.corner3);
          Fill(solid.corner4);
          FillExtrusion(solid.extrusion);
        });
        break;
      case 1:
        Entity(DWG_TYPE_WIPEOUT, &EntityTio::WIPEOUT, [this](auto& wipeout) {
          Fill(wipeout.pt0);
          Fill(wipeout.uvec);
          Fill(wipeout.vvec);
          wipeout.display_props = input_.Byte();
          Array(wipeout.clip_verts, wipeout.num_clip_verts,
                [this](auto& point) { this->Fill(point); });
        });
        break;
      default:
        Entity(DWG_TYPE_HATCH, &EntityTio::HATCH, [this](auto& hatch) {
          hatch.is_solid_fill = input_.Byte() & 1U;
          hatch.is_gradient_fill = input_.Byte() & 1U;
          Fill(hatch.extrusion);
          Array(hatch.paths, hatch.num_paths, [this](auto& path) { FillPath(path); });
        });
        break;
    }
  }

  void FillPath(Dwg_HATCH_Path& path) {
    path.flag = input_.Byte();
    path.closed = input_.Byte() & 1U;
    path.bulges_present = input_.Byte() & 1U;
    if ((path.flag & 2U) != 0) {
      Array(path.polyline_paths, path.num_segs_or_paths, [this](auto& vertex) {
        Fill(vertex.point);
        vertex.bulge = input_.Double();
      });
      return;
    }
    Array(path.segs, path.num_segs_or_paths, [this](Dwg_HATCH_PathSeg& segment) {
      segment.curve_type = input_.Byte() % 6;
      Fill(segment.first_endpoint);
      Fill(segment.second_endpoint);
      Fill(segment.center);
      Fill(segment.endpoint);
      segment.radius = input_.Double();
      segment.start_angle = input_.Double();
      segment.end_angle = input_.Double();
      segment.is_ccw = input_.Byte() & 1U;
      segment.minor_major_ratio = input_.Double();
      if (segment.curve_type == 4) {
        Array(segment.fitpts, segment.num_fitpts, [this](auto& point) { this->Fill(point); });
        Array(segment.control_points, segment.num_control_points,
              [this](auto& control) { Fill(control.point); });
      }
    });
  }

  template <typename Data>
  void FillText(Data& text) {
    Fill(text.ins_pt);
    text.height = input_.Double();
    text.rotation = input_.Double();
    text.style = Reference(DWG_TYPE_STYLE);
  }

  void AddText() {
    switch (input_.Byte() % 8) {
      case 0:
        Entity(DWG_TYPE_TEXT, &EntityTio::TEXT, [this](Dwg_Entity_TEXT& text) {
          FillText(text);
          text.text_value = Text();
          text.horiz_alignment = input_.Byte() % 6;
          text.vert_alignment = input_.Byte() % 4;
          Fill(text.alignment_pt);
        });
        break;
      case 1:
        Entity(DWG_TYPE_ATTRIB, &EntityTio::ATTRIB, [this](auto& attribute) {
          FillText(attribute);
          attribute.text_value = Text();
          attribute.tag = Text();
          attribute.flags = input_.Byte();
        });
        break;
      case 2:
        Entity(DWG_TYPE_ATTDEF, &EntityTio::ATTDEF, [this](auto& definition) {
          FillText(definition);
          definition.default_value = Text();
          definition.tag = Text();
          definition.prompt = Text();
          definition.flags = input_.Byte();
        });
        break;
      case 3:
        Entity(DWG_TYPE_MTEXT, &EntityTio::MTEXT, [this](auto& mtext) {
          Fill(mtext.ins_pt);
          Fill(mtext.x_axis_dir);
          mtext.rect_width = input_.Double();
          mtext.rect_height = input_.Double();
          mtext.attachment = static_cast<BITCODE_BS>(input_.Word());
          mtext.text_height = input_.OneIn(2) ? 0 : input_.Double();
          mtext.text = Text();
          mtext.style = Reference(DWG_TYPE_STYLE);
        });
        break;
      case 4: AddDimension(); break;
      case 5:
        Entity(DWG_TYPE_LEADER, &EntityTio::LEADER, [this](auto& leader) {
          leader.arrowhead_on = input_.Byte() & 1U;
          leader.dimasz = input_.Double();
          leader.dimstyle = Reference(DWG_TYPE_DIMSTYLE);
          leader.associated_annotation = Reference(DWG_TYPE_MTEXT);
          FillExtrusion(leader.extrusion);
          Array(leader.points, leader.num_points, [this](auto& point) { this->Fill(point); });
        });
        break;
      default: AddMultileader(); break;
    }
  }

  template <typename Data>
  void FillDimension(Data& dimension) {
    Fill(dimension.def_pt);
    Fill(dimension.text_midpt);
    dimension.user_text = Text();
    dimension.act_measurement = input_.Double();
    dimension.dimstyle = Reference(DWG_TYPE_DIMSTYLE);
  }

  void AddDimension() {
    switch (input_.Byte() % 3) {
      case 0:
        Entity(DWG_TYPE_DIMENSION_LINEAR, &EntityTio::DIMENSION_LINEAR, [this](auto& dimension) {
          FillDimension(dimension);
          Fill(dimension.xline1_pt);
          Fill(dimension.xline2_pt);
          dimension.dim_rotation = input_.Double();
        });
        break;
      case 1:
        Entity(DWG_TYPE_DIMENSION_ALIGNED, &EntityTio::DIMENSION_ALIGNED, [this](auto& dimension) {
          FillDimension(dimension);
          Fill(dimension.xline1_pt);
          Fill(dimension.xline2_pt);
        });
        break;
      default:
        Entity(DWG_TYPE_DIMENSION_RADIUS, &EntityTio::DIMENSION_RADIUS, [this](auto& dimension) {
          FillDimension(dimension);
          Fill(dimension.first_arc_pt);
          dimension.leader_len = input_.Double();
        });
        break;
    }
  }

  void AddMultileader() {
    Entity(DWG_TYPE_MULTILEADER, &EntityTio::MULTILEADER, [this](auto& multileader) {
      auto& annotation = multileader.ctx;
      annotation.arrow_size = input_.Double();
      annotation.text_height = input_.Double();
      multileader.arrow_size = input_.Double();
      annotation.has_content_txt = input_.Byte() & 1U;
      annotation.has_content_blk = input_.Byte() & 1U;
      if (annotation.has_content_txt != 0) {
        annotation.content.txt.default_text = Text();
        annotation.content.txt.height = input_.Double();
        annotation.content.txt.rotation = input_.Double();
        Fill(annotation.content.txt.location);
      }
      Array(annotation.leaders, annotation.num_leaders, [this](Dwg_LEADER_Node& root) {
        root.has_dogleg = input_.Byte() & 1U;
        root.dogleg_length = input_.Double();
        Fill(root.lastleaderlinepoint);
        Fill(root.dogleg_vector);
        Array(root.lines, root.num_lines, [this](Dwg_LEADER_Line& line) {
          Array(line.points, line.num_points, [this](auto& point) { this->Fill(point); });
          Array(line.breaks, line.num_breaks, [this](auto& gap) {
            this->Fill(gap.start);
            this->Fill(gap.end);
          });
          line.flags = input_.Byte();
          Fill(line.color);
          line.ltype = Reference();
          line.arrow_handle = Reference(DWG_TYPE_BLOCK_HEADER);
        });
      });
      Fill(multileader.line_color);
      Array(multileader.blocklabels, multileader.num_blocklabels,
            [this](auto& label) { label.label_text = Text(); });
    });
  }

  unsigned Unsupported() {
    static constexpr std::array<unsigned, 6> kTypes = {DWG_TYPE_UNUSED, DWG_TYPE_BLOCK,
                                                       DWG_TYPE_ENDBLK, DWG_TYPE__3DFACE,
                                                       DWG_TYPE_TRACE,  DWG_TYPE_UNKNOWN_ENT};
    return kTypes[input_.Below(kTypes.size())];
  }

  template <typename Insert>
  void FillInsert(Insert& insert) {
    insert.block_header = Reference(DWG_TYPE_BLOCK_HEADER);
    Fill(insert.ins_pt);
    Fill(insert.scale);
    insert.rotation = input_.Double();
    FillExtrusion(insert.extrusion);
  }

  void AddReference() {
    switch (input_.Byte() % 6) {
      case 0:
        Entity(DWG_TYPE_MINSERT, &EntityTio::MINSERT, [this](auto& insert) { FillInsert(insert); });
        break;
      case 1:
        Entity(DWG_TYPE_IMAGE, &EntityTio::IMAGE, [this](auto& image) {
          image.display_props = input_.Byte();
          image.image_size = {input_.Double(), input_.Double()};
          image.imagedef = Reference(DWG_TYPE_IMAGEDEF);
          Fill(image.pt0);
          Fill(image.uvec);
          Fill(image.vvec);
          Array(image.clip_verts, image.num_clip_verts, [this](auto& point) { this->Fill(point); });
        });
        break;
      case 2:
        Entity(DWG_TYPE_PDFUNDERLAY, &EntityTio::PDFUNDERLAY, [this](auto& underlay) {
          underlay.definition_id = Reference(DWG_TYPE_PDFDEFINITION);
          Fill(underlay.ins_pt);
          Fill(underlay.scale);
          underlay.angle = input_.Double();
          underlay.flag = input_.Byte();
          Array(underlay.clip_verts, underlay.num_clip_verts,
                [this](auto& point) { this->Fill(point); });
          FillExtrusion(underlay.extrusion);
        });
        break;
      case 3: AddViewport(); break;
      case 4: Entity(Unsupported(), &EntityTio::_3DFACE, [](auto&) {}); break;
      default:
        Entity(DWG_TYPE_INSERT, &EntityTio::INSERT, [this](auto& insert) { FillInsert(insert); });
        break;
    }
  }

  void AddViewport() {
    Entity(DWG_TYPE_VIEWPORT, &EntityTio::VIEWPORT, [this](auto& viewport) {
      viewport.id = input_.Byte() % 4;
      viewport.width = input_.OneIn(2) ? 1 : input_.Double();
      viewport.height = input_.OneIn(2) ? 1 : input_.Double();
      viewport.status_flag = input_.OneIn(3) ? input_.Word() : 0x10000;
      Fill(viewport.center);
      Fill(viewport.view_target);
      Fill(viewport.VIEWDIR);
      Fill(viewport.VIEWCTR);
      viewport.VIEWSIZE = input_.Double();
      viewport.VIEWTWIST = input_.Double();
      viewport.clip_boundary = Reference(ClipType());
      Array(viewport.frozen_layers, viewport.num_frozen_layers,
            [this](BITCODE_H& layer) { layer = Reference(DWG_TYPE_LAYER); });
    });
  }

  FuzzInput& input_;
  MemoryDrawing drawing_{kMaxObjects};
  bool unicodeText_ = false;
  std::vector<Dwg_Object_Ref*> modelSpaceReferences_;
  std::vector<Dwg_Object_BLOCK_HEADER*> blocks_;
  std::map<DWG_OBJECT_TYPE, std::vector<Handle>> handlesByType_;
};

using AppendForm = void (*)(JsonOut& out, const Drawing& drawing, const DocumentOptions& options,
                            StageObserver& observer);

void AppendPlain(JsonOut& out, const Drawing& drawing, const DocumentOptions& options,
                 StageObserver& observer) {
  AppendDocument(out, drawing, options, {}, observer);
}

void AppendComplete(JsonOut& out, const Drawing& drawing, const DocumentOptions& options,
                    StageObserver& observer) {
  JsonOut further;
  AppendCompleteDocument(out, further, drawing, options, {}, observer);
  out += further.Text();
}

std::string Convert(DrawingBuilder& builder, bool isUtf8, bool verbose, AppendForm append) {
  const TextForm eightBit = isUtf8 ? TextForm::kUtf8 : TextForm::kWindows1252;
  const Drawing drawing{.data = builder.dwg(),
                        .textForm = builder.unicodeText() ? TextForm::kUtf16 : eightBit,
                        .folder = "."};
  StageObserver observer;
  JsonOut out;
  append(out, drawing, {.verbose = verbose}, observer);
  return out.Text();
}

// In time, well formed, and the same again.
std::string CheckForm(DrawingBuilder& builder, bool isUtf8, bool verbose, AppendForm append) {
  const TimeBudget budget;
  std::string document = Convert(builder, isUtf8, verbose, append);
  budget.Check();
  FUZZ_CHECK(IsGrammaticalJson(document + "}"));
  FUZZ_CHECK(Convert(builder, isUtf8, verbose, append) == document);
  return document;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzInput input(data, size);
  const std::uint8_t switches = input.Byte();
  const bool isUtf8 = (switches & 2U) != 0;
  const bool verbose = (switches & 4U) != 0;
  DrawingBuilder drawing(input);
  if ((switches & 8U) != 0 && !drawing.unicodeText()) {
    SettleDxf(drawing.dwg(), DxfScales::kSettled);
  }
  const std::string document = CheckForm(drawing, isUtf8, verbose, AppendPlain);
  CheckForm(drawing, isUtf8, verbose, AppendComplete);
  // For the check of the documents against their schema.
  static const bool prints = std::getenv("DWG_FUZZ_PRINT") != nullptr;
  if (prints) {
    std::printf("%s}\n", document.c_str());
  }
  return 0;
}
