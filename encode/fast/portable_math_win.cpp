#include "encode/fast/exact_math.hpp"
#include "encode/fast/portable_math.hpp"

double PortableSin(double x) {
  return ExactSin(x);
}

double PortableCos(double x) {
  return ExactCos(x);
}

SineAndCosine PortableSinCos(double x) {
  return {ExactSin(x), ExactCos(x)};
}

double PortableAtan(double x) {
  return ExactAtan(x);
}

double PortableAtan2(double y, double x) {
  return ExactAtan2(y, x);
}

// LibreDWG's DXF reader turns a text's angle into a direction with these two, and
// MinGW's keep few correct digits near multiples of pi. Defined here, they come
// first when the program is linked.
#ifdef __MINGW32__
extern "C" double sin(double x) {
  return ExactSin(x);
}

extern "C" double cos(double x) {
  return ExactCos(x);
}
#endif
