// The conversion's work and memory against the size of worst-case drawings.
//
// Each case builds a drawing in memory at two sizes, n and 8n, and converts it.
// Linear growth multiplies the cost by 8, the square by 64. Nothing here looks at
// a clock: memory is what the conversion allocates in all, counted and judged by
// this program; work is the number of instructions, counted by callgrind, when
// count_work.py runs this program under it, and judged there. That script finds
// the measured pieces by the function RunMeasured and by the lines that this
// program prints for each.
//
// Drawings whose document has to be larger than linear are not here: see
// docs/limits.md.

#include <dwg.h>
#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <memory>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "complete/document.hpp"
#include "document/document.hpp"
#include "entities/drawing_access.hpp"
#include "entities/lookup_tables.hpp"
#include "tests/support/memory_drawing.hpp"
#include "text/mtext_to_html.hpp"
#include "text/text_codes.hpp"

namespace {

std::atomic<std::size_t> allocated = 0;

void* Allocate(std::size_t size) {
  allocated += size;
  if (void* memory = std::malloc(size)) {
    return memory;
  }
  throw std::bad_alloc();
}

}  // namespace

void* operator new(std::size_t size) {
  return Allocate(size);
}
void* operator new[](std::size_t size) {
  return Allocate(size);
}
void operator delete(void* memory) noexcept {
  std::free(memory);
}
void operator delete[](void* memory) noexcept {
  std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
  std::free(memory);
}

namespace {

constexpr std::size_t kFactor = 8;
// Linear growth is found at 8.4 times the bytes at most.
constexpr std::size_t kLargestGrowth = 12;
// What may be allocated however small the drawing is.
constexpr std::size_t kFirstBytes = 4096;

// Objects share the entity part of their kind, so that large drawings are small.
class LargeDrawing : public MemoryDrawing {
 public:
  using MemoryDrawing::MemoryDrawing;

  // An entity part with zeroed data of its type.
  template <typename T>
  std::pair<Dwg_Object_Entity*, T*> Part(T* EntityTio::*member, Handle owner = 0) {
    auto& entity = New<Dwg_Object_Entity>();
    auto& data = New<T>();
    entity.tio.*member = &data;
    entity.ownerhandle = owner == 0 ? nullptr : Ref(owner);
    return {&entity, &data};
  }

  void AddEntity(DWG_OBJECT_TYPE type, Dwg_Object_Entity* part, Handle handle = 0) {
    Dwg_Object& object = Add(type, handle);
    static char name[] = "THING";
    object.name = name;
    object.supertype = DWG_SUPERTYPE_ENTITY;
    object.tio.entity = part;
  }

  void AddBlock(Handle handle, const std::string& name) {
    AddObject(DWG_TYPE_BLOCK_HEADER, &ObjectTio::BLOCK_HEADER, handle).name = Text(name);
  }
};

}  // namespace

// The piece that callgrind counts, by this name. The assignment behind the call
// keeps it from becoming a jump, which would end the function before its work.
extern "C" __attribute__((noinline)) void RunMeasured(const std::function<void()>& work) {
  static volatile int runs = 0;
  work();
  runs = runs + 1;
}

namespace {

// What `work` allocates in all.
std::size_t BytesOf(std::size_t size, const std::function<void()>& work) {
  const testing::TestInfo& test = *testing::UnitTest::GetInstance()->current_test_info();
  std::printf("MEASURED %s.%s %zu\n", test.test_suite_name(), test.name(), size);
  const std::size_t before = allocated;
  RunMeasured(work);
  return allocated - before;
}

bool IsLinear(std::size_t first, std::size_t last) {
  return last <= kLargestGrowth * (first + kFirstBytes);
}

using Prepare = std::function<std::function<void()>(std::size_t)>;

// `prepare` gives, for a size, what is to be measured.
void ExpectLinear(std::size_t n, const Prepare& prepare) {
  const std::size_t first = BytesOf(n, prepare(n));
  const std::size_t last = BytesOf(kFactor * n, prepare(kFactor * n));
  EXPECT_TRUE(IsLinear(first, last))
      << kFactor << " times the size allocates " << last << " bytes, not " << first;
}

// For each unit of a case's size.
constexpr std::size_t kMostObjects = 6;

using Fill = std::function<void(LargeDrawing&, std::size_t)>;

void ExpectLinearDocument(std::size_t n, const Fill& fill) {
  ExpectLinear(n, [&fill](std::size_t size) {
    auto drawing = std::make_shared<LargeDrawing>(kMostObjects * size);
    fill(*drawing, size);
    return [drawing] {
      StageObserver observer;
      JsonOut out;
      AppendDocument(out, Drawing{.data = drawing->data()}, {}, {}, observer);
    };
  });
}

TEST(Growth, Layers) {
  ExpectLinearDocument(4'000, [](LargeDrawing& drawing, std::size_t n) {
    for (std::size_t i = 1; i <= n; ++i) {
      drawing.AddObject(DWG_TYPE_LAYER, &ObjectTio::LAYER, i).name =
          drawing.Text("L" + std::to_string(i));
    }
  });
}

