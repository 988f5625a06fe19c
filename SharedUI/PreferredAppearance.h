// Makes a program look and move as its user prefers.
#pragma once

#include "SharedCore/Storage/AppPreferences.h"

#include <QObject>
#include <QtQmlIntegration>

namespace sharedui {

// The theme and the two switches of the record over what the desktop says, in every view of the process.
// Main thread.
void applyAppearance(const sharedcore::AppPreferences &preferences);

// The same for views: it applies the stored preferences when it is made, and again when told to. What it has
// applied stays when it goes.
class PreferredAppearance : public QObject
{
    Q_OBJECT
    QML_ELEMENT

public:
    explicit PreferredAppearance(QObject *parent = nullptr);

    Q_INVOKABLE void apply();
};

} // namespace sharedui
