// The blur that shadows and backgrounds share, on numbers and without a GPU.
#pragma once

#include <span>
#include <vector>

namespace toolkit {

// How many numbers a picture has: `channels` for each cell, cell after cell, row after row.
struct PictureSize
{
    int columns = 0;
    int rows = 0;
    int channels = 1;
};

// A Gaussian filter, first along the rows and then along the columns, cut off at three standard deviations,
// where it has fallen to a ninetieth of its height, and made to sum to one. A picture is 0 all around itself.
// Where a view names a blur's radius, that is the standard deviation, as Filter Effects Module Level 1 (W3C)
// has it for blur(). One for each thread; keeps its memory, so that blurring pictures of the same size with
// the same deviations again allocates nothing.
class GaussianBlur
{
public:
    // Blurs in place; REQUIRES a picture of that size. The deviations are in cells; 0 or less leaves as it
    // is.
    void apply(std::span<float> picture, const PictureSize &size, double horizontal, double vertical);

private:
    struct Kernel
    {
        void set(double deviation);
        [[nodiscard]] int radius() const { return static_cast<int>(weights.size() / 2); }

        double deviation = -1;
        std::vector<float> weights;
    };

    void blurRows(std::span<float> picture, const PictureSize &size);
    void blurColumns(std::span<float> picture, const PictureSize &size);

    Kernel horizontal_;
    Kernel vertical_;
    std::vector<float> source_;
};

} // namespace toolkit
