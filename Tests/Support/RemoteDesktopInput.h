// Input that a program sends through the RemoteDesktop portal.
#pragma once

#include <QVariantMap>

#include <functional>

namespace testsupport {

// One call that carries input.
struct RemoteDesktopInput
{
    QString method;
    QVariantList values; // without the session and the options
    QVariantMap options;
    bool wantsReply = false;

    bool operator==(const RemoteDesktopInput &) const = default;
};

using RemoteDesktopInputFunction = std::function<void(const RemoteDesktopInput &)>;

} // namespace testsupport