// Multiples of the number of buckets that a table of as many entries has.
TEST(Growth, HandlesChosenToCollide) {
  ExpectLinearDocument(2'000, [](LargeDrawing& drawing, std::size_t n) {
    HandleSet sizes;
    for (std::size_t i = 1; i <= n; ++i) {
      sizes.insert(i);
    }
    for (std::size_t i = 1; i <= n; ++i) {
      drawing.AddObject(DWG_TYPE_LAYER, &ObjectTio::LAYER, i * sizes.bucket_count()).name =
          drawing.Text("L");
    }
  });
}

TEST(Growth, InsertsWithAnAttributeEach) {
  ExpectLinearDocument(2'000, [](LargeDrawing& drawing, std::size_t n) {
    drawing.AddBlock(1, "B");
    const auto [insert, data] = drawing.Part(&EntityTio::INSERT);
    data->block_header = drawing.Ref(1);
    for (std::size_t i = 0; i < n; ++i) {
      drawing.AddEntity(DWG_TYPE_INSERT, insert, 10 + i);
      drawing.AddEntity(DWG_TYPE_ATTRIB, drawing.Part(&EntityTio::ATTRIB, 10 + i).first);
    }
  });
}

TEST(Growth, BlocksNestedInBlocks) {
  ExpectLinearDocument(1'000, [](LargeDrawing& drawing, std::size_t n) {
    for (std::size_t i = 1; i <= n; ++i) {
      drawing.AddBlock(i, "B" + std::to_string(i));
      const auto [insert, data] = drawing.Part(&EntityTio::INSERT, i);
      data->block_header = drawing.Ref(i % n + 1);
      drawing.AddEntity(DWG_TYPE_INSERT, insert);
    }
  });
}

TEST(Growth, OneBlockWithEverything) {
  ExpectLinearDocument(1'000, [](LargeDrawing& drawing, std::size_t n) {
    drawing.AddBlock(1, "B");
    const auto line = drawing.Part(&EntityTio::LINE, 1).first;
    const auto circle = drawing.Part(&EntityTio::CIRCLE, 1).first;
    const auto solid = drawing.Part(&EntityTio::SOLID, 1).first;
    const auto text = drawing.Part(&EntityTio::TEXT, 1).first;
    const auto face = drawing.Part(&EntityTio::_3DFACE, 1).first;
    for (std::size_t i = 0; i < n; ++i) {
      drawing.AddEntity(DWG_TYPE_LINE, line);
      drawing.AddEntity(DWG_TYPE_CIRCLE, circle);
      drawing.AddEntity(DWG_TYPE_SOLID, solid);
      drawing.AddEntity(DWG_TYPE_TEXT, text);
      drawing.AddEntity(DWG_TYPE__3DFACE, face);
    }
  });
}

// No polyline has an end marker; the vertices at the end are of the other kind,
// or without data, so that no walk writes anything.
TEST(Growth, PolylinesThatWalkPastForeignVertices) {
  ExpectLinearDocument(2'000, [](LargeDrawing& drawing, std::size_t n) {
    const auto polyline = drawing.Part(&EntityTio::POLYLINE_2D).first;
    const auto vertex = drawing.Part(&EntityTio::VERTEX_3D).first;
    for (std::size_t i = 0; i < n; ++i) {
      drawing.AddEntity(DWG_TYPE_POLYLINE_2D, polyline);
    }
    for (std::size_t i = 0; i < n; ++i) {
      drawing.AddEntity(DWG_TYPE_VERTEX_3D, vertex);
    }
  });
}

