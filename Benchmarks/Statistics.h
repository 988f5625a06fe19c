// Figures that a few outliers of a busy machine do not move.
#pragma once

#include <vector>

namespace benchmarks {

// The value that the fraction `rank` of the samples (0 to 1) does not exceed. REQUIRES: there is a sample.
[[nodiscard]] double quantile(std::vector<double> samples, double rank);

// REQUIRES: there is a sample.
[[nodiscard]] double median(const std::vector<double> &samples);

} // namespace benchmarks
