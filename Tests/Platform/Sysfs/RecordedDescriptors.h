// Report descriptors of devices that exist, byte by byte as they send them.
#pragma once

#include "Tests/Platform/Sysfs/Descriptors.h"

#include <array>
#include <charconv>
#include <string_view>

namespace platform {

// Of two digits for each byte, with one space between them.
inline Descriptor bytesOf(std::string_view text)
{
    Descriptor bytes;
    for (std::size_t place = 0; place < text.size(); place += 3) {
        bytes.push_back(0);
        std::from_chars(text.data() + place, text.data() + place + 2, bytes.back(), 16);
    }
    return bytes;
}

// PixArt's optical mouse, USB 093a:2510.
inline const Descriptor pixartMouse =
    bytesOf("05 01 09 02 a1 01 09 01 a1 00 05 09 19 01 29 03 15 00 25 01 75 01 95 03 "
            "81 02 75 05 95 01 81 01 05 01 09 30 09 31 09 38 15 81 25 7f 75 08 95 03 "
            "81 06 c0 c0");

// HP's optical mouse, USB 03f0:094a: eight buttons' bits, of which three have a usage.
inline const Descriptor hpMouse =
    bytesOf("05 01 09 02 a1 01 09 01 a1 00 05 09 19 01 29 03 15 00 25 01 95 08 75 01 "
            "81 02 05 01 09 30 09 31 09 38 15 81 25 7f 75 08 95 03 81 06 c0 c0");

// ATK X1 SE, USB 373b:1107, the wireless mouse's receiver: its mouse.
inline const Descriptor atkMouse =
    bytesOf("05 01 09 02 a1 01 09 01 a1 00 05 09 19 01 29 05 15 00 25 01 95 05 75 01 "
            "81 02 95 01 75 03 81 01 05 01 09 30 09 31 16 00 80 26 ff 7f 75 10 95 02 "
            "81 06 c0 a1 00 05 01 09 38 15 81 25 7f 75 08 95 01 81 06 c0 a1 00 05 0c "
            "0a 38 02 95 01 75 08 15 81 25 7f 81 06 c0 c0");

// The same receiver's other part: media keys, power keys, keys, three collections of vendor's pages.
inline const Descriptor atkReceiver =
    bytesOf("05 0c 09 01 a1 01 85 05 15 00 26 14 05 19 00 2a 14 05 75 10 95 01 81 00 "
            "c0 05 01 09 80 a1 01 85 03 19 81 29 83 15 00 25 01 95 03 75 01 81 02 95 "
            "01 75 05 81 01 c0 05 01 09 06 a1 01 85 04 05 07 15 00 25 01 19 00 29 9f "
            "95 a0 75 01 81 02 c0 06 02 ff 09 02 a1 01 85 13 15 00 26 ff 00 75 08 95 "
            "13 09 02 81 00 09 02 91 00 c0 06 02 ff 09 02 a1 01 85 08 15 00 26 ff 00 "
            "75 08 95 10 09 02 81 00 09 02 91 00 c0 06 04 ff 09 02 a1 01 85 06 09 02 "
            "15 00 26 ff 00 75 08 95 07 b1 02 c0");

// The same receiver's keyboard of the boot protocol.
inline const Descriptor atkKeyboard =
    bytesOf("05 01 09 06 a1 01 05 08 19 01 29 03 15 00 25 01 75 01 95 03 91 02 95 05 "
            "91 01 05 07 19 e0 29 e7 15 00 25 01 75 01 95 08 81 02 75 08 95 01 81 01 "
            "05 07 19 00 2a ff 00 15 00 26 ff 00 75 08 95 05 81 00 05 ff 09 03 75 08 "
            "95 01 81 02 c0");

// A keyboard with Elan's controller, USB 04f3:0103.
inline const Descriptor elanKeyboard =
    bytesOf("05 01 09 06 a1 01 05 08 19 01 29 03 15 00 25 01 75 01 95 03 91 02 95 05 "
            "91 01 05 07 19 e0 29 e7 95 08 81 02 75 08 95 01 81 01 19 00 29 91 26 ff "
            "00 95 06 81 00 c0");

// The sensor hub of a Surface Laptop Studio 2, cut down to one of its many sensors, that of the gravity
// vector.
inline const Descriptor surfaceGravity =
    bytesOf("05 20 09 01 a1 01 85 a5 05 20 09 7c a1 00 05 20 0a 09 03 15 00 25 02 75 "
            "08 95 01 a1 02 0a 30 08 0a 31 08 0a 32 08 b1 00 c0 0a 16 03 15 00 25 05 "
            "75 08 95 01 a1 02 0a 40 08 0a 41 08 0a 42 08 0a 43 08 0a 44 08 0a 45 08 "
            "b1 00 c0 0a 19 03 15 00 25 05 75 08 95 01 a1 02 0a 50 08 0a 51 08 0a 52 "
            "08 0a 53 08 0a 54 08 0a 55 08 b1 00 c0 0a 01 02 15 00 25 06 75 08 95 01 "
            "a1 02 0a 00 08 0a 01 08 0a 02 08 0a 03 08 0a 04 08 0a 05 08 0a 06 08 b1 "
            "00 c0 0a 0e 03 15 00 27 ff ff ff 7f 75 20 95 01 55 00 b1 02 0a 04 03 15 "
            "00 27 ff ff ff 7f 75 20 95 01 55 00 b1 02 0a 52 14 15 00 26 ff ff 75 10 "
            "95 01 55 0d b1 02 05 20 05 20 0a 01 02 15 00 25 06 75 08 95 01 a1 02 0a "
            "00 08 0a 01 08 0a 02 08 0a 03 08 0a 04 08 0a 05 08 0a 06 08 81 00 c0 0a "
            "02 02 15 00 25 05 75 08 95 01 a1 02 0a 10 08 0a 11 08 0a 12 08 0a 13 08 "
            "0a 14 08 0a 15 08 81 00 c0 0a 53 04 16 01 80 26 ff 7f 75 10 95 01 55 0d "
            "81 02 0a 54 04 81 02 0a 55 04 81 02 c0 c0");

inline const std::array recordedDescriptors{pixartMouse, hpMouse,      atkMouse,      atkReceiver,
                                            atkKeyboard, elanKeyboard, surfaceGravity};

} // namespace platform