// One vertex counts; the many frame control points behind it do not.
TEST(Growth, PolylinesThatWalkPastFramePoints) {
  ExpectLinearDocument(2'000, [](LargeDrawing& drawing, std::size_t n) {
    const auto polyline = drawing.Part(&EntityTio::POLYLINE_2D).first;
    const auto vertex = drawing.Part(&EntityTio::VERTEX_2D).first;
    const auto [frame, data] = drawing.Part(&EntityTio::VERTEX_2D);
    data->flag = 16;
    for (std::size_t i = 0; i < n; ++i) {
      drawing.AddEntity(DWG_TYPE_POLYLINE_2D, polyline);
    }
    drawing.AddEntity(DWG_TYPE_VERTEX_2D, vertex);
    for (std::size_t i = 0; i < n; ++i) {
      drawing.AddEntity(DWG_TYPE_VERTEX_2D, frame);
    }
  });
}

// The polylines are converted from the last to the first, because their blocks
// come in the other order.
TEST(Growth, PolylinesInReverseOrder) {
  ExpectLinearDocument(2'000, [](LargeDrawing& drawing, std::size_t n) {
    for (std::size_t i = 1; i <= n; ++i) {
      drawing.AddBlock(i, "B" + std::to_string(i));
    }
    for (std::size_t i = n; i >= 1; --i) {
      drawing.AddEntity(DWG_TYPE_POLYLINE_2D, drawing.Part(&EntityTio::POLYLINE_2D, i).first);
    }
  });
}

// Viewports that are clipped by two polylines in turn, each with many objects
// behind it that are no vertices.
TEST(Growth, ViewportsClippedByFarPolylines) {
  ExpectLinearDocument(1'000, [](LargeDrawing& drawing, std::size_t n) {
    const auto line = drawing.Part(&EntityTio::LINE, 99).first;
    for (const Handle clip : {1U, 2U}) {
      drawing.AddEntity(DWG_TYPE_POLYLINE_2D, drawing.Part(&EntityTio::POLYLINE_2D, 99).first,
                        clip);
      for (std::size_t i = 0; i < n; ++i) {
        drawing.AddEntity(DWG_TYPE_LINE, line);
      }
      drawing.AddEntity(DWG_TYPE_SEQEND, drawing.Part(&EntityTio::SEQEND).first);
    }
    for (std::size_t i = 0; i < n; ++i) {
      const auto [part, viewport] = drawing.Part(&EntityTio::VIEWPORT);
      viewport->width = viewport->height = 1;
      viewport->status_flag = 0x10000;
      viewport->clip_boundary = drawing.Ref(1 + i % 2);
      drawing.AddEntity(DWG_TYPE_VIEWPORT, part, 100 + i);
    }
  });
}

// A hatch of many paths, none of which makes a loop, clips all viewports.
TEST(Growth, ViewportsClippedByOneEmptyHatch) {
  ExpectLinearDocument(1'000, [](LargeDrawing& drawing, std::size_t n) {
    const auto [clip, hatch] = drawing.Part(&EntityTio::HATCH, 99);
    auto& paths = drawing.New<std::vector<Dwg_HATCH_Path>>();
    paths.resize(n);
    hatch->paths = paths.data();
    hatch->num_paths = static_cast<BITCODE_BL>(n);
    drawing.AddEntity(DWG_TYPE_HATCH, clip, 1);
    for (std::size_t i = 0; i < n; ++i) {
      const auto [part, viewport] = drawing.Part(&EntityTio::VIEWPORT);
      viewport->width = viewport->height = 1;
      viewport->status_flag = 0x10000;
      viewport->clip_boundary = drawing.Ref(1);
      drawing.AddEntity(DWG_TYPE_VIEWPORT, part, 100 + i);
    }
  });
}

TEST(Growth, ViewportsThatClipEachOther) {
  ExpectLinearDocument(500, [](LargeDrawing& drawing, std::size_t n) {
    for (std::size_t i = 0; i < n; ++i) {
      const auto [part, viewport] = drawing.Part(&EntityTio::VIEWPORT);
      viewport->width = viewport->height = 1;
      viewport->status_flag = 0x10000;
      viewport->clip_boundary = drawing.Ref(1 + (i + 1) % n);
      drawing.AddEntity(DWG_TYPE_VIEWPORT, part, 1 + i);
    }
  });
}

