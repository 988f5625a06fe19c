// The picture that the background of drifting blobs shows.
#pragma once

#include "Toolkit/GaussianBlur.h"

#include <QColor>
#include <QImage>
#include <QRectF>

#include <array>
#include <span>
#include <vector>

namespace sharedui {

// A blob is an ellipse of 0.8 times the view's size, filled with a colour that fades along the ellipse's
// diagonal, from 60 % at its centre to nothing 0.4 times the view's width and height further.
constexpr int blobCount = 4;

// Where a blob's centre is in a view of that size. `time` is the date in seconds since 2001-01-01 UTC,
// multiplied by the speed; `index` is 0 to 3.
[[nodiscard]] QPointF blobCenter(int index, double time, const QSizeF &size);

// Four blobs, one over the other, clipped to the view, blurred with a radius of 60 points (a Gaussian of that
// standard deviation, see GaussianBlur) and laid on black. Outside of the view there is nothing, so that the
// picture fades towards its edges.
//
// It is computed in cells of 12 points or less, 16 of them or more in each direction: after such a blur the
// curve between two cells is straight within a level of 255. To be drawn with linear filtering. Keeps its
// memory: a picture of the same size as the last allocates nothing. One for each thread.
class MeshGradientPicture
{
public:
    // `size` in points; REQUIRES one that is not empty. The colours are used in turn; none at all is a fatal
    // error.
    const QImage &draw(const QSizeF &size, double time, std::span<const QColor> colors);

    // Where the picture belongs in the view: over the view and one cell beyond it on all sides, since linear
    // filtering has to have something to go on to.
    [[nodiscard]] QRectF frame() const;

private:
    struct Blob;

    void resize(const QSizeF &size);
    void draw(const Blob &blob);
    void drawRow(const Blob &blob, int row);
    void convert();

    QSizeF size_;
    QSizeF cell_;
    toolkit::PictureSize cells_;
    std::vector<float> light_; // red, green and blue from 0 to 1, over black
    toolkit::GaussianBlur blur_;
    QImage image_;
};

} // namespace sharedui
