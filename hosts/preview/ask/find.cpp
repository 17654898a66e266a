#include "ask/find.hpp"

#include <QStringList>

#include <optional>

namespace preview {
namespace {

QString LineWith(const QString& text, const QString& wanted, Qt::CaseSensitivity cases) {
  for (const QString& line : text.split('\n')) {
    if (line.contains(wanted, cases)) {
      return line.trimmed();
    }
  }
  return text.simplified();
}

// The lines of all records; a null text where the record does not match.
std::vector<QString> MatchingLines(SceneIndex& index, const QString& wanted,
                                   Qt::CaseSensitivity cases) {
  std::vector<QString> lines(index.texts().size());
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const QString& text = index.texts()[i];
    // Words may be parted by the end of a line.
    if (text.contains(wanted, cases) || text.simplified().contains(wanted, cases)) {
      lines[i] = LineWith(text, wanted, cases);
    }
  }
  return lines;
}

}  // namespace

FindResult FindText(SceneIndex& index, const QString& text, Qt::CaseSensitivity cases,
                    std::size_t limit) {
  FindResult result;
  const QString wanted = text.simplified();
  if (wanted.isEmpty()) {
    return result;
  }
  const std::vector<QString> lines = MatchingLines(index, wanted, cases);
  const std::vector<Sheet>& sheets = index.scene().sheets;
  for (std::size_t s = 0; s < sheets.size(); ++s) {
    const Item* last = nullptr;
    for (std::size_t i = 0; i < sheets[s].items.size(); ++i) {
      const Item& item = sheets[s].items[i];
      const bool isSame = last != nullptr && last->record == item.record && last->use == item.use;
      if (item.record < 0 || isSame || lines[static_cast<std::size_t>(item.record)].isNull()) {
        continue;
      }
      if (result.found.size() == limit) {
        result.isCut = true;
        return result;
      }
      last = &item;
      result.found.push_back({{s, i, -1}, lines[static_cast<std::size_t>(item.record)]});
    }
  }
  return result;
}

}  // namespace preview
