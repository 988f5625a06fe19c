#include "SharedCore/PermissionsManager/SettingsLink.h"

#include "Foundation/FatalError.h"
#include "Platform/LinkOpener.h"

#include <QUrl>

namespace sharedcore {

std::string settingsLink(std::string_view anchor)
{
    auto link = std::string(platform::privacySettingsPrefix).append(anchor);
    if (!QUrl(QString::fromStdString(link), QUrl::StrictMode).isValid()) {
        foundation::fatalError("Unexpectedly found nil while unwrapping an Optional value");
    }
    return link;
}

} // namespace sharedcore
