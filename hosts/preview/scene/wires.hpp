// What is seen of faces, meshes, solids, multilines and other programs' entities:
// lines from above, and a few areas.
#pragma once

#include <QJsonObject>
#include <QJsonValue>

#include <functional>
#include <vector>

#include "scene/scene.hpp"

namespace preview {

// Resolves a value like `color` of a record.
using InkOfValue = std::function<Ink(const QJsonValue&)>;

// 3DFACE: its edges but for those that are not drawn.
std::vector<Part> FaceParts(const QJsonObject& record);

// POLYLINE_MESH, POLYLINE_PFACE and MESH, whose points are those before subdivision.
std::vector<Part> MeshParts(const QJsonObject& record, const InkOfValue& inkOf);

// The wires of solids, regions, bodies and surfaces.
std::vector<Part> WireParts(const QJsonObject& record);

// MLINE: the elements' lines, the area between them, caps and miters.
std::vector<Part> MultilineParts(const QJsonObject& record, const InkOfValue& inkOf);

// The stored graphics of proxies, in their order.
std::vector<Part> ProxyParts(const QJsonObject& record, const InkOfValue& inkOf);

}  // namespace preview
