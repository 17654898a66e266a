// Records that are read without JSON look as those that are read as JSON, which a key
// that nobody knows brings about.
#include "scene/plain_records.hpp"

#include <gtest/gtest.h>

#include "document.hpp"

namespace preview {
namespace {

constexpr char kBlock[] =
    "{'name':'B','baseX':1,'baseY':2,'entities':[{'type':'LINE','layer':'0','startX':1,'startY':2,"
    "'endX':3,'endY':4,'color':'K','lw':'K'},{'type':'ARC','layer':'Red','cx':1,'cy':2,'radius':3,"
    "'startAngleRad':1,'endAngleRad':4,'color':'L','lw':'L'}]}";

const char* const kRecords[] = {
    "{'type':'LINE','layer':'Red','startX':1,'startY':2,'endX':-3.5e1,'endY':4,'color':'L',"
    "'lw':'L','handle':'1F'}",
    "{'type':'LINE','layer':'none','startX':1,'startY':2,'endX':3,'endY':4,'color':{'r':1,'g':2,"
    "'b':3},'lw':50,'invisible':true,'linetypeScale':2.5}",
    "{'type':'LINE','layer':'Red','startX':1,'startY':2,'endX':1,'endY':2,'color':'L','lw':'L'}",
    "{'type':'LWPOLYLINE','layer':'Red','closed':false,'points':[[0,0],[5,0,7],[5,5]],"
    "'bulges':[0,0,0],'color':'W','lw':'L','linetypeGeneration':true}",
    "{'type':'LWPOLYLINE','layer':'Red','closed':true,'points':[[0,0],[5,0],[5,5]],"
    "'bulges':[0,0,0],'color':'L','lw':'K'}",
    "{'type':'LWPOLYLINE','layer':'Red','closed':true,'points':[[0,0],[5,0],[5,5]],"
    "'bulges':[0,0.5,0],'color':'L','lw':'K'}",
    "{'type':'LWPOLYLINE','layer':'Red','closed':true,'points':[[0,0]],'color':'L','lw':'K'}",
    "{'type':'LWPOLYLINE','layer':'Red','closed':false,'points':[],'color':'L','lw':'K'}",
    "{'type':'CIRCLE','layer':'Red','cx':3,'cy':-4,'radius':2,'color':'K','lw':'L'}",
    "{'type':'ARC','layer':'Off','cx':3,'cy':-4,'radius':2,'startAngleRad':5,'endAngleRad':1,"
    "'color':'L','lw':'L'}",
    "{'type':'INSERT','layer':'Red','blockName':'B','x':10,'y':20,'rotationRad':1,'scaleX':2,"
    "'scaleY':-3,'color':{'r':9,'g':8,'b':7},'lw':35}",
    "{'type':'TEXT','layer':'Red','html':'<p>one</p>','x':1,'y':2,'height':3,'rotationRad':0.5,"
    "'color':'L','lw':'L','widthFactor':0.5}",
    "{'type':'MTEXT','layer':'Red','html':'<p>one</p><p>two words</p>','x':1,'y':2,'height':3,"
    "'rotationRad':0,'width':9,'attachment':5,'color':'L','lw':'L'}"};

Scene SceneOfRecord(const QByteArray& record) {
  const BuildLimits none{.letters = 0, .records = 0};
  return BuildScene(DrawingOf(record.constData(), kBlock, kLayers), QDir(), none);
}

void ExpectSameBox(const QRectF& a, const QRectF& b) {
  EXPECT_NEAR(a.left(), b.left(), 1e-3);
  EXPECT_NEAR(a.top(), b.top(), 1e-3);
  EXPECT_NEAR(a.right(), b.right(), 1e-3);
  EXPECT_NEAR(a.bottom(), b.bottom(), 1e-3);
}

void ExpectSamePaths(const Item& a, const Item& b) {
  const PartList first(*a.shape);
  const PartList second(*b.shape);
  ASSERT_EQ(first.size(), second.size());
  for (std::size_t i = 0; i < first.size(); ++i) {
    const QPainterPath& path = first.begin()[i].path;
    const QPainterPath& other = second.begin()[i].path;
    EXPECT_EQ(first.begin()[i].fill, second.begin()[i].fill);
    ASSERT_EQ(path.elementCount(), other.elementCount());
    for (int k = 0; k < path.elementCount(); ++k) {
      EXPECT_NEAR(path.elementAt(k).x, other.elementAt(k).x, 1e-6);
      EXPECT_NEAR(path.elementAt(k).y, other.elementAt(k).y, 1e-6);
    }
  }
}

TEST(PlainRecords, LookAsThoseThatAreReadAsJson) {
  for (const char* record : kRecords) {
    SCOPED_TRACE(record);
    const Scene plain = SceneOfRecord(record);
    const Scene json = SceneOfRecord(QByteArray(record).replace("{'type'", "{'new':[],'type'"));
    const std::vector<Item>& items = plain.sheets[0].items;
    const std::vector<Item>& others = json.sheets[0].items;
    ASSERT_EQ(items.size(), others.size());
    ExpectSameBox(plain.sheets[0].extents, json.sheets[0].extents);
    for (std::size_t i = 0; i < items.size(); ++i) {
      EXPECT_EQ(items[i].ink, others[i].ink);
      EXPECT_EQ(items[i].lineweight, others[i].lineweight);
      EXPECT_EQ(items[i].layer, others[i].layer);
      EXPECT_EQ(items[i].hidden, others[i].hidden);
      EXPECT_EQ(items[i].dashScale, others[i].dashScale);
      EXPECT_EQ(items[i].shape->restartsDashes, others[i].shape->restartsDashes);
      EXPECT_EQ(items[i].shape->lateHeight, others[i].shape->lateHeight);
      ExpectSameBox(items[i].bounds, others[i].bounds);
      ExpectSamePaths(items[i], others[i]);
    }
  }
}

class Reading : public testing::Test {
 protected:
  std::optional<PlainRecord> Read(QByteArray record) {
    record.replace('\'', '"');
    return reader_.Read({record.constData(), static_cast<std::size_t>(record.size())}, true);
  }