TEST(Growth, ViewportWithManyFrozenLayers) {
  ExpectLinearDocument(4'000, [](LargeDrawing& drawing, std::size_t n) {
    const auto [part, viewport] = drawing.Part(&EntityTio::VIEWPORT);
    auto& frozen = drawing.New<std::vector<BITCODE_H>>();
    for (std::size_t i = 1; i <= n; ++i) {
      drawing.AddObject(DWG_TYPE_LAYER, &ObjectTio::LAYER, i).name =
          drawing.Text("L" + std::to_string(i));
      frozen.push_back(drawing.Ref(i));
    }
    viewport->width = viewport->height = 1;
    viewport->frozen_layers = frozen.data();
    viewport->num_frozen_layers = static_cast<BITCODE_BL>(n);
    drawing.AddEntity(DWG_TYPE_VIEWPORT, part);
  });
}

TEST(Growth, Sheets) {
  ExpectLinearDocument(4'000, [](LargeDrawing& drawing, std::size_t n) {
    for (std::size_t i = 1; i <= n; ++i) {
      drawing.AddBlock(i, "*Paper_Space" + std::to_string(i));
      drawing.AddObject(DWG_TYPE_LAYOUT, &ObjectTio::LAYOUT, n + i).block_header = drawing.Ref(i);
      drawing.AddEntity(DWG_TYPE_LINE, drawing.Part(&EntityTio::LINE, i).first);
    }
  });
}

TEST(Growth, Warnings) {
  ExpectLinearDocument(4'000, [](LargeDrawing& drawing, std::size_t n) {
    const auto spline = drawing.Part(&EntityTio::SPLINE).first;
    for (std::size_t i = 0; i < n; ++i) {
      drawing.AddEntity(DWG_TYPE_SPLINE, spline);
    }
  });
}

TEST(Growth, LongPolyline) {
  ExpectLinearDocument(4'000, [](LargeDrawing& drawing, std::size_t n) {
    const auto [part, polyline] = drawing.Part(&EntityTio::LWPOLYLINE);
    auto& points = drawing.New<std::vector<BITCODE_2RD>>();
    points.resize(n, {1.5, 2.5});
    polyline->points = points.data();
    polyline->num_points = static_cast<BITCODE_BL>(n);
    drawing.AddEntity(DWG_TYPE_LWPOLYLINE, part);
  });
}

TEST(Growth, DenseHatch) {
  ExpectLinearDocument(1'000, [](LargeDrawing& drawing, std::size_t n) {
    const auto [part, hatch] = drawing.Part(&EntityTio::HATCH);
    auto& path = drawing.New<Dwg_HATCH_Path>();
    auto& segments = drawing.New<std::vector<Dwg_HATCH_PathSeg>>();
    segments.resize(n);
    for (Dwg_HATCH_PathSeg& segment : segments) {
      segment.curve_type = 2;
      segment.radius = 1.25;
      segment.end_angle = 6.28;
    }
    path.segs = segments.data();
    path.num_segs_or_paths = static_cast<BITCODE_BL>(n);
    hatch->paths = &path;
    hatch->num_paths = 1;
    drawing.AddEntity(DWG_TYPE_HATCH, part);
  });
}

void AddSpline(LargeDrawing& drawing, std::size_t points, std::size_t degree) {
  const auto [part, spline] = drawing.Part(&EntityTio::SPLINE);
  auto& controlPoints = drawing.New<std::vector<Dwg_SPLINE_control_point>>();
  auto& knots = drawing.New<std::vector<double>>();
  for (std::size_t i = 0; i < points; ++i) {
    Dwg_SPLINE_control_point point{};
    point.x = static_cast<double>(i);
    controlPoints.push_back(point);
  }
  for (std::size_t i = 0; i < points + degree + 1; ++i) {
    knots.push_back(static_cast<double>(i));
  }
  spline->degree = static_cast<BITCODE_BS>(degree);
  spline->ctrl_pts = controlPoints.data();
  spline->num_ctrl_pts = static_cast<BITCODE_BL>(points);
  spline->knots = knots.data();
  spline->num_knots = static_cast<BITCODE_BL>(points + degree + 1);
  drawing.AddEntity(DWG_TYPE_SPLINE, part);
}

