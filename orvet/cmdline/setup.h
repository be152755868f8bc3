#ifndef ORVET_CMDLINE_SETUP_H
#define ORVET_CMDLINE_SETUP_H

#include "orvet/cmdline/input_parms.h"

namespace orvet {

/// Builds every setting of the process, both channels and the shared values of `input_parms`, in a fixed
/// order. What is wrong with the environment is printed to standard output here, once. May be called any
/// number of times.
ORVET_API void initializer();

/// Applies the settings once the command line is read: calls `initializer`, then sets the channels to the
/// size limits of the environment and the levels of `ip`. May be called again with another record.
ORVET_API void setloglevel(input_parms & ip);

} // namespace orvet

#endif
