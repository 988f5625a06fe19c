#include "Benchmarks/FrameCount.h"

namespace benchmarks {

FrameCount::FrameCount(const QDBusConnection &bus)
    : bus_(bus)
{
    bus_.connect({}, {}, QStringLiteral("org.kde.StatusNotifierItem"), QStringLiteral("NewIcon"), this,
                 SLOT(countFrame()));
}

} // namespace benchmarks