TEST(Growth, HugeSpline) {
  ExpectLinearDocument(2'000,
                       [](LargeDrawing& drawing, std::size_t n) { AddSpline(drawing, n, 3); });
}

// Evaluating it would take the cube of its size; from a size on it is refused.
TEST(Growth, SplineOfAHighDegree) {
  ExpectLinearDocument(300,
                       [](LargeDrawing& drawing, std::size_t n) { AddSpline(drawing, n, n / 2); });
}

// A text of n bytes, the unit again and again.
std::string Repeated(const std::string& unit, std::size_t n) {
  std::string text;
  while (text.size() < n) {
    text += unit;
  }
  return text;
}

void ExpectLinearMtext(const std::function<std::string(std::size_t)>& make) {
  ExpectLinear(50'000, [&make](std::size_t n) {
    return [text = make(n)] {
      JsonOut out;
      MtextLayout layout;
      AppendMtextHtml(out, text, 2.5, layout);
    };
  });
}

TEST(Growth, MultiLineText) {
  const std::string codes =
      "{\\C1;red\\W0.8;{\\fArial|b1|p1;bold}\\P\\pi1,t1,2,3;\\S1/2;\\H2x;\\O}\\U+1F600";
  ExpectLinearMtext([&codes](std::size_t n) { return Repeated(codes, n); });
  ExpectLinearMtext([](std::size_t n) { return Repeated("\\W2;\\T3;", n) + "x"; });
  ExpectLinearMtext([](std::size_t n) { return Repeated("{\\L", n) + Repeated("}", n / 3); });
  ExpectLinearMtext([](std::size_t n) { return "\\pt" + Repeated("1,", n); });
  ExpectLinearMtext([](std::size_t n) { return "\\f" + Repeated("a|c9", n); });
  ExpectLinearMtext([](std::size_t n) { return Repeated("\\P\\~\\\\", n); });
}

TEST(Growth, SingleLineText) {
  ExpectLinear(50'000, [](std::size_t n) {
    return [text = Repeated("%%u%%o%%c%%176<", n)] {
      JsonOut out;
      AppendTextCodes(out, text);
    };
  });
}

// What the two judges have to find: the script this one's work,
void ExpectLinearCompleteDocument(std::size_t n, const Fill& fill) {
  ExpectLinear(n, [&fill](std::size_t size) {
    auto drawing = std::make_shared<LargeDrawing>(kMostObjects * size);
    fill(*drawing, size);
    return [drawing] {
      StageObserver observer;
      JsonOut out;
      JsonOut further;
      AppendCompleteDocument(out, further, Drawing{.data = drawing->data()}, {}, {}, observer);
    };
  });
}

// All of one style, with a list of variables each.
TEST(CompleteGrowth, Dimensions) {
  ExpectLinearCompleteDocument(2000, [](LargeDrawing& drawing, std::size_t size) {
    auto& style = drawing.AddObject(DWG_TYPE_DIMSTYLE, &ObjectTio::DIMSTYLE, 1);
    style.name = drawing.Text("Site");
    for (std::size_t i = 0; i < size; ++i) {
      const auto [entity, dimension] = drawing.Part(&EntityTio::DIMENSION_ANG2LN);
      dimension->dimstyle = drawing.Ref(1);
      drawing.AddEntity(DWG_TYPE_DIMENSION_ANG2LN, entity, 16 + i);
    }
  });
}

TEST(CompleteGrowth, OneDimensionWithManyVariables) {
  ExpectLinearCompleteDocument(2000, [](LargeDrawing& drawing, std::size_t size) {
    const auto [entity, dimension] = drawing.Part(&EntityTio::DIMENSION_ALIGNED);
    auto& value = drawing.New<Dwg_Eed_Data>();
    value.code = 70;
    value.u.eed_70.rs = 271;
    std::vector<Dwg_Eed> values(size);
    for (Dwg_Eed& item : values) {
      item.data = &value;
    }
    auto& marked = drawing.New<std::array<char, sizeof(Dwg_Eed_Data) + 8>>();
    auto* mark = reinterpret_cast<Dwg_Eed_Data*>(marked.data());
    mark->u.eed_0.length = 6;
    std::memcpy(mark->u.eed_0.string, "DSTYLE", 6);
    values[0].data = mark;
    entity->num_eed = static_cast<BITCODE_BL>(size);
    entity->eed = drawing.Array(values);
    drawing.AddEntity(DWG_TYPE_DIMENSION_ALIGNED, entity, 16);
  });
}

