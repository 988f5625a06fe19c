#include "Toolkit/WindowGeometry.h"

namespace toolkit {

QRect centredGeometry(const QRect &available, QSize contentSize, QSize smallestSize)
{
    QRect geometry(QPoint(), contentSize.boundedTo(available.size()).expandedTo(smallestSize));
    geometry.moveCenter(available.center());
    return geometry;
}

} // namespace toolkit
