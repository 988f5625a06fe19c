#include "Platform/Linux/Wayland/VirtualKeymap.h"

#include "Platform/Linux/FileDescriptor.h"

#include <virtual-keyboard-unstable-v1-client-protocol.h>
#include <wayland-client-protocol.h>

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

bool sendKeymap(zwp_virtual_keyboard_v1 *keyboard, const QByteArray &text)
{
    const auto file = fileWith(text);
    if (file.isOpen()) {
        zwp_virtual_keyboard_v1_keymap(keyboard, WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1, file.get(),
                                       static_cast<std::uint32_t>(text.size()) + 1);
    }
    return file.isOpen();
}

} // namespace platform
