// Drawing strings to UTF-8. LibreDWG hands strings over as the drawing stores
// them: 16-bit units from release 2007 on, 8-bit bytes in older drawings and
// in DXF files. Which of them it is travels with the drawing.
//
// 8-bit text is read as Windows-1252 whatever code page the drawing names:
// consumers depend on it. Formatting codes are left alone.
#pragma once

#include <string>
#include <string_view>
#include <utility>

// How a drawing's strings are stored.
enum class TextForm {
  kWindows1252,  // 8-bit, of a DWG or a DXF file before release 2007
  kUtf8,         // 8-bit, of a DXF file from 2007 on
  kUtf16,        // 16-bit, of a DWG from 2007 on
};

// What reading tells of a drawing's strings beyond their form, for those who read them
// by it.
struct StoredText {
  std::string codePage;        // as the drawing names it; empty when it names none
  bool isUtf8 = false;         // all of a DXF file, and it has more than ASCII
  bool hasLongUtf8 = false;    // with characters of three bytes or more
  bool hasCaretCodes = false;  // ^J and ^M stand for line feeds and carriage returns
};

// One Windows-1252 byte as UTF-8.
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

  // The text, for whoever keeps it; this is empty afterwards.
  std::string Take() {
    return owned_.data() == view_.data() ? std::move(owned_) : std::string(view_);
  }

  // It is one, whatever it had to do for that.
  // NOLINTNEXTLINE(google-explicit-constructor)
  operator std::string_view() const { return view_; }

 private:
  std::string owned_;
  std::string_view view_;
};

// `text` up to its NUL or zero unit; null gives an empty text. LibreDWG types
// both kinds as `char*`; neither needs an alignment. The result is good for as
// long as the drawing lives.
//
// Windows-1252's five unassigned bytes become the code points of the same value,
// a surrogate without its partner becomes U+FFFD, and UTF-8 is copied as it is.
DecodedText DecodeText(TextForm form, const char* text);

// A way to read a drawing's strings other than by their form alone.
class TextDecoder {
 public:
  TextDecoder() = default;
  virtual ~TextDecoder() = default;
  TextDecoder(const TextDecoder&) = delete;
  TextDecoder& operator=(const TextDecoder&) = delete;

  // As DecodeText.
  virtual DecodedText Decode(const char* text) const = 0;

  // A decoded multi-line text with what the codes of single-line text stand for in it;
  // `room` holds it where there are any.
  virtual std::string_view Shown(std::string_view text, std::string& room) const = 0;
};
