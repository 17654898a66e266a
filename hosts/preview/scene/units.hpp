// Lengths on paper.
#pragma once

namespace preview {

inline constexpr double kMillimetresPerInch = 25.4;

// Lineweights are hundredths of a millimetre.
inline constexpr int kDefaultLineweight = 25;

inline constexpr double MillimetresOfLineweight(int lineweight) {
  return lineweight / 100.0;
}

}  // namespace preview
