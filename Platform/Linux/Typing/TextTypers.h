// The ways to type on a Linux desktop.
#pragma once

#include "Platform/Linux/Portal/PortalTyping.h"
#include "Platform/TextTyper.h"

namespace platform {

// Asks the ways of this session in their order, at each text: XTEST on X11; on Wayland a keyboard of the
// program's own where the compositor lets it have one, else the portal. The environment variable
// STIRRA_INPUT_BACKEND leaves only the one it names ("xtest", "wlroots", "portal"), whatever the session;
// "none" and "uinput", which has the keys of the layout only, leave nothing; another name leaves all.
class LinuxTyping final : public TypingServices
{
public:
    std::unique_ptr<TextTyper> open(std::u16string_view text, QString &why,
                                    const std::stop_token &stop) override;
    bool typesIntoOwnWindow() const override;

private:
    PortalTyping portal_;
};

} // namespace platform
