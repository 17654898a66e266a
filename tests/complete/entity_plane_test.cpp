#include "complete/entity_plane.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

void ExpectPoint(const SpacePoint& point, double x, double y, double z) {
  EXPECT_NEAR(point.x, x, 1e-12);
  EXPECT_NEAR(point.y, y, 1e-12);
  EXPECT_NEAR(point.z, z, 1e-12);
}

TEST(EntityPlaneTest, TheZAxisOfAnyLengthIsTheWorldsSystem) {
  EXPECT_TRUE(EntityPlane({0, 0, 1}).IsWorld());
  EXPECT_TRUE(EntityPlane({0, 0, 5}).IsWorld());
  ExpectPoint(EntityPlane({0, 0, 5}).ToWorld(1, 2, 3), 1, 2, 3);
}

TEST(EntityPlaneTest, WhatIsNoDirectionCountsAsTheZAxis) {
  EXPECT_TRUE(EntityPlane({0, 0, 0}).IsWorld());
  EXPECT_TRUE(EntityPlane({std::numeric_limits<double>::quiet_NaN(), 0, 1}).IsWorld());
  EXPECT_TRUE(EntityPlane({0, std::numeric_limits<double>::infinity(), 1}).IsWorld());
}

// Near the z axis the x axis is Y x N: (0,1,0) x (0,0,-1) = (-1,0,0); y is N x X =
// (0,0,-1) x (-1,0,0) = (0,1,0).
TEST(EntityPlaneTest, DownwardMirrorsX) {
  const EntityPlane plane({0, 0, -1});
  EXPECT_FALSE(plane.IsWorld());
  ExpectPoint(plane.ToWorld(2, 3, 4), -2, 3, -4);
}

// Elsewhere it is Z x N: (0,0,1) x (1,0,0) = (0,1,0); y is (1,0,0) x (0,1,0) = (0,0,1).
TEST(EntityPlaneTest, ASidewardNormalTurnsThePlaneUp) {
  ExpectPoint(EntityPlane({1, 0, 0}).ToWorld(2, 3, 4), 4, 2, 3);
}

// The limit is 1/64 for both coordinates of the unit vector.
TEST(EntityPlaneTest, TheArbitraryAxisChangesAtOneSixtyFourth) {
  const double below = 1.0 / 65;
  const EntityPlane near({below, 0, std::sqrt(1 - below * below)});
  EXPECT_GT(near.xAxis().x, 0.99);  // Y x N
  const double above = 1.0 / 63;
  const EntityPlane far({above, 0, std::sqrt(1 - above * above)});
  EXPECT_NEAR(far.xAxis().y, 1, 1e-12);  // Z x N
}

TEST(EntityPlaneTest, LongNormalsAreTakenByTheirDirection) {
  ExpectPoint(EntityPlane({1e300, 0, 0}).ToWorld(2, 3, 4), 4, 2, 3);
  ExpectPoint(EntityPlane({0, 0, -1e-300}).ToWorld(2, 3, 4), -2, 3, -4);
}

}  // namespace
