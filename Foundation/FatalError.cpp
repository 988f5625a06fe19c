#include "Foundation/FatalError.h"

#include <cstdio>
#include <cstdlib>

namespace foundation {

void fatalError(const char *message)
{
    std::fprintf(stderr, "Fatal error: %s\n", message);
    std::abort();
}

void assertionFailure(const char *source, int line)
{
    std::fprintf(stderr, "%s:%d: Assertion failed\n", source, line);
    std::abort();
}

} // namespace foundation
