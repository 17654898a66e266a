#include "text/paragraph_format.hpp"

#include "encode/numbers.hpp"
#include "text/fields.hpp"

namespace {

constexpr bool IsContinuationByte(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

// The first character of `text`, however many bytes it has.
std::string_view FirstCharacter(std::string_view text) {
  std::size_t length = 1;
  while (length < text.size() && IsContinuationByte(text[length])) {
    ++length;
  }
  return text.substr(0, length);
}

// Reads the fields of a paragraph code into a block.
class ParagraphFields {
 public:
  explicit ParagraphFields(ParagraphBlock& block) : block_(block) {}

  void Read(std::string_view field) {
    if (inTabStops_ && StartsNumber(field)) {
      AddTabStop(field);
      return;
    }
    inTabStops_ = false;
    if (field.size() < 2) {
      return;
    }
    const std::string_view rest = field.substr(1);
    switch (field.front()) {
      case 'i': SetLength(block_.textIndent, rest); break;
      case 'l': SetLength(block_.leftMargin, rest); break;
      case 'r': SetLength(block_.rightMargin, rest); break;
      case 'q': block_.alignment = FirstCharacter(rest); break;
      case 't':
        AddTabStop(rest);
        inTabStops_ = true;
        break;
      default: break;
    }
  }

 private:
  static bool StartsNumber(std::string_view field) {
    return !field.empty() &&
           (field.front() == '.' || (field.front() >= '0' && field.front() <= '9'));
  }

  static void SetLength(double& length, std::string_view text) {
    if (const auto value = ParseDouble(text)) {
      length = *value;
    }
  }

  void AddTabStop(std::string_view text) {
    if (const auto value = ParseDouble(text)) {
      block_.tabStops.push_back(*value);
    }
  }

  ParagraphBlock& block_;
  bool inTabStops_ = false;
};

}  // namespace

ParagraphBlock ParseParagraphFormat(std::string_view argument) {
  ParagraphBlock block;
  ParagraphFields fields(block);
  ForEachField(argument, ',', [&fields](std::string_view field) { fields.Read(field); });
  return block;
}

bool SaysSomething(const ParagraphBlock& block) {
  return !block.alignment.empty() || block.textIndent != 0 || block.leftMargin != 0 ||
         block.rightMargin != 0 || !block.tabStops.empty();
}
