// The entry of the program.
#pragma once

namespace stirra {

// Runs the application's main loop and returns the exit status: 0 after an orderly end, and at once where
// another process of the session is the application already; that one shows its window again. There are no
// arguments.
class StirraApp
{
public:
    static int main(int argc, char **argv);
};

} // namespace stirra
