#include "Platform/Linux/Wayland/VirtualKeyboard.h"

#include "Platform/Linux/Wayland/WaylandTime.h"

#include <virtual-keyboard-unstable-v1-client-protocol.h>

#include <sys/mman.h>

namespace platform {

namespace {

// The final zero is part of it.
FileDescriptor fileWith(const QByteArray &text)
{
    FileDescriptor file(memfd_create("keymap", MFD_CLOEXEC));
    const auto size = static_cast<std::size_t>(text.size()) + 1;
    const bool isWritten = file.isOpen() && write(file.get(), text.constData(), size) == text.size() + 1;
    return isWritten ? std::move(file) : FileDescriptor();
}

} // namespace

VirtualKeyboard::VirtualKeyboard(WaylandObject<zwp_virtual_keyboard_manager_v1> manager,
                                 const SeatKeyboard &seat)
    : seat_(seat)
    , silentKeys_(seat)
    , manager_(std::move(manager))
{}

bool VirtualKeyboard::type(std::uint16_t evdevCode)
{
    if (silentKeys_.keymapText() != sentKeymapText_ && !sendKeymap()) {
        return false;
    }
    for (const auto state : {WL_KEYBOARD_KEY_STATE_PRESSED, WL_KEYBOARD_KEY_STATE_RELEASED}) {
        zwp_virtual_keyboard_v1_key(keyboard_.get(), waylandTime(), evdevCode, state);
    }
    return true;
}

bool VirtualKeyboard::sendKeymap()
{
    const auto &text = silentKeys_.keymapText();
    const auto file = fileWith(text);
    if (!file.isOpen()) {
        return false;
    }
    if (!keyboard_) {
        keyboard_.reset(
            zwp_virtual_keyboard_manager_v1_create_virtual_keyboard(manager_.get(), seat_.seat()));
    }
    zwp_virtual_keyboard_v1_keymap(keyboard_.get(), WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1, file.get(),
                                   static_cast<std::uint32_t>(text.size()) + 1);
    sentKeymapText_ = text;
    return true;
}

} // namespace platform
