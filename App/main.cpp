#include "App/StirraApp.h"

int main(int argc, char **argv)
{
    return stirra::StirraApp::main(argc, argv);
}
