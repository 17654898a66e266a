// Trigonometric functions that give the same bits on every platform: the double
// nearest to the true result. They use only the basic operations of IEEE double
// arithmetic, rounded to nearest and not contracted, and carry about 100
// significant bits on the way, so that a result which is not the nearest one
// would need some 46 bits of coincidence. Special values follow
// IEC 60559 as C has it; a NaN's sign is not defined.
#pragma once

double ExactSin(double x);
double ExactCos(double x);
double ExactAtan(double x);
double ExactAtan2(double y, double x);
