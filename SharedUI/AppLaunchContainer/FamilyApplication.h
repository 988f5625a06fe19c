// The whole main() of a program of the family.
#pragma once

#include "Platform/Application.h"

namespace sharedui {

// Runs the program as platform::runApplication() does. `launch` is called once, when the application is up,
// and presents the window with LaunchWindowController::shared(); the shared views' texts come in the user's
// language. Opened again, the program brings that window to the front; it ends with the program.
int runFamilyApplication(int argc, char **argv, const platform::ApplicationNames &names,
                         const std::function<void()> &launch);

} // namespace sharedui
