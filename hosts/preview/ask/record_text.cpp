#include "ask/record_text.hpp"

#include <QHash>
#include <QJsonArray>
#include <QStringList>

#include <algorithm>

#include "model/record.hpp"
#include "scene/dimension.hpp"

namespace preview {
namespace {

// Longer than any character reference.
constexpr qsizetype kLongestReference = 10;

// Null for a name that is none.
QString CharacterNamed(QStringView name) {
  static const QHash<QString, QString> names = {{"lt", "<"},    {"gt", ">"},   {"amp", "&"},
                                                {"quot", "\""}, {"apos", "'"}, {"nbsp", " "}};
  if (!name.startsWith('#')) {
    return names.value(name.toString());
  }
  const bool isHex = name.size() > 1 && name[1].toLower() == 'x';
  bool isNumber = false;
  const uint code = name.mid(isHex ? 2 : 1).toUInt(&isNumber, isHex ? 16 : 10);
  if (!isNumber || code == 0 || code > QChar::LastValidCodePoint || QChar::isSurrogate(code)) {
    return "";
  }
  const char32_t character = code;
  return QString::fromUcs4(&character, 1);
}

bool EndsLine(QStringView tag) {
  return tag == u"/p" || tag == u"br" || tag.startsWith(u"br/") || tag.startsWith(u"br ");
}

// Behind the separator of a stacked text.
QString WithoutStack(const QString& stack) {
  QString plain = stack;
  return plain.replace('^', '/').replace('#', '/');
}

// Whether a code has an argument up to a semicolon.
bool HasArgument(QChar code) {
  return QStringView(u"ACcFfHQTWpS").contains(code);
}

QString TextOfCells(const QJsonObject& table) {
  QStringList texts;
  for (const auto& cell : table["cells"].toArray()) {
    const QString text = PlainTextOfCodes(cell.toObject()["text"].toString());
    if (!text.isEmpty()) {
      texts << text;
    }
  }
  return texts.join('\n');
}

// Of a tolerance's frame: its rows of cells.
QString TextOfRows(const QJsonObject& tolerance) {
  QStringList lines;
  for (const auto& row : tolerance["rows"].toArray()) {
    QStringList cells;
    for (const auto& cell : row.toArray()) {
      cells << cell.toString();
    }
    lines << cells.join(' ');
  }
  return lines.join('\n');
}

QString TextOfDimension(const QJsonObject& dimension) {
  return dimension.contains("html") ? PlainTextOfHtml(dimension["html"].toString())
                                    : DimensionText(dimension);
}

QString TextOfAttribute(const QJsonObject& record) {
  QStringList texts{PlainTextOfHtml(record["html"].toString()), record["tag"].toString()};
  texts.removeAll(QString());
  texts.removeDuplicates();
  return texts.join('\n');
}

}  // namespace

QString PlainTextOfHtml(const QString& html) {
  QString plain;
  for (qsizetype i = 0; i < html.size(); ++i) {
    const qsizetype tagEnd = html[i] == '<' ? html.indexOf('>', i) : -1;
    if (tagEnd > 0) {
      if (EndsLine(QStringView(html).mid(i + 1, tagEnd - i - 1))) {
        plain += '\n';
      }
      i = tagEnd;
      continue;
    }
    const qsizetype nameEnd = html[i] == '&' ? html.indexOf(';', i) : -1;
    const bool isReference = nameEnd > 0 && nameEnd - i <= kLongestReference;
    const QString character =
        isReference ? CharacterNamed(QStringView(html).mid(i + 1, nameEnd - i - 1)) : QString();
    plain += character.isNull() ? QString(html[i]) : character;
    i = character.isNull() ? i : nameEnd;
  }
  return plain.trimmed();
}

QString PlainTextOfCodes(const QString& text) {
  QString plain;
  for (qsizetype i = 0; i < text.size(); ++i) {
    if (text[i] == '{' || text[i] == '}') {
      continue;
    }
    if (text[i] != '\\' || i + 1 == text.size()) {
      plain += text[i];
      continue;
    }
    const QChar code = text[++i];
    const qsizetype end = HasArgument(code) ? text.indexOf(';', i) : -1;
    if (code == 'P') {
      plain += '\n';
    } else if (code == '~') {
      plain += ' ';
    } else if (code == '\\' || code == '{' || code == '}') {
      plain += code;
    } else if (end > 0) {
      plain += code == 'S' ? WithoutStack(text.mid(i + 1, end - i - 1)) : QString();
      i = end;
    }
  }
  return plain.trimmed();
}

bool MayHaveText(std::string_view record) {
  constexpr std::string_view kMarks[] = {"\"html\"",  "\"text\"", "\"tag\"",
                                         "\"cells\"", "\"rows\"", "DIMENSION"};
  return std::any_of(std::begin(kMarks), std::end(kMarks), [record](std::string_view mark) {
    return record.find(mark) != std::string_view::npos;
  });
}

QString TextOfRecord(const QJsonObject& record) {
  const QString type = record["type"].toString();
  if (type == "DYNTEXT") {
    return TextOfAttribute(record);
  }
  if (type.contains("DIMENSION")) {
    return TextOfDimension(record);
  }
  if (type == "MULTILEADER") {
    return PlainTextOfHtml(record["text"].toObject()["html"].toString());
  }
  if (type == "ACAD_TABLE") {
    return TextOfCells(record);
  }
  if (type == "TOLERANCE") {
    return TextOfRows(record);
  }
  return record.contains("html") ? PlainTextOfHtml(record["html"].toString())
                                 : record["text"].toString();
}

}  // namespace preview
