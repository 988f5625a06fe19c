// Types its first argument, a text, into whatever has the focus, and exits with 0 where all of it was handed
// over.

#include "SharedCore/EventTapManager/TextTyping.h"

int main(int argc, char **argv)
{
    return argc == 2 && sharedcore::typeText(argv[1]) ? 0 : 1; // NOLINT
}
