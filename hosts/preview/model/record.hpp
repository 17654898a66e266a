// Short ways to read the worker's answers and the records of documents. A key
// that is missing, or of another type, reads as 0 or as nothing.
#pragma once

#include <QByteArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLatin1String>
#include <QPointF>
#include <QString>
#include <QUtf8StringView>

namespace preview {

// The text with bytes that are no UTF-8, which Qt's parser refuses, replaced.
inline QByteArray AsUtf8(const QByteArray& text) {
  return QUtf8StringView(text).isValidUtf8() ? text : QString::fromUtf8(text).toUtf8();
}

// A line of the worker as JSON.
inline QJsonDocument ParseLine(const QByteArray& line, QJsonParseError* error = nullptr) {
  return QJsonDocument::fromJson(AsUtf8(line), error);
}

inline bool IsType(const QJsonObject& record, const char* type) {
  return record["type"].toString() == QLatin1String(type);
}

inline double NumberOf(const QJsonObject& record, const char* key) {
  return record[QLatin1String(key)].toDouble();
}

// The point whose coordinates stand under two keys.
inline QPointF PointOf(const QJsonObject& record, const char* x, const char* y) {
  return {NumberOf(record, x), NumberOf(record, y)};
}

}  // namespace preview
