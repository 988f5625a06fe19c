// The items of a view, as they lie.
#pragma once

#include <QQuickItem>

namespace testsupport {

// The item and all that is below it, those of repeaters too, each before its own children. Main thread.
inline QList<QQuickItem *> itemsFrom(QQuickItem &item)
{
    QList<QQuickItem *> items{&item};
    for (auto *child : item.childItems()) {
        items.append(itemsFrom(*child));
    }
    return items;
}

} // namespace testsupport
