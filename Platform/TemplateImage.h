// A picture of one colour that whoever shows it chooses.
#pragma once

#include <cstdint>
#include <vector>

namespace platform {

// Only how far each pixel is covered counts: a panel tints the picture as its light or dark look wants it.
struct TemplateImage
{
    // The picture for screens of one scale factor.
    struct Representation
    {
        double scale = 1; // device pixels a point
        int width = 0;    // in device pixels
        int height = 0;
        std::vector<std::uint8_t> coverage; // 0 to 255, row by row from the top, without padding

        bool operator==(const Representation &) const = default;
    };

    double width = 0; // in points
    double height = 0;
    std::vector<Representation> representations; // from the smallest scale on; none: nothing to see

    bool operator==(const TemplateImage &) const = default;
};

// A square in points, from the upper left of an image; it may reach out of it.
struct ImageSquare
{
    double x = 0;
    double y = 0;
    double side = 0;
};

} // namespace platform
