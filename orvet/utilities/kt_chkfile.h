#ifndef ORVET_UTILITIES_KT_CHKFILE_H
#define ORVET_UTILITIES_KT_CHKFILE_H

#include "orvet/foundation/base/pathname.h"

namespace orvet {

/// 1 when something of that name exists, a directory included, whatever its permissions; else 0.
ORVET_API int kt_chkfile(const pathname & path);

} // namespace orvet

#endif
