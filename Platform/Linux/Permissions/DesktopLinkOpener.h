// Opens links on a Linux desktop.
#pragma once

#include "Platform/LinkOpener.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QString>

#include <chrono>

namespace platform {

// A link to the privacy settings opens the desktop's own settings at the page that comes closest; see
// SettingsPages.h. All others, and that one where the desktop has no such settings, go to the OpenURI portal,
// and where that is not there, or does not take it, to xdg-open. Programs are started with their arguments,
// by no shell. Qt's own way would wait for the portal. Main thread.
class DesktopLinkOpener final : public LinkOpener
{
public:
    // `patience` is what the portal has to take the link.
    explicit DesktopLinkOpener(const QDBusConnection &bus,
                               std::chrono::milliseconds patience = std::chrono::seconds(10));

    void open(std::string_view link) override;

private:
    void openGenerally(const QString &link) const;

    QDBusConnection bus_;
    std::chrono::milliseconds patience_;
};

} // namespace platform
