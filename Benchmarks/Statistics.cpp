#include "Benchmarks/Statistics.h"

#include <algorithm>
#include <cmath>

namespace benchmarks {

double quantile(std::vector<double> samples, double rank)
{
    std::ranges::sort(samples);
    const auto count = static_cast<double>(samples.size());
    const double index = std::clamp(std::ceil(rank * count) - 1, 0.0, count - 1);
    return samples[static_cast<std::size_t>(index)];
}

double median(const std::vector<double> &samples)
{
    return quantile(samples, 0.5);
}

} // namespace benchmarks
