// The trigonometric functions whose digits reach the document. The C library's
// own differ between platforms in the last bit of about one result in a
// thousand (on Windows in far more), and a difference of two such results shows
// that bit among the printed digits.
//
// Where the C library is glibc these are its functions. Elsewhere they are the
// correctly rounded ones of exact_math.hpp, which is what glibc returns in all
// but about 0.1 % of cases.
#pragma once

double PortableSin(double x);
double PortableCos(double x);

// Both of one angle, the same bits as each alone.
struct SineAndCosine {
  double sine;
  double cosine;
};
SineAndCosine PortableSinCos(double x);

double PortableAtan(double x);
double PortableAtan2(double y, double x);
