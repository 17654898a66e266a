// Drawing strings to UTF-8. LibreDWG hands strings over as the drawing stores
// them: 16-bit units from release 2007 on, 8-bit bytes in older drawings and
// in DXF files.
//
// 8-bit text is read as Windows-1252 whatever code page the drawing names:
// consumers depend on it. Formatting codes are left alone.
#pragma once

#include <string>
#include <string_view>
#include <utility>

// Whether 8-bit strings of this run's drawing are UTF-8 already and are copied
// unchanged (DXF files from 2007 on). Process-wide, because the decoder of
// single strings knows no drawing; set once after the drawing is read.
void SetEightBitIsUtf8(bool value);
bool EightBitIsUtf8();

// One Windows-1252 byte as UTF-8, whatever the switch above says.
std::string DecodeWindows1252Byte(unsigned char byte);

// A text in UTF-8: a view of the drawing's own bytes where these need no
// decoding, else a text of its own.
class DecodedText {
 public:
  explicit DecodedText(std::string_view borrowed) : view_(borrowed) {}
  explicit DecodedText(std::string&& owned) : owned_(std::move(owned)), view_(owned_) {}
  DecodedText(const DecodedText&) = delete;
  DecodedText& operator=(const DecodedText&) = delete;

  std::string_view view() const { return view_; }
  // It is one, whatever it had to do for that.
  // NOLINTNEXTLINE(google-explicit-constructor)
  operator std::string_view() const { return view_; }

 private:
  std::string owned_;
  std::string_view view_;
};

// 8-bit text up to its NUL; null gives an empty text. Windows-1252's five
// unassigned bytes become the code points of the same value.
std::string DecodeCodePageText(const char* text);

// 16-bit text up to its zero unit; null gives an empty text. A surrogate
// without its partner becomes U+FFFD. `text` needs no alignment.
std::string DecodeUtf16Text(const void* text);

// `text` by the kind of the drawing's strings: UTF-16 when `unicodeText` is
// set. LibreDWG types both kinds as `char*`.
std::string DecodeText(bool unicodeText, const char* text);

// The same for as long as the drawing lives.
DecodedText ViewText(bool unicodeText, const char* text);
