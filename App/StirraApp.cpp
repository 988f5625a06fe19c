#include "App/StirraApp.h"

#include "App/AppDelegate.h"
#include "Platform/Application.h"

namespace stirra {

int StirraApp::main(int argc, char **argv)
{
    const platform::ApplicationNames names{QStringLiteral("stirra"), QStringLiteral("Stirra"),
                                           QStringLiteral("org.stirra.Stirra")};
    return platform::runApplication(argc, argv, names, [] { return std::make_unique<AppDelegate>(); });
}

} // namespace stirra
