#include "Foundation/FatalError.h"

#include <cstdio>
#include <cstdlib>

namespace foundation {

void fatalError(const char *message)
{
    std::fprintf(stderr, "Fatal error: %s\n", message);
    std::abort();
}

} // namespace foundation
