// A program's life in the menu bar: no place in the lists of running programs, and the frames of a beating
// heart.
#pragma once

#include "Platform/TemplateImage.h"

#include <vector>

namespace sharedcore {

// Turns the program into one that is in the menu bar only. Call it once at launch, before any window is
// shown, on the main thread. On X11 its windows leave the task bar and the pager, and closing the last one
// does not end it; on Wayland, where the compositor decides what it lists, they stay. What makes the
// program a regular one, as presenting a launch window does, lists it again. Where there is no application
// object the process stops.
void configureAsMenuBarOnlyApp();

// The frames of a heart that swells to 120 % of the image and shrinks to 80 % in one round: `count` template
// images of `size` × `size` points. The heart stays in the middle; what is larger than the image is clipped.
// They are sharp at the scale factors 1, 1.5, 2 and 3, and blank where the system has no heart symbol. A
// negative count stops the process. Main thread.
[[nodiscard]] std::vector<platform::TemplateImage> generateHeartFrames(int count = 8, double size = 18.0);

} // namespace sharedcore
