#include "orvet/version.h"

namespace orvet {

const char * version() noexcept
{
    return ORVET_VERSION_STRING;
}

} // namespace orvet
