#include "encode/exact_math.hpp"
#include "encode/portable_math.hpp"

double PortableSin(double x) {
  return ExactSin(x);
}

double PortableCos(double x) {
  return ExactCos(x);
}

double PortableAtan(double x) {
  return ExactAtan(x);
}

double PortableAtan2(double y, double x) {
  return ExactAtan2(y, x);
}
