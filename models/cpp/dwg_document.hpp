// clang-format off
// Made by scripts/make_models.py from the schema, version 1.0.0. Do not edit.
//
// What dwg_import_worker prints, as structures. Keys that they do not name are passed over.
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

namespace dwg_document {

using Json = nlohmann::json;

struct Entity;

// Opaque colour.
struct Rgb {
  std::int64_t r = 0;
  std::int64_t g = 0;
  std::int64_t b = 0;
};

struct Rgba {
  std::int64_t r = 0;
  std::int64_t g = 0;
  std::int64_t b = 0;
  std::optional<std::int64_t> a;  // Opacity; 255 is opaque
};

// Hundredths of a millimetre, or L.
using Lineweight = std::variant<std::string, std::int64_t>;

// Only with --verbose.
struct Debug {
  std::int64_t color_index = 0;
  std::int64_t color_alpha_type = 0;
  std::int64_t color_alpha = 0;
  std::int64_t color_alpha_raw = 0;
};

using Point2 = std::array<double, 2>;

using Point3 = std::array<double, 3>;

using Html = std::string;

struct Run {
  std::int64_t start = 0;
  std::int64_t length = 0;
  std::optional<std::int64_t> stretch;
  std::optional<std::int64_t> tracking;
  std::optional<bool> fixedPitch;
};

struct Block {
  std::int64_t index = 0;
  std::optional<std::string> alignment;
  std::optional<double> textIndent;
  std::optional<double> leftMargin;
  std::optional<double> rightMargin;
  std::optional<std::vector<double>> tabStops;
};

// Milliseconds since the start of the run.
struct Timings {
  std::int64_t dwgReadMs = 0;
  std::int64_t prepassMs = 0;
  std::int64_t layersMs = 0;
  std::int64_t assetsMs = 0;
  std::int64_t entitiesMs = 0;
  std::int64_t workerTotalMs = 0;
};

struct Refusal {
  std::string error;
};

// L by layer, K by block, W white on dark and black on light backgrounds.
using Color = std::variant<std::string, Rgba>;

// As color, never inherited.
using StyleColor = std::variant<std::string, Rgba>;

struct Layer {
  std::string name;
  bool visible = false;
  bool locked = false;
  Rgb color;
  Lineweight lw;
  std::optional<std::int64_t> alpha;  // Opacity; 255 is opaque
  std::optional<Debug> dbg;
};

struct LeaderText {
  Html html;
  double x = 0;
  double y = 0;
  double height = 0;
  double rotationRad = 0;
};

struct Line {
  static constexpr std::string_view kType = "LINE";
  std::string layer;
  double startX = 0;
  double startY = 0;
  double endX = 0;
  double endY = 0;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
};

struct Point {
  static constexpr std::string_view kType = "POINT";
  std::string layer;
  double x = 0;
  double y = 0;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
};

struct Ray {
  static constexpr std::string_view kType = "RAY";
  std::string layer;
  double x = 0;
  double y = 0;
  double dx = 0;
  double dy = 0;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
};

struct Xline {
  static constexpr std::string_view kType = "XLINE";
  std::string layer;
  double x = 0;
  double y = 0;
  double dx = 0;
  double dy = 0;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
};

struct Circle {
  static constexpr std::string_view kType = "CIRCLE";
  std::string layer;
  double cx = 0;
  double cy = 0;
  double radius = 0;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
};

struct Arc {
  static constexpr std::string_view kType = "ARC";
  std::string layer;
  double cx = 0;
  double cy = 0;
  double radius = 0;
  double startAngleRad = 0;
  double endAngleRad = 0;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
};

struct Ellipse {
  static constexpr std::string_view kType = "ELLIPSE";
  std::string layer;
  double cx = 0;
  double cy = 0;
  double smAxisX = 0;
  double smAxisY = 0;
  double semiMajor = 0;
  double axisRatio = 0;
  double startAngleRad = 0;
  double endAngleRad = 0;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
};

struct Lwpolyline {
  static constexpr std::string_view kType = "LWPOLYLINE";
  std::string layer;
  bool closed = false;
  std::vector<Point2> points;
  std::vector<double> bulges;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
};

struct Polyline2d {
  static constexpr std::string_view kType = "POLYLINE_2D";
  std::string layer;
  bool closed = false;
  std::vector<Point2> points;
  std::vector<double> bulges;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
};

struct Polyline3d {
  static constexpr std::string_view kType = "POLYLINE_3D";
  std::string layer;
  bool closed = false;
  std::vector<Point3> points;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
};

struct Spline {
  static constexpr std::string_view kType = "SPLINE";
  std::string layer;
  bool closed = false;
  std::vector<Point2> fit_pts;
  std::optional<Point2> beg_tan;
  std::optional<Point2> end_tan;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
};

struct Hatch {
  static constexpr std::string_view kType = "HATCH";
  std::string layer;
  bool solid = false;
  std::vector<std::vector<double>> loops;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
};

struct Solid {
  static constexpr std::string_view kType = "SOLID";
  std::string layer;
  std::vector<Point2> pts;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
};

struct Wipeout {
  static constexpr std::string_view kType = "WIPEOUT";
  std::string layer;
  std::vector<Point2> verts;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
};

struct Insert {
  static constexpr std::string_view kType = "INSERT";
  std::string layer;
  std::string blockName;
  double x = 0;
  double y = 0;
  double rotationRad = 0;
  double scaleX = 0;
  double scaleY = 0;
  double scaleZ = 0;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
};

struct Image {
  static constexpr std::string_view kType = "IMAGE";
  std::string layer;
  std::string path;
  double px0 = 0;
  double py0 = 0;
  double ux = 0;
  double uy = 0;
  double vx = 0;
  double vy = 0;
  double sw = 0;
  double sh = 0;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
};

struct Pdfunderlay {
  static constexpr std::string_view kType = "PDFUNDERLAY";
  std::string layer;
  std::string path;
  std::int64_t page = 0;
  double ix = 0;
  double iy = 0;
  double sx = 0;
  double sy = 0;
  double angle = 0;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
};

struct Viewport {
  static constexpr std::string_view kType = "VIEWPORT";
  std::string layer;
  double cx = 0;
  double cy = 0;
  double width = 0;
  double height = 0;
  double viewCtrX = 0;
  double viewCtrY = 0;
  double viewSize = 0;
  double targetX = 0;
  double targetY = 0;
  double targetZ = 0;
  double dirX = 0;
  double dirY = 0;
  double dirZ = 0;
  double twist = 0;
  std::int64_t status = 0;
  std::vector<std::string> frozenLayers;
  std::shared_ptr<const Entity> clip;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
};

struct Text {
  static constexpr std::string_view kType = "TEXT";
  std::string layer;
  double x = 0;
  double y = 0;
  Html html;
  double height = 0;
  double rotationRad = 0;
  std::optional<std::int64_t> halign;
  std::optional<std::int64_t> valign;
  std::optional<double> ax;
  std::optional<double> ay;
  std::optional<std::string> fontFamily;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
};

struct Dyntext {
  static constexpr std::string_view kType = "DYNTEXT";
  std::string layer;
  std::string kind;
  double x = 0;
  double y = 0;
  Html html;
  double height = 0;
  double rotationRad = 0;
  std::optional<std::string> fontFamily;
  std::string tag;
  std::optional<std::string> prompt;
  std::optional<std::string> defaultValue;
  std::int64_t flags = 0;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
};

struct Mtext {
  static constexpr std::string_view kType = "MTEXT";
  std::string layer;
  double x = 0;
  double y = 0;
  Html html;
  std::string rawMtext;
  double width = 0;
  double height = 0;
  double rotationRad = 0;
  std::int64_t attachment = 0;
  std::optional<std::vector<Run>> runs;
  std::optional<std::vector<Block>> blocks;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
};

struct DimensionLinear {
  static constexpr std::string_view kType = "DIMENSION_LINEAR";
  std::string layer;
  double x1 = 0;
  double y1 = 0;
  double x2 = 0;
  double y2 = 0;
  double defX = 0;
  double defY = 0;
  double dimRotationRad = 0;
  double measurement = 0;
  std::string userText;
  double textMidX = 0;
  double textMidY = 0;
  std::optional<double> textHeight;
  std::optional<double> arrowSize;
  std::optional<std::string> fontFamily;
  std::optional<StyleColor> textColorRgb;
  std::optional<StyleColor> lineColorRgb;
  std::optional<std::int64_t> dimDec;
  std::optional<double> dimLFac;
  std::optional<double> dimRnd;
  std::optional<std::int64_t> dimZin;
  std::optional<std::int64_t> dimLUnit;
  std::optional<std::string> dimPost;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
};

struct DimensionAligned {
  static constexpr std::string_view kType = "DIMENSION_ALIGNED";
  std::string layer;
  double x1 = 0;
  double y1 = 0;
  double x2 = 0;
  double y2 = 0;
  double defX = 0;
  double defY = 0;
  double measurement = 0;
  std::string userText;
  double textMidX = 0;
  double textMidY = 0;
  std::optional<double> textHeight;
  std::optional<double> arrowSize;
  std::optional<std::string> fontFamily;
  std::optional<StyleColor> textColorRgb;
  std::optional<StyleColor> lineColorRgb;
  std::optional<std::int64_t> dimDec;
  std::optional<double> dimLFac;
  std::optional<double> dimRnd;
  std::optional<std::int64_t> dimZin;
  std::optional<std::int64_t> dimLUnit;
  std::optional<std::string> dimPost;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
};

struct DimensionRadius {
  static constexpr std::string_view kType = "DIMENSION_RADIUS";
  std::string layer;
  double defX = 0;
  double defY = 0;
  double arcX = 0;
  double arcY = 0;
  double leaderLen = 0;
  double measurement = 0;
  std::string userText;
  double textMidX = 0;
  double textMidY = 0;
  std::optional<double> textHeight;
  std::optional<double> arrowSize;
  std::optional<std::string> fontFamily;
  std::optional<StyleColor> textColorRgb;
  std::optional<StyleColor> lineColorRgb;
  std::optional<std::int64_t> dimDec;
  std::optional<double> dimLFac;
  std::optional<double> dimRnd;
  std::optional<std::int64_t> dimZin;
  std::optional<std::int64_t> dimLUnit;
  std::optional<std::string> dimPost;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
};

struct Leader {
  static constexpr std::string_view kType = "LEADER";
  std::string layer;
  std::vector<Point2> points;
  bool arrowOn = false;
  double arrowSize = 0;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
};

struct Multileader {
  static constexpr std::string_view kType = "MULTILEADER";
  std::string layer;
  std::vector<std::vector<double>> lines;
  double arrowSize = 0;
  std::optional<LeaderText> text;
  std::optional<Color> color;
  std::optional<Lineweight> lw;
  std::optional<Debug> dbg;
};

// Any entity; its type tells which.
struct Entity {
  std::variant<Line, Point, Ray, Xline, Circle, Arc, Ellipse, Lwpolyline, Polyline2d, Polyline3d, Spline, Hatch, Solid, Wipeout, Insert, Image, Pdfunderlay, Viewport, Text, Dyntext, Mtext, DimensionLinear, DimensionAligned, DimensionRadius, Leader, Multileader> value;
};

struct Asset {
  std::string name;
  std::optional<double> baseX;
  std::optional<double> baseY;
  std::vector<Entity> entities;
};

struct Layout {
  std::string name;
  std::optional<std::int64_t> tabOrder;
  std::optional<double> paperW;
  std::optional<double> paperH;
  std::optional<double> marginL;
  std::optional<double> marginB;
  std::optional<double> marginR;
  std::optional<double> marginT;
  std::optional<double> plotOriginX;
  std::optional<double> plotOriginY;
  std::optional<std::int64_t> paperUnit;
  std::optional<std::int64_t> rotation;
  std::optional<double> scaleNum;
  std::optional<double> scaleDen;
  std::optional<double> limMinX;
  std::optional<double> limMinY;
  std::optional<double> limMaxX;
  std::optional<double> limMaxY;
  std::optional<double> extMinX;
  std::optional<double> extMinY;
  std::optional<double> extMaxX;
  std::optional<double> extMaxY;
  std::vector<Entity> entities;
};

struct Document {
  std::string dwgVersion;
  std::int64_t insunits = 0;
  std::vector<Layer> layers;
  std::vector<Asset> assets;
  std::vector<Entity> entities;
  std::vector<Layout> layouts;
  std::vector<std::string> warnings;
  Timings timings;
};

inline void Read(const Json& json, double& to) {
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

inline void Read(const Json& json, Rgb& to) {
  Read(json.at("r"), to.r);
  Read(json.at("g"), to.g);
  Read(json.at("b"), to.b);
}

inline void Read(const Json& json, Rgba& to) {
  Read(json.at("r"), to.r);
  Read(json.at("g"), to.g);
  Read(json.at("b"), to.b);
  ReadIfThere(json, "a", to.a);
}

inline void Read(const Json& json, Debug& to) {
  Read(json.at("color_index"), to.color_index);
  Read(json.at("color_alpha_type"), to.color_alpha_type);
  Read(json.at("color_alpha"), to.color_alpha);
  Read(json.at("color_alpha_raw"), to.color_alpha_raw);
}

inline void Read(const Json& json, Run& to) {
  Read(json.at("start"), to.start);
  Read(json.at("length"), to.length);
  ReadIfThere(json, "stretch", to.stretch);
  ReadIfThere(json, "tracking", to.tracking);
  ReadIfThere(json, "fixedPitch", to.fixedPitch);
}

inline void Read(const Json& json, Block& to) {
  Read(json.at("index"), to.index);
  ReadIfThere(json, "alignment", to.alignment);
  ReadIfThere(json, "textIndent", to.textIndent);
  ReadIfThere(json, "leftMargin", to.leftMargin);
  ReadIfThere(json, "rightMargin", to.rightMargin);
  ReadIfThere(json, "tabStops", to.tabStops);
}

inline void Read(const Json& json, Timings& to) {
  Read(json.at("dwgReadMs"), to.dwgReadMs);
  Read(json.at("prepassMs"), to.prepassMs);
  Read(json.at("layersMs"), to.layersMs);
  Read(json.at("assetsMs"), to.assetsMs);
  Read(json.at("entitiesMs"), to.entitiesMs);
  Read(json.at("workerTotalMs"), to.workerTotalMs);
}

inline void Read(const Json& json, Layer& to) {
  Read(json.at("name"), to.name);
  Read(json.at("visible"), to.visible);
  Read(json.at("locked"), to.locked);
  Read(json.at("color"), to.color);
  Read(json.at("lw"), to.lw);
  ReadIfThere(json, "alpha", to.alpha);
  ReadIfThere(json, "_dbg", to.dbg);
}

inline void Read(const Json& json, LeaderText& to) {
  Read(json.at("html"), to.html);
  Read(json.at("x"), to.x);
  Read(json.at("y"), to.y);
  Read(json.at("height"), to.height);
  Read(json.at("rotationRad"), to.rotationRad);
}

inline void Read(const Json& json, Line& to) {
  Read(json.at("layer"), to.layer);
  Read(json.at("startX"), to.startX);
  Read(json.at("startY"), to.startY);
  Read(json.at("endX"), to.endX);
  Read(json.at("endY"), to.endY);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
}

inline void Read(const Json& json, Point& to) {
  Read(json.at("layer"), to.layer);
  Read(json.at("x"), to.x);
  Read(json.at("y"), to.y);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
}

inline void Read(const Json& json, Ray& to) {
  Read(json.at("layer"), to.layer);
  Read(json.at("x"), to.x);
  Read(json.at("y"), to.y);
  Read(json.at("dx"), to.dx);
  Read(json.at("dy"), to.dy);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
}

inline void Read(const Json& json, Xline& to) {
  Read(json.at("layer"), to.layer);
  Read(json.at("x"), to.x);
  Read(json.at("y"), to.y);
  Read(json.at("dx"), to.dx);
  Read(json.at("dy"), to.dy);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
}

inline void Read(const Json& json, Circle& to) {
  Read(json.at("layer"), to.layer);
  Read(json.at("cx"), to.cx);
  Read(json.at("cy"), to.cy);
  Read(json.at("radius"), to.radius);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
}

inline void Read(const Json& json, Arc& to) {
  Read(json.at("layer"), to.layer);
  Read(json.at("cx"), to.cx);
  Read(json.at("cy"), to.cy);
  Read(json.at("radius"), to.radius);
  Read(json.at("startAngleRad"), to.startAngleRad);
  Read(json.at("endAngleRad"), to.endAngleRad);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
}

inline void Read(const Json& json, Ellipse& to) {
  Read(json.at("layer"), to.layer);
  Read(json.at("cx"), to.cx);
  Read(json.at("cy"), to.cy);
  Read(json.at("smAxisX"), to.smAxisX);
  Read(json.at("smAxisY"), to.smAxisY);
  Read(json.at("semiMajor"), to.semiMajor);
  Read(json.at("axisRatio"), to.axisRatio);
  Read(json.at("startAngleRad"), to.startAngleRad);
  Read(json.at("endAngleRad"), to.endAngleRad);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
}

inline void Read(const Json& json, Lwpolyline& to) {
  Read(json.at("layer"), to.layer);
  Read(json.at("closed"), to.closed);
  Read(json.at("points"), to.points);
  Read(json.at("bulges"), to.bulges);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
}

inline void Read(const Json& json, Polyline2d& to) {
  Read(json.at("layer"), to.layer);
  Read(json.at("closed"), to.closed);
  Read(json.at("points"), to.points);
  Read(json.at("bulges"), to.bulges);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
}

inline void Read(const Json& json, Polyline3d& to) {
  Read(json.at("layer"), to.layer);
  Read(json.at("closed"), to.closed);
  Read(json.at("points"), to.points);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
}

inline void Read(const Json& json, Spline& to) {
  Read(json.at("layer"), to.layer);
  Read(json.at("closed"), to.closed);
  Read(json.at("fit_pts"), to.fit_pts);
  ReadIfThere(json, "beg_tan", to.beg_tan);
  ReadIfThere(json, "end_tan", to.end_tan);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
}

inline void Read(const Json& json, Hatch& to) {
  Read(json.at("layer"), to.layer);
  Read(json.at("solid"), to.solid);
  Read(json.at("loops"), to.loops);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
}

inline void Read(const Json& json, Solid& to) {
  Read(json.at("layer"), to.layer);
  Read(json.at("pts"), to.pts);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
}

inline void Read(const Json& json, Wipeout& to) {
  Read(json.at("layer"), to.layer);
  Read(json.at("verts"), to.verts);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
}

inline void Read(const Json& json, Insert& to) {
  Read(json.at("layer"), to.layer);
  Read(json.at("blockName"), to.blockName);
  Read(json.at("x"), to.x);
  Read(json.at("y"), to.y);
  Read(json.at("rotationRad"), to.rotationRad);
  Read(json.at("scaleX"), to.scaleX);
  Read(json.at("scaleY"), to.scaleY);
  Read(json.at("scaleZ"), to.scaleZ);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
}

inline void Read(const Json& json, Image& to) {
  Read(json.at("layer"), to.layer);
  Read(json.at("path"), to.path);
  Read(json.at("px0"), to.px0);
  Read(json.at("py0"), to.py0);
  Read(json.at("ux"), to.ux);
  Read(json.at("uy"), to.uy);
  Read(json.at("vx"), to.vx);
  Read(json.at("vy"), to.vy);
  Read(json.at("sw"), to.sw);
  Read(json.at("sh"), to.sh);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
}

inline void Read(const Json& json, Pdfunderlay& to) {
  Read(json.at("layer"), to.layer);
  Read(json.at("path"), to.path);
  Read(json.at("page"), to.page);
  Read(json.at("ix"), to.ix);
  Read(json.at("iy"), to.iy);
  Read(json.at("sx"), to.sx);
  Read(json.at("sy"), to.sy);
  Read(json.at("angle"), to.angle);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
}

inline void Read(const Json& json, Viewport& to) {
  Read(json.at("layer"), to.layer);
  Read(json.at("cx"), to.cx);
  Read(json.at("cy"), to.cy);
  Read(json.at("width"), to.width);
  Read(json.at("height"), to.height);
  Read(json.at("viewCtrX"), to.viewCtrX);
  Read(json.at("viewCtrY"), to.viewCtrY);
  Read(json.at("viewSize"), to.viewSize);
  Read(json.at("targetX"), to.targetX);
  Read(json.at("targetY"), to.targetY);
  Read(json.at("targetZ"), to.targetZ);
  Read(json.at("dirX"), to.dirX);
  Read(json.at("dirY"), to.dirY);
  Read(json.at("dirZ"), to.dirZ);
  Read(json.at("twist"), to.twist);
  Read(json.at("status"), to.status);
  Read(json.at("frozenLayers"), to.frozenLayers);
  ReadIfThere(json, "clip", to.clip);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
}

inline void Read(const Json& json, Text& to) {
  Read(json.at("layer"), to.layer);
  Read(json.at("x"), to.x);
  Read(json.at("y"), to.y);
  Read(json.at("html"), to.html);
  Read(json.at("height"), to.height);
  Read(json.at("rotationRad"), to.rotationRad);
  ReadIfThere(json, "halign", to.halign);
  ReadIfThere(json, "valign", to.valign);
  ReadIfThere(json, "ax", to.ax);
  ReadIfThere(json, "ay", to.ay);
  ReadIfThere(json, "fontFamily", to.fontFamily);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
}

inline void Read(const Json& json, Dyntext& to) {
  Read(json.at("layer"), to.layer);
  Read(json.at("kind"), to.kind);
  Read(json.at("x"), to.x);
  Read(json.at("y"), to.y);
  Read(json.at("html"), to.html);
  Read(json.at("height"), to.height);
  Read(json.at("rotationRad"), to.rotationRad);
  ReadIfThere(json, "fontFamily", to.fontFamily);
  Read(json.at("tag"), to.tag);
  ReadIfThere(json, "prompt", to.prompt);
  ReadIfThere(json, "defaultValue", to.defaultValue);
  Read(json.at("flags"), to.flags);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
}

inline void Read(const Json& json, Mtext& to) {
  Read(json.at("layer"), to.layer);
  Read(json.at("x"), to.x);
  Read(json.at("y"), to.y);
  Read(json.at("html"), to.html);
  Read(json.at("rawMtext"), to.rawMtext);
  Read(json.at("width"), to.width);
  Read(json.at("height"), to.height);
  Read(json.at("rotationRad"), to.rotationRad);
  Read(json.at("attachment"), to.attachment);
  ReadIfThere(json, "runs", to.runs);
  ReadIfThere(json, "blocks", to.blocks);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
}

inline void Read(const Json& json, DimensionLinear& to) {
  Read(json.at("layer"), to.layer);
  Read(json.at("x1"), to.x1);
  Read(json.at("y1"), to.y1);
  Read(json.at("x2"), to.x2);
  Read(json.at("y2"), to.y2);
  Read(json.at("defX"), to.defX);
  Read(json.at("defY"), to.defY);
  Read(json.at("dimRotationRad"), to.dimRotationRad);
  Read(json.at("measurement"), to.measurement);
  Read(json.at("userText"), to.userText);
  Read(json.at("textMidX"), to.textMidX);
  Read(json.at("textMidY"), to.textMidY);
  ReadIfThere(json, "textHeight", to.textHeight);
  ReadIfThere(json, "arrowSize", to.arrowSize);
  ReadIfThere(json, "fontFamily", to.fontFamily);
  ReadIfThere(json, "textColorRgb", to.textColorRgb);
  ReadIfThere(json, "lineColorRgb", to.lineColorRgb);
  ReadIfThere(json, "dimDec", to.dimDec);
  ReadIfThere(json, "dimLFac", to.dimLFac);
  ReadIfThere(json, "dimRnd", to.dimRnd);
  ReadIfThere(json, "dimZin", to.dimZin);
  ReadIfThere(json, "dimLUnit", to.dimLUnit);
  ReadIfThere(json, "dimPost", to.dimPost);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
}

inline void Read(const Json& json, DimensionAligned& to) {
  Read(json.at("layer"), to.layer);
  Read(json.at("x1"), to.x1);
  Read(json.at("y1"), to.y1);
  Read(json.at("x2"), to.x2);
  Read(json.at("y2"), to.y2);
  Read(json.at("defX"), to.defX);
  Read(json.at("defY"), to.defY);
  Read(json.at("measurement"), to.measurement);
  Read(json.at("userText"), to.userText);
  Read(json.at("textMidX"), to.textMidX);
  Read(json.at("textMidY"), to.textMidY);
  ReadIfThere(json, "textHeight", to.textHeight);
  ReadIfThere(json, "arrowSize", to.arrowSize);
  ReadIfThere(json, "fontFamily", to.fontFamily);
  ReadIfThere(json, "textColorRgb", to.textColorRgb);
  ReadIfThere(json, "lineColorRgb", to.lineColorRgb);
  ReadIfThere(json, "dimDec", to.dimDec);
  ReadIfThere(json, "dimLFac", to.dimLFac);
  ReadIfThere(json, "dimRnd", to.dimRnd);
  ReadIfThere(json, "dimZin", to.dimZin);
  ReadIfThere(json, "dimLUnit", to.dimLUnit);
  ReadIfThere(json, "dimPost", to.dimPost);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
}

inline void Read(const Json& json, DimensionRadius& to) {
  Read(json.at("layer"), to.layer);
  Read(json.at("defX"), to.defX);
  Read(json.at("defY"), to.defY);
  Read(json.at("arcX"), to.arcX);
  Read(json.at("arcY"), to.arcY);
  Read(json.at("leaderLen"), to.leaderLen);
  Read(json.at("measurement"), to.measurement);
  Read(json.at("userText"), to.userText);
  Read(json.at("textMidX"), to.textMidX);
  Read(json.at("textMidY"), to.textMidY);
  ReadIfThere(json, "textHeight", to.textHeight);
  ReadIfThere(json, "arrowSize", to.arrowSize);
  ReadIfThere(json, "fontFamily", to.fontFamily);
  ReadIfThere(json, "textColorRgb", to.textColorRgb);
  ReadIfThere(json, "lineColorRgb", to.lineColorRgb);
  ReadIfThere(json, "dimDec", to.dimDec);
  ReadIfThere(json, "dimLFac", to.dimLFac);
  ReadIfThere(json, "dimRnd", to.dimRnd);
  ReadIfThere(json, "dimZin", to.dimZin);
  ReadIfThere(json, "dimLUnit", to.dimLUnit);
  ReadIfThere(json, "dimPost", to.dimPost);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
}

inline void Read(const Json& json, Leader& to) {
  Read(json.at("layer"), to.layer);
  Read(json.at("points"), to.points);
  Read(json.at("arrowOn"), to.arrowOn);
  Read(json.at("arrowSize"), to.arrowSize);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
}

inline void Read(const Json& json, Multileader& to) {
  Read(json.at("layer"), to.layer);
  Read(json.at("lines"), to.lines);
  Read(json.at("arrowSize"), to.arrowSize);
  ReadIfThere(json, "text", to.text);
  ReadIfThere(json, "color", to.color);
  ReadIfThere(json, "lw", to.lw);
  ReadIfThere(json, "_dbg", to.dbg);
}

inline void Read(const Json& json, Asset& to) {
  Read(json.at("name"), to.name);
  ReadIfThere(json, "baseX", to.baseX);
  ReadIfThere(json, "baseY", to.baseY);
  Read(json.at("entities"), to.entities);
}

inline void Read(const Json& json, Layout& to) {
  Read(json.at("name"), to.name);
  ReadIfThere(json, "tabOrder", to.tabOrder);
  ReadIfThere(json, "paperW", to.paperW);
  ReadIfThere(json, "paperH", to.paperH);
  ReadIfThere(json, "marginL", to.marginL);
  ReadIfThere(json, "marginB", to.marginB);
  ReadIfThere(json, "marginR", to.marginR);
  ReadIfThere(json, "marginT", to.marginT);
  ReadIfThere(json, "plotOriginX", to.plotOriginX);
  ReadIfThere(json, "plotOriginY", to.plotOriginY);
  ReadIfThere(json, "paperUnit", to.paperUnit);
  ReadIfThere(json, "rotation", to.rotation);
  ReadIfThere(json, "scaleNum", to.scaleNum);
  ReadIfThere(json, "scaleDen", to.scaleDen);
  ReadIfThere(json, "limMinX", to.limMinX);
  ReadIfThere(json, "limMinY", to.limMinY);
  ReadIfThere(json, "limMaxX", to.limMaxX);
  ReadIfThere(json, "limMaxY", to.limMaxY);
  ReadIfThere(json, "extMinX", to.extMinX);
  ReadIfThere(json, "extMinY", to.extMinY);
  ReadIfThere(json, "extMaxX", to.extMaxX);
  ReadIfThere(json, "extMaxY", to.extMaxY);
  Read(json.at("entities"), to.entities);
}

inline void Read(const Json& json, Document& to) {
  Read(json.at("dwgVersion"), to.dwgVersion);
  Read(json.at("insunits"), to.insunits);
  Read(json.at("layers"), to.layers);
  Read(json.at("assets"), to.assets);
  Read(json.at("entities"), to.entities);
  Read(json.at("layouts"), to.layouts);
  Read(json.at("warnings"), to.warnings);
  Read(json.at("timings"), to.timings);
}

template <typename Item>
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
    valid += length != 0 ? text.substr(0, length) : std::string_view("\xEF\xBF\xBD");
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

}  // namespace dwg_document
// NOLINTEND(readability-identifier-naming)
