#include <cmath>

#include "encode/fast/portable_math.hpp"

double PortableSin(double x) {
  return std::sin(x);
}

double PortableCos(double x) {
  return std::cos(x);
}

SineAndCosine PortableSinCos(double x) {
  return {std::sin(x), std::cos(x)};
}

double PortableAtan(double x) {
  return std::atan(x);
}

double PortableAtan2(double y, double x) {
  return std::atan2(y, x);
}
