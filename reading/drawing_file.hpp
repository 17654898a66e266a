// Reads a drawing through LibreDWG and holds it. The only caller of the
// library's readers and of dwg_free.
//
// What LibreDWG delivers for a DXF file is put into the form that a DWG has
// before anything else sees it, so that the conversion knows one form only.
#pragma once

#include <dwg.h>

#include <cstddef>
#include <cstdio>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "entities/drawing.hpp"
#include "reading/file_bytes.hpp"

// What is read of a drawing.
enum class ReadingScope {
  kPlainForm,  // what the plain form of the document needs
  kAll,
};

class DrawingFile {
 public:
  // The format goes by the path's extension: DXF when that is ".dxf" in any
  // letter case, else DWG.
  explicit DrawingFile(std::string path, ReadingScope scope = ReadingScope::kPlainForm);
  ~DrawingFile();
  DrawingFile(const DrawingFile&) = delete;
  DrawingFile& operator=(const DrawingFile&) = delete;

  // Opens the file, a DXF with all its bytes. From here on no further file is
  // opened. A file that cannot be opened shows when it is read.
  void Open();

  // Reads the file, which is opened first if that has not been done. Afterwards
  // HasFailed tells whether there is a drawing.
  void Read();

  // Gives the drawing's memory back. Harmless when repeated.
  void Free();

  // Leaves it to the end of the process, which gives it back at once. There is
  // no drawing afterwards.
  void Leave();

  // The release that the opened file names itself, before it is read; empty when
  // it names none, and for standard input.
  std::string StoredRelease() const;

  const std::string& path() const { return path_; }
  bool isDxf() const { return isDxf_; }

  // LibreDWG's result: a set of error bits.
  int result() const { return result_; }

  // Whether the result has a bit that leaves no usable drawing. Several bits
  // that LibreDWG calls critical are not among them: what could be read is
  // converted.
  bool HasFailed() const;

  // What was read; it lives as long as the file object and until Free.
  Drawing drawing() const;

  // What was repaired in a DXF, or could not be read of it, a line a kind.
  const std::vector<std::string>& warnings() const { return warnings_; }

 private:
  struct CloseStream {
    void operator()(std::FILE* stream) const { std::fclose(stream); }
  };

  int ReadDwg();
  int ReadDxf();

  std::string path_;
  bool isDxf_;
  ReadingScope scope_;
  bool isOpened_ = false;
  std::unique_ptr<std::FILE, CloseStream> dwg_;
  std::unique_ptr<FileBytes> dxf_;
  int result_ = 0;
  bool isFreed_ = false;
  std::unique_ptr<Dwg_Data> data_;
  std::vector<std::string> warnings_;
  std::map<std::string, std::size_t> unknownEntities_;
  StoredText storedText_;
  DxfHeader dxfHeader_;
};
