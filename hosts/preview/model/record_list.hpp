// Records as places in the document's text, which is kept: a document of a million
// records read as JSON at once takes ten times its size.
#pragma once

#include <QByteArray>
#include <QJsonObject>

#include <optional>
#include <string_view>
#include <vector>

namespace preview {

// A value in the text of a document, in bytes. Documents are smaller than 4 GB.
struct RecordSpan {
  quint32 begin = 0;
  quint32 size = 0;
};

class RecordList {
 public:
  RecordList() = default;
  RecordList(QByteArray document, std::vector<RecordSpan> spans)
      : document_(std::move(document)), spans_(std::move(spans)) {}

  std::size_t size() const { return spans_.size(); }
  void Add(RecordSpan span) { spans_.push_back(span); }
  void Reserve(std::size_t records) { spans_.reserve(records); }
  RecordSpan SpanAt(std::size_t index) const { return spans_[index]; }
  std::string_view TextAt(std::size_t index) const;
  // Empty for a value that is no object.
  QJsonObject operator[](std::size_t index) const;
  // Of all its records, with what stands between them.
  std::string_view Text() const;

 private:
  QByteArray document_;
  std::vector<RecordSpan> spans_;
};

// The object that is written at a place of a document; empty for another value.
QJsonObject ParseRecord(const QByteArray& document, RecordSpan span);

struct ScannedDocument {
  // The document with every list of records empty.
  QByteArray rest;
  std::vector<RecordSpan> entities;
  // Of each block, and of each sheet, in their order.
  std::vector<std::vector<RecordSpan>> assets;
  std::vector<std::vector<RecordSpan>> layouts;
};

// Finds the records, in one pass; nothing for a text whose brackets or quotes do not
// match. Of what stands within a record nothing else is checked.
std::optional<ScannedDocument> ScanDocument(std::string_view document);

}  // namespace preview
