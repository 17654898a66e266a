#include "reading/dxf/dxf_table_settling.hpp"

#include <gtest/gtest.h>

#include "encode/library_memory.hpp"
#include "tests/support/memory_drawing.hpp"

namespace {

constexpr const char* kText =
    "0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nLAYER\n"
    "0\nLAYER\n2\nbare\n70\n0\n"
    "0\nLAYER\n2\nfull\n290\n0\n370\n25\n"
    "0\nLAYER\n2\nattached\n1001\nACAD\n290\n0\n"
    "0\nENDTAB\n0\nTABLE\n2\nBLOCK_RECORD\n"
    "0\nBLOCK_RECORD\n2\nB\n70\n4\n1001\nACAD\n1070\n1\n"
    "0\nENDTAB\n0\nENDSEC\n"
    "0\nSECTION\n2\nBLOCKS\n"
    "0\nBLOCK\n2\nB\n70\n0\n10\n1\n20\n2\n30\n3\n4\na block\n"
    "0\nTEXT\n2\nB\n30\n9\n0\nENDBLK\n0\nENDSEC\n"
    "0\nSECTION\n2\nENTITIES\n0\nLAYER\n2\nbare\n290\n0\n370\n0\n0\nENDSEC\n0\nEOF\n";

class DxfTableSettling : public testing::Test {
 protected:
  Dwg_Object_LAYER& AddLayer(const char* name) {
    auto& layer = drawing_.AddObject(DWG_TYPE_LAYER, &ObjectTio::LAYER);
    layer.name = drawing_.Text(name);
    return layer;
  }

  MemoryDrawing drawing_{16};
};

}  // namespace

TEST_F(DxfTableSettling, LayersGetTheirDefaults) {
  const auto& bare = AddLayer("bare");
  auto& full = AddLayer("full");
  full.linewt = 7;
  const auto& attached = AddLayer("attached");
  drawing_.AddObject(DWG_TYPE_LAYER, &ObjectTio::LAYER);
  SettleDxfTables(drawing_.data(), kText);
  EXPECT_EQ(bare.plotflag, 1);
  EXPECT_EQ(bare.linewt, 31);
  EXPECT_EQ(full.plotflag, 0);
  EXPECT_EQ(full.linewt, 7);
  EXPECT_EQ(attached.plotflag, 1);
}

TEST_F(DxfTableSettling, BlocksGetWhatTheReaderPassesOver) {
  auto& block = drawing_.AddObject(DWG_TYPE_BLOCK_HEADER, &ObjectTio::BLOCK_HEADER);
  block.name = drawing_.Text("B");
  SettleDxfTables(drawing_.data(), kText);
  EXPECT_EQ(block.insert_units, 4);
  EXPECT_EQ(block.base_pt.z, 3);
  EXPECT_STREQ(block.description, "a block");
  LibraryFree(block.description);
}
