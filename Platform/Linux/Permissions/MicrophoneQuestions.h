// What the desktop's services are asked about the microphone, and what their answers mean. Any thread.
#pragma once

#include "Platform/Permissions.h"

#include <QDBusMessage>

namespace platform {

// To the Settings portal, for GNOME's switch: org.gnome.desktop.privacy, disable-microphone.
[[nodiscard]] QDBusMessage switchQuestion();
// False too for an error, and for an answer that is none.
[[nodiscard]] bool isSwitchedOff(const QDBusMessage &answer);

// To the permission store, for its table "devices" and the device "microphone".
[[nodiscard]] QDBusMessage storeQuestion();
// What it keeps for that application; an error, and what is neither yes nor no, leaves it undetermined.
[[nodiscard]] MicrophoneStatus storedStatus(const QDBusMessage &answer, const QString &application);

} // namespace platform
