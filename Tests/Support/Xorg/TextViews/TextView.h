// What the text view programs have in common: a window with a long text, scrolled to a place, that says where
// it stands.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>

namespace textview {

// The window covers the top left of the screen, whatever the window manager; none is needed.
inline constexpr int width = 640;
inline constexpr int height = 480;

// Longer than the window by far, in lines that all fonts show.
inline std::string longText()
{
    std::string text;
    for (int line = 1; line <= 400; ++line) {
        text += "Line " + std::to_string(line) + " of a text that is longer than its window.\n";
    }
    return text;
}

// Where to start, from the command line: 0 is the top and 1 is the bottom.
inline double startFraction(int argc, char **argv)
{
    return argc > 1 ? std::strtod(argv[1], nullptr) : 0;
}

// One line on standard output for every change of the position, in the toolkit's own units.
inline void sayPosition(double position)
{
    std::printf("position %.3f\n", position);
    std::fflush(stdout);
}

// Said once, when the window is shown and stands at its start.
inline void sayReady(double position)
{
    std::printf("ready %.3f\n", position);
    std::fflush(stdout);
}

} // namespace textview
