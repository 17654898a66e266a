// Small DXF files, and a fixture that reads them through LibreDWG alone.
#pragma once

#include <dwg_dxf_skipped.h>
#include <dxf_from_memory.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "entities/drawing_access.hpp"
#include "reading/dxf_losses.hpp"

inline std::string Section(const std::string& name, const std::string& content) {
  return "0\nSECTION\n2\n" + name + "\n" + content + "0\nENDSEC\n";
}

inline std::string Header(const std::string& release) {
  return Section("HEADER", "9\n$ACADVER\n1\n" + release + "\n");
}

inline std::string Entities(const std::string& content) {
  return Section("ENTITIES", content);
}

inline std::string Drawing(const std::string& entities, const std::string& release = "AC1015") {
  return Header(release) + Entities(entities) + "0\nEOF\n";
}

inline std::string Line(const std::string& properties = "") {
  return "0\nLINE\n100\nAcDbEntity\n8\n0\n" + properties +
         "100\nAcDbLine\n10\n1.0\n20\n2.0\n30\n0.0\n11\n3.0\n21\n4.0\n31\n0.0\n";
}

inline std::string Class(const std::string& name, const std::string& cppName) {
  return Section("CLASSES", "0\nCLASS\n1\n" + name + "\n2\n" + cppName +
                                "\n3\nObjectDBX Classes\n90\n1025\n280\n0\n281\n1\n");
}

inline std::string BlockRecords(const std::vector<std::pair<std::string, std::string>>& records) {
  std::string text = "0\nTABLE\n2\nBLOCK_RECORD\n5\n1\n70\n2\n";
  for (const auto& [handle, name] : records) {
    text += "0\nBLOCK_RECORD\n5\n";
    text += handle;
    text += "\n100\nAcDbSymbolTableRecord\n100\nAcDbBlockTableRecord\n2\n";
    text += name;
    text += "\n";
  }
  return text + "0\nENDTAB\n";
}

// Reads through the library alone, without what we do to a file before it.
class DxfReaderTest : public testing::Test {
 protected:
  ~DxfReaderTest() override { dwg_free(&dwg_); }

  int ResultOf(const std::string& text) {
    ReadNeededObjectsOnly();
    return ReadWanted(text);
  }

  // The objects that no document holds, too.
  void ReadAll(const std::string& text) {
    ReadAllObjects();
    EXPECT_EQ(ReadWanted(text), 0);
  }

  void Read(const std::string& text) { EXPECT_EQ(ResultOf(text), 0); }

  std::vector<const Dwg_Object*> OfType(DWG_OBJECT_TYPE type) {
    std::vector<const Dwg_Object*> found;
    for (const Dwg_Object& object : Objects(dwg_)) {
      if (object.fixedtype == type) {
        found.push_back(&object);
      }
    }
    return found;
  }

  template <typename T>
  const T& Only(DWG_OBJECT_TYPE type, T* EntityTio::*member) {
    static const T kNone = {};
    const auto found = OfType(type);
    EXPECT_EQ(found.size(), 1U);
    const T* data = found.empty() ? nullptr : EntityData(*found[0], member);
    return data == nullptr ? kNone : *data;
  }

  // The name of the only block that has that handle.
  std::string BlockName(Handle handle) {
    std::string name;
    for (const Dwg_Object* object : OfType(DWG_TYPE_BLOCK_HEADER)) {
      if (object->handle.value == handle) {
        EXPECT_TRUE(name.empty());
        const auto* block = ObjectData(*object, &ObjectTio::BLOCK_HEADER);
        name = block == nullptr || block->name == nullptr ? "(none)" : block->name;
      }
    }
    return name;
  }

  const Dwg_Color& ColorOfLine() { return OfType(DWG_TYPE_LINE).at(0)->tio.entity->color; }

  Dwg_Data dwg_ = {};
  std::unique_ptr<DxfLosses> losses_;

 private:
  int ReadWanted(const std::string& text) {
    dwg_free(&dwg_);
    dwg_ = {};
    dwg_.header.version = R_10;
    losses_.reset();
    losses_ = std::make_unique<DxfLosses>();
    return dxf_read_memory(text.data(), text.size(), 0, &dwg_);
  }
};
