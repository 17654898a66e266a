#include "encode/fast/exact_math.hpp"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>

#include "encode/fast/portable_math.hpp"

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kPi = 0x1.921fb54442d18p+1;

std::uint64_t Bits(double x) {
  return std::bit_cast<std::uint64_t>(x);
}

#define EXPECT_SAME_BITS(actual, expected) \
  EXPECT_EQ(Bits(actual), Bits(expected)) << std::hexfloat << (actual) << " for " << (expected)

// The expected values come from quadruple precision, rounded to double.
struct Values {
  double x;
  double sine;
  double cosine;
  double arcTangent;
};

constexpr Values kValues[] = {
    {0x1p-1, 0x1.eaee8744b05fp-2, 0x1.c1528065b7d5p-1, 0x1.dac670561bb4fp-2},
    {-0x1.921fb54442d18p-1, -0x1.6a09e667f3bccp-1, 0x1.6a09e667f3bcdp-1, -0x1.54e04c05d06ap-1},
    {0x1.921fb54442d18p+0, 0x1p+0, 0x1.1a62633145c07p-54, 0x1.00fe987ed02ffp+0},
    {0x1.921fb54442d18p+1, 0x1.1a62633145c07p-53, -0x1p+0, 0x1.433b8a322ddd3p+0},
    {-0x1.921fb54442d18p+2, 0x1.1a62633145c07p-52, 0x1p+0, -0x1.69b8154baf42ep+0},
    {0x1.657184ae74487p-3, 0x1.63a1a7e0b7389p-3, 0x1.f838b8c811c17p-1, 0x1.61e1000597cbdp-3},
    {0x1.4f1a6c638d03fp+1, 0x1.fffffffffffffp-2, -0x1.bb67ae8584cabp-1, 0x1.34b7a85467ddbp+0},
    {0x1.cp+2, 0x1.50608c26d0a08p-1, 0x1.81ff79ed92017p-1, 0x1.6dcc57bb565fdp+0},
    {-0x1.91p+6, 0x1.1bf00980dc35cp-2, 0x1.ebec72ba6b0ecp-1, -0x1.8f92010a9ab6dp+0},
    {0x1.e848p+19, -0x1.6664b2568d867p-2, 0x1.df9df9906d32cp-1, 0x1.921fa47d4b30dp+0},
    {0x1.c6bf52634p+49, 0x1.b76f88136cebap-1, -0x1.06c154609d33fp-1, 0x1.921fb54442d14p+0},
    {0x1.0f0cf064dd592p+73, -0x1.b453ab76bf397p-1, 0x1.0be2cef01c8f4p-1, 0x1.921fb54442d18p+0},
    {0x1.6ac5b262ca1ffp+849, 0x1p+0, -0x1.14ae72e6ba22fp-61, 0x1.921fb54442d18p+0},
    {0x1.fffffffffffffp+1023, 0x1.452fc98b34e97p-8, -0x1.fffe62ecfab75p-1, 0x1.921fb54442d18p+0},
    {0x1.5798ee2308c3ap-27, 0x1.5798ee2308c3ap-27, 0x1p+0, 0x1.5798ee2308c3ap-27},
    {-0x1.87e92154ef7acp-665, -0x1.87e92154ef7acp-665, 0x1p+0, -0x1.87e92154ef7acp-665},
    {0x0.0000000000001p-1022, 0x0.0000000000001p-1022, 0x1p+0, 0x0.0000000000001p-1022},
    {0x1.921fb54442d18p+20, -0x1.1a62633145c07p-34, 0x1p+0, 0x1.921fab14aa9aap+0},
};

struct Values2 {
  double y;
  double x;
  double arcTangent;
};

constexpr Values2 kValues2[] = {
    {0x1p+0, 0x1p+0, 0x1.921fb54442d18p-1},
    {0x1p+0, -0x1p+0, 0x1.2d97c7f3321d2p+1},
    {-0x1p+0, -0x1p+0, -0x1.2d97c7f3321d2p+1},
    {-0x1p-1, 0x1.8p+1, -0x1.52397843c9addp-3},
    {0x1.8p+1, 0x1.0624dd2f1a9fcp-10, 0x1.9209dcdc8c77ap+0},
    {0x1.56e1fc2f8f359p-997, 0x1.7e43c8800759cp+996, 0x0p+0},
    {0x1.4f8b588e368f1p-17, -0x1.86ap+16, 0x1.921fb5440bd7cp+1},
    {0x1p+1, -0x1.70ef54646d497p-57, 0x1.921fb54442d18p+0},
    {0x1.7e43c8800759cp+996, 0x1.56e1fc2f8f359p-997, 0x1.921fb54442d18p+0},
    {0x1.dp+2, -0x1.7p+3, 0x1.4a1fc69f419fdp+1},
    {0x0.0000000000001p-1022, 0x1p+0, 0x0.0000000000001p-1022},
    {-0x0.012688b70e62bp-1022, -0x0.024d116e1cc56p-1022, -0x1.56c6e7397f5aep+1},
};

