#ifndef ORVET_CMDLINE_SETUP_H
#define ORVET_CMDLINE_SETUP_H

#include "orvet/cmdline/input_parms.h"

namespace orvet {

/// Builds every setting of the process, both channels and the class-level values of `input_parms`, in a fixed
/// order: what is wrong with the environment is told on standard output here, once. May be called any number
/// of times.
ORVET_API void initializer();

/// Brings a tool to its working state once its command line is read: calls `initializer`, then gives the
/// channels the sizes of the environment and the levels of `ip`. May be called again with another record.
ORVET_API void setloglevel(input_parms & ip);

} // namespace orvet

#endif
