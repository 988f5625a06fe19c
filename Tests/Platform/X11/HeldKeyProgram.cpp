// Presses a key through the poster, says what came of it, and waits to be ended without releasing it.

#include "Platform/Linux/X11/XtestInputPoster.h"

#include <unistd.h>

#include <cstdio>

int main()
{
    platform::Obstacle why;
    const auto poster = platform::XtestInputPoster::create(why);
    const bool isPressed = poster && poster->post(platform::KeyEvent{55, true, 0x800000});
    std::puts(isPressed ? "pressed" : "not pressed");
    std::fflush(stdout);
    pause();
    return 0;
}
