#include "model/record_list.hpp"

#include <QJsonDocument>

#include <array>

namespace preview {
namespace {

// What a byte means to a reader that looks for the end of a value.
enum class Mark : unsigned char { kNone, kOpen, kClose, kQuote };

constexpr std::array<Mark, 256> MarksOfBytes() {
  std::array<Mark, 256> marks{};
  marks['{'] = marks['['] = Mark::kOpen;
  marks['}'] = marks[']'] = Mark::kClose;
  marks['"'] = Mark::kQuote;
  return marks;
}
constexpr std::array<Mark, 256> kMarks = MarksOfBytes();

bool IsSpace(char c) {
  return c == ' ' || c == '\n' || c == '\r' || c == '\t';
}

class Scanner {
 public:
  explicit Scanner(std::string_view text) : text_(text) {}

  std::optional<ScannedDocument> Scan() {
    const bool isWhole = Members([this](std::string_view key) { return Section(key); });
    SkipSpace();
    if (!isWhole || at_ != text_.size()) {
      return std::nullopt;
    }
    Copy(text_.size());
    return std::move(found_);
  }

 private:
  bool Section(std::string_view key) {
    if (key == "entities") {
      return Records(found_.entities);
    }
    if (key == "assets") {
      return Owners(found_.assets);
    }
    return key == "layouts" ? Owners(found_.layouts) : Value();
  }

  // A list of objects that have records.
  bool Owners(std::vector<std::vector<RecordSpan>>& lists) {
    return Items([this, &lists] {
      lists.emplace_back();
      return Members([this, &list = lists.back()](std::string_view key) {
        return key == "entities" ? Records(list) : Value();
      });
    });
  }

  // The records themselves have no part in the rest.
  bool Records(std::vector<RecordSpan>& spans) {
    if (!IsNext('[')) {
      return Value();
    }
    Copy(at_ + 1);
    const bool isWhole = Items([this, &spans] {
      const std::size_t begin = at_;
      if (!Value() || at_ == begin) {
        return false;
      }
      spans.push_back({static_cast<quint32>(begin), static_cast<quint32>(at_ - begin)});
      return true;
    });
    copied_ = isWhole ? at_ - 1 : copied_;
    return isWhole;
  }

  // An object, member by member; any other value is passed over.
  template <typename Member>
  bool Members(Member member) {
    if (!IsNext('{')) {
      return Value();
    }
    return List('}', [this, &member] {
      const std::size_t begin = at_;
      if (!IsNext('"') || !String()) {
        return false;
      }
      const std::string_view key = text_.substr(begin + 1, at_ - begin - 2);
      if (!IsNext(':')) {
        return false;
      }
      ++at_;
      SkipSpace();
      return member(key);
    });
  }

  template <typename Item>
  bool Items(Item item) {
    return IsNext('[') ? List(']', item) : Value();
  }

  // What stands between brackets, parted by commas.
  template <typename Item>
  bool List(char close, Item item) {
    ++at_;
    if (IsNext(close)) {
      ++at_;
      return true;
    }
    while (true) {
      SkipSpace();
      if (!item()) {
        return false;
      }
      if (IsNext(close)) {
        ++at_;
        return true;
      }
      if (!IsNext(',')) {
        return false;
      }
      ++at_;
    }
  }

  // Past a value of any kind.
  bool Value() {
    std::size_t depth = 0;
    while (at_ < text_.size()) {
      switch (kMarks[static_cast<unsigned char>(text_[at_])]) {
        case Mark::kOpen: ++depth; break;
        case Mark::kClose:
          if (depth == 0) {
            return true;
          }
          if (--depth == 0) {
            ++at_;
            return true;
          }
          break;
        case Mark::kQuote:
          if (!String()) {
            return false;
          }
          if (depth == 0) {
            return true;
          }
          continue;
        case Mark::kNone:
          if (depth == 0 && text_[at_] == ',') {
            return true;
          }
          break;
      }
      ++at_;
    }
    return depth == 0;
  }

  // Past a string, from its first quote.
  bool String() {
    for (++at_; at_ < text_.size(); ++at_) {
      if (text_[at_] == '\\') {
        ++at_;
      } else if (text_[at_] == '"') {
        ++at_;
        return true;
      }
    }
    return false;
  }

  void SkipSpace() {
    while (at_ < text_.size() && IsSpace(text_[at_])) {
      ++at_;
    }
  }

  bool IsNext(char wanted) {
    SkipSpace();
    return at_ < text_.size() && text_[at_] == wanted;
  }

  // To the rest, up to a place.
  void Copy(std::size_t end) {
    const std::string_view part = text_.substr(copied_, end - copied_);
    found_.rest.append(part.data(), static_cast<qsizetype>(part.size()));
    copied_ = end;
  }

  std::string_view text_;
  std::size_t at_ = 0;
  std::size_t copied_ = 0;
  ScannedDocument found_;
};

}  // namespace

std::string_view RecordList::TextAt(std::size_t index) const {
  return std::string_view(document_.constData(), static_cast<std::size_t>(document_.size()))
      .substr(spans_[index].begin, spans_[index].size);
}

QJsonObject RecordList::operator[](std::size_t index) const {
  return ParseRecord(document_, spans_[index]);
}

std::string_view RecordList::Text() const {
  if (spans_.empty()) {
    return {};
  }
  const std::size_t begin = spans_.front().begin;
  return std::string_view(document_.constData(), static_cast<std::size_t>(document_.size()))
      .substr(begin, spans_.back().begin + spans_.back().size - begin);
}

QJsonObject ParseRecord(const QByteArray& document, RecordSpan span) {
  return QJsonDocument::fromJson(
             QByteArray::fromRawData(document.constData() + span.begin, span.size))
      .object();
}

std::optional<ScannedDocument> ScanDocument(std::string_view document) {
  return Scanner(document).Scan();
}

}  // namespace preview
