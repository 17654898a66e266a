// A drawing's strings as the drawing means them: 8-bit text by its code page, and the
// codes for single characters.
#pragma once

#include <string>
#include <string_view>

#include "complete/code_page.hpp"
#include "encode/text_decoding.hpp"

// How a drawing's 8-bit text came to be read.
struct TextReading {
  std::string_view form;  // the name of the code page, "UTF-8" or "UTF-16"
  std::string_view by;    // "release", "content", "drawing" or "default"
  std::string named;      // the code page as the drawing names it
};

// Text is UTF-8 or UTF-16 where its form says so, UTF-8 where the whole file is that,
// and else of the drawing's code page. A string of a UTF-8 drawing that is no UTF-8
// is read by the code page.
//
// Codes for single characters are replaced by them: \U+XXXX with exactly four
// hexadecimal digits, of which two in a row may make one character, \M+nXXXX, and
// %%nnn from 128 on, of which two in a row may make a character of two bytes. Left as
// they are: codes behind a backslash, that stand for nothing, or for a character that
// text codes give a meaning (a backslash, braces, a percent sign, a caret, and control
// characters).
class DrawingTextDecoder : public TextDecoder {
 public:
  DrawingTextDecoder(TextForm form, const StoredText& stored);

  DecodedText Decode(const char* text) const override;

  // %%c, %%d and %%p are the signs of diameter, degree and tolerance.
  std::string_view Shown(std::string_view text, std::string& room) const override;

  TextReading reading() const;

 private:
  bool IsUtf8() const { return form_ == TextForm::kUtf8 || isUtf8_; }

  TextForm form_;
  CodePage page_;
  std::string named_;
  bool isUtf8_;
  bool hasCaretCodes_;
};