TEST(ExactMath, GivesTheNearestDoubleOfSineCosineAndArcTangent) {
  for (const Values& values : kValues) {
    EXPECT_SAME_BITS(ExactSin(values.x), values.sine);
    EXPECT_SAME_BITS(ExactCos(values.x), values.cosine);
    EXPECT_SAME_BITS(ExactAtan(values.x), values.arcTangent);
  }
}

TEST(ExactMath, GivesTheNearestDoubleOfTheArcTangentOfTwo) {
  for (const Values2& values : kValues2) {
    EXPECT_SAME_BITS(ExactAtan2(values.y, values.x), values.arcTangent);
  }
}

TEST(ExactMath, SineAndArcTangentAreOddAndCosineIsEven) {
  for (const Values& values : kValues) {
    EXPECT_SAME_BITS(ExactSin(-values.x), -values.sine);
    EXPECT_SAME_BITS(ExactCos(-values.x), values.cosine);
    EXPECT_SAME_BITS(ExactAtan(-values.x), -values.arcTangent);
  }
}

TEST(ExactMath, KeepsTheSignOfZero) {
  EXPECT_SAME_BITS(ExactSin(-0.0), -0.0);
  EXPECT_SAME_BITS(ExactAtan(-0.0), -0.0);
  EXPECT_SAME_BITS(ExactAtan2(0.0, 1.0), 0.0);
  EXPECT_SAME_BITS(ExactAtan2(-0.0, 0.0), -0.0);
  EXPECT_SAME_BITS(ExactAtan2(0.0, -0.0), kPi);
  EXPECT_SAME_BITS(ExactAtan2(-0.0, -2.0), -kPi);
  EXPECT_SAME_BITS(ExactAtan2(-3.0, 0.0), -kPi / 2);
  EXPECT_SAME_BITS(ExactCos(-0.0), 1.0);
}

TEST(ExactMath, FollowsTheStandardAtInfinity) {
  EXPECT_TRUE(std::isnan(ExactSin(kInfinity)));
  EXPECT_TRUE(std::isnan(ExactCos(-kInfinity)));
  EXPECT_SAME_BITS(ExactAtan(-kInfinity), -kPi / 2);
  EXPECT_SAME_BITS(ExactAtan2(kInfinity, kInfinity), kPi / 4);
  EXPECT_SAME_BITS(ExactAtan2(-kInfinity, -kInfinity), -0x1.2d97c7f3321d2p+1);
  EXPECT_SAME_BITS(ExactAtan2(5.0, kInfinity), 0.0);
  EXPECT_SAME_BITS(ExactAtan2(5.0, -kInfinity), kPi);
  EXPECT_SAME_BITS(ExactAtan2(-kInfinity, 5.0), -kPi / 2);
}

TEST(ExactMath, PassesNotANumberOn) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_TRUE(std::isnan(ExactSin(nan)));
  EXPECT_TRUE(std::isnan(ExactCos(nan)));
  EXPECT_TRUE(std::isnan(ExactAtan(nan)));
  EXPECT_TRUE(std::isnan(ExactAtan2(nan, 0.0)));
  EXPECT_TRUE(std::isnan(ExactAtan2(kInfinity, nan)));
}

// The angles of a full turn in steps of an arc, where differences of the last
// bit would be seen in a document.
TEST(PortableMath, IsWithinOneUnitOfTheNearestDouble) {
  for (int i = -3600; i <= 3600; ++i) {
    const double x = i * kPi / 1800;
    const auto distance = [](double a, double b) {
      return std::fabs(static_cast<double>(static_cast<std::int64_t>(Bits(a) - Bits(b))));
    };
    EXPECT_LE(distance(PortableSin(x), ExactSin(x)), 1) << x;
    EXPECT_LE(distance(PortableCos(x), ExactCos(x)), 1) << x;
    EXPECT_LE(distance(PortableAtan(x), ExactAtan(x)), 1) << x;
    EXPECT_LE(distance(PortableAtan2(x, 0.7), ExactAtan2(x, 0.7)), 1) << x;
  }
}

}  // namespace