  Drawing drawing_ = DrawingOf("", "", kLayers);
  LayerTable layers_{drawing_.layers};
  QHash<QString, int> patterns_;
  PlainReader reader_{drawing_, layers_, patterns_, 1};
};

TEST_F(Reading, TakesWhatIsPlain) {
  const auto line = Read(kRecords[0]);
  ASSERT_TRUE(line);
  EXPECT_EQ(line->shape->polyline, QPolygonF(QList<QPointF>{{1, 2}, {-35, 4}}));
  EXPECT_TRUE(Read(kRecords[3]) && Read(kRecords[8]) && Read(kRecords[9]) && Read(kRecords[10]));
}

TEST_F(Reading, LeavesTheOthersToJson) {
  for (const char* record :
       {"", "{", "{}", "[]", "{'type':'LINE'", "{'type':'LINE',}", "{'type'}", "{'type':}",
        "{'type':'LINE','endX':1,'extrusion':[0,0,-1]}", "{'type':'LINE','endX':1e999}",
        "{'type':'CIRCLE','radius':0}", "{'type':'LWPOLYLINE','points':[[1,2],[3,x]]}",
        "{'type':'LWPOLYLINE','points':[[1,2]]]]}", "{'type':'LWPOLYLINE','points':1,2}",
        "{'type':'LINE','layer':'a\\u0041','endX':1}", "{'type':'INSERT','blockName':''}",
        "{'type':'TEXT','height':-1,'html':''}", "{'type':'SOLID'}"}) {
    EXPECT_FALSE(Read(record)) << record;
  }
}

}  // namespace
}  // namespace preview
