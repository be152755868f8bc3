#include "orvet/utilities/kt_chkfile.h"

#include "orvet/foundation/call_trace.h"
#include "orvet/foundation/platform/files.h"

namespace orvet {

int kt_chkfile(const pathname & path)
{
    const call_trace trace("kt_chkfile");
    return platform::exists(path.text()) ? 1 : 0;
}

} // namespace orvet
