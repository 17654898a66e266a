// How finely the arcs of a hatch's boundary become points.
#pragma once

#include <algorithm>
#include <cmath>
#include <numbers>

// Steps of at most ten degrees, at least 2 and at most 36 of them; 2 for a sweep that is
// not finite.
inline int StepCount(double sweep) {
  constexpr double kAngleStep = std::numbers::pi / 18;
  constexpr double kMinSteps = 2;
  constexpr double kMaxSteps = 36;
  const double steps = std::ceil(std::fabs(sweep) / kAngleStep);
  return std::isfinite(steps) ? static_cast<int>(std::clamp(steps, kMinSteps, kMaxSteps))
                              : static_cast<int>(kMinSteps);
}
