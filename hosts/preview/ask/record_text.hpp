// What records say, as plain text: to find it, and to show it in a list.
#pragma once

#include <QJsonObject>
#include <QString>

#include <string_view>

namespace preview {

// A fragment without its tags, one line for each paragraph and line break.
QString PlainTextOfHtml(const QString& html);

// A text without the codes of multi-line text; "\P" ends a line.
QString PlainTextOfCodes(const QString& text);

// The text of a record: of single-line and multi-line texts, attributes with their tags,
// dimensions as they show it, the cells of tables, tolerances, multileaders. Empty for
// all other records.
QString TextOfRecord(const QJsonObject& record);

// Whether a record's JSON has a key or a type of those; others need not be read.
bool MayHaveText(std::string_view record);

}  // namespace preview
