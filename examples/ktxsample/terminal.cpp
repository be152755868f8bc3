#include "ktxsample.h"

#include <cstdlib>

#include <unistd.h>

bool is_terminal(int descriptor)
{
    // A terminal that bears no name takes no control sequences.
    return std::getenv("TERM") != nullptr && isatty(descriptor) != 0;
}

unsigned terminal_width()
{
    const char * const columns = std::getenv("COLUMNS");
    const int width = columns ? std::atoi(columns) : 0;
    return width >= 40 ? static_cast<unsigned>(width) : 100;
}
