#include "Toolkit/GaussianBlur.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace toolkit {

namespace {

constexpr double reach = 3; // of the kernel, in standard deviations

std::size_t count(int number)
{
    return static_cast<std::size_t>(number);
}

void addScaled(float *sum, const float *row, std::size_t length, float weight)
{
    for (std::size_t i = 0; i < length; ++i) {
        sum[i] += weight * row[i];
    }
}

} // namespace

void GaussianBlur::Kernel::set(double newDeviation)
{
    if (newDeviation == deviation) {
        return;
    }
    deviation = newDeviation;
    const int newRadius = deviation > 0 ? static_cast<int>(std::ceil(reach * deviation)) : 0;
    weights.resize(2 * count(newRadius) + 1);
    for (int i = -newRadius; i <= newRadius; ++i) {
        const double distance = i == 0 ? 0 : i / deviation;
        weights[count(i + newRadius)] = static_cast<float>(std::exp(-distance * distance / 2));
    }
    const float sum = std::accumulate(weights.begin(), weights.end(), 0.0F);
    std::ranges::for_each(weights, [sum](float &weight) { weight /= sum; });
}

void GaussianBlur::apply(std::span<float> picture, const PictureSize &size, double horizontal,
                         double vertical)
{
    horizontal_.set(horizontal);
    vertical_.set(vertical);
    blurRows(picture, size);
    blurColumns(picture, size);
}

void GaussianBlur::blurRows(std::span<float> picture, const PictureSize &size)
{
    const auto length = count(size.columns) * count(size.channels);
    const auto margin = count(horizontal_.radius()) * count(size.channels);
    source_.assign(length + 2 * margin, 0);
    for (int y = 0; y < size.rows; ++y) {
        float *row = picture.data() + count(y) * length;
        std::copy_n(row, length, source_.data() + margin);
        std::fill_n(row, length, 0.0F);
        for (std::size_t i = 0; i < horizontal_.weights.size(); ++i) {
            addScaled(row, source_.data() + i * count(size.channels), length, horizontal_.weights[i]);
        }
    }
}

void GaussianBlur::blurColumns(std::span<float> picture, const PictureSize &size)
{
    const auto length = count(size.columns) * count(size.channels);
    source_.assign(picture.begin(), picture.end());
    std::ranges::fill(picture, 0.0F);
    for (int y = 0; y < size.rows; ++y) {
        const int first = std::max(0, y - vertical_.radius());
        const int last = std::min(size.rows - 1, y + vertical_.radius());
        for (int from = first; from <= last; ++from) {
            addScaled(picture.data() + count(y) * length, source_.data() + count(from) * length, length,
                      vertical_.weights[count(from - y + vertical_.radius())]);
        }
    }
}

} // namespace toolkit
