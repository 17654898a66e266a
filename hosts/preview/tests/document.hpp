// Short ways to write documents and records in tests.
#pragma once

#include <QJsonDocument>
#include <QJsonObject>

#include "model/drawing.hpp"
#include "scene/scene_builder.hpp"

namespace preview {

inline QJsonObject Json(const char* text) {
  return QJsonDocument::fromJson(QByteArray(text).replace('\'', '"')).object();
}

// Of a document with these sections, each a list of records without brackets.
inline Drawing DrawingOf(const char* entities, const char* assets = "", const char* layers = "",
                         const char* layouts = "") {
  QByteArray line("{'dwgVersion':'2018','insunits':4,'layers':[");
  line.append(layers).append("],'assets':[").append(assets);
  line.append("],'entities':[").append(entities);
  line.append("],'layouts':[").append(layouts).append("],'warnings':['one']}");
  QString problem;
  return ReadDocument(line.replace('\'', '"'), problem).value();
}

inline Scene SceneOf(const char* entities, const char* assets = "", const char* layers = "",
                     const char* layouts = "") {
  return BuildScene(DrawingOf(entities, assets, layers, layouts), QDir());
}

inline constexpr char kLayers[] =
    "{'name':'0','visible':true,'color':{'r':0,'g':0,'b':0},'lw':'L'},"
    "{'name':'Red','visible':true,'color':{'r':255,'g':0,'b':0},'lw':50},"
    "{'name':'Off','visible':false,'color':{'r':128,'g':128,'b':128},'lw':'L'}";

}  // namespace preview