// Meshes without an end of their own, one behind the other.
TEST(CompleteGrowth, PolygonMeshes) {
  ExpectLinearCompleteDocument(2000, [](LargeDrawing& drawing, std::size_t size) {
    for (std::size_t i = 0; i < size; ++i) {
      drawing.AddEntity(DWG_TYPE_POLYLINE_MESH, drawing.Part(&EntityTio::POLYLINE_MESH).first);
      drawing.AddEntity(DWG_TYPE_VERTEX_MESH, drawing.Part(&EntityTio::VERTEX_MESH).first);
    }
  });
}

TEST(CompleteGrowth, StoredGraphics) {
  ExpectLinearCompleteDocument(4000, [](LargeDrawing& drawing, std::size_t size) {
    // The head, then polylines of one point, and a layer's number before each.
    auto& bytes = drawing.New<std::vector<unsigned char>>();
    bytes.resize(8);
    for (std::size_t i = 0; i < size; ++i) {
      bytes.insert(bytes.end(), {12, 0, 0, 0, 16, 0, 0, 0, 1, 0, 0, 0});
      bytes.insert(bytes.end(), {36, 0, 0, 0, 6, 0, 0, 0, 1, 0, 0, 0});
      bytes.insert(bytes.end(), 24, 0);
    }
    const auto [entity, proxy] = drawing.Part(&EntityTio::PROXY_ENTITY);
    entity->preview_exists = 1;
    entity->preview_size = bytes.size();
    entity->preview = bytes.data();
    drawing.AddEntity(DWG_TYPE_PROXY_ENTITY, entity, 16);
  });
}

TEST(CompleteGrowth, MultilineOfManyVertices) {
  ExpectLinearCompleteDocument(2000, [](LargeDrawing& drawing, std::size_t size) {
    const auto [entity, multiline] = drawing.Part(&EntityTio::MLINE);
    multiline->num_lines = 3;
    multiline->num_verts = static_cast<BITCODE_BS>(size);
    multiline->verts = drawing.Array(std::vector<Dwg_MLINE_vertex>(size));
    drawing.AddEntity(DWG_TYPE_MLINE, entity, 16);
  });
}

TEST(CompleteGrowth, TableOfManyCells) {
  ExpectLinearCompleteDocument(2000, [](LargeDrawing& drawing, std::size_t size) {
    const auto [entity, table] = drawing.Part(&EntityTio::TABLE);
    table->num_cols = 1;
    table->num_cells = static_cast<unsigned long>(size);
    table->cells = drawing.Array(std::vector<Dwg_TABLE_Cell>(size));
    drawing.AddEntity(DWG_TYPE_TABLE, entity, 16);
  });
}

TEST(CompleteGrowth, ToleranceOfManyCells) {
  ExpectLinearCompleteDocument(4000, [](LargeDrawing& drawing, std::size_t size) {
    const auto [entity, tolerance] = drawing.Part(&EntityTio::TOLERANCE);
    std::string text;
    for (std::size_t i = 0; i < size; ++i) {
      text += "{\\Fgdt;j}%%v";
    }
    tolerance->text_value = drawing.Text(text);
    drawing.AddEntity(DWG_TYPE_TOLERANCE, entity, 16);
  });
}

TEST(Planted, SquareOfTheSize) {
  ExpectLinear(1'000, [](std::size_t n) {
    return [numbers = std::vector<char>(n, 1)] {
      volatile std::size_t pairs = 0;
      for (const char first : numbers) {
        for (const char second : numbers) {
          pairs = pairs + static_cast<std::size_t>(first + second);
        }
      }
    };
  });
}

// and this program this one's memory.
TEST(Planted, SquareOfTheMemory) {
  const Prepare prepare = [](std::size_t n) { return [n] { std::vector<char>(n * n); }; };
  const std::size_t first = BytesOf(1'000, prepare(1'000));
  const std::size_t last = BytesOf(8'000, prepare(8'000));
  EXPECT_FALSE(IsLinear(first, last));
}

}  // namespace
