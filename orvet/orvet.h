#ifndef ORVET_ORVET_H
#define ORVET_ORVET_H

/// The whole library; each header can be had by itself as well.
#include "orvet/cmdline/input_parms.h"
#include "orvet/cmdline/setup.h"
#include "orvet/commands/brod_base.h"
#include "orvet/commands/listings.h"
#include "orvet/commands/resolve_tokens.h"
#include "orvet/files/kt_file.h"
#include "orvet/files/sections.h"
#include "orvet/files/topology.h"
#include "orvet/foundation/base/pair.h"
#include "orvet/foundation/base/pathname.h"
#include "orvet/foundation/base/ustring.h"
#include "orvet/foundation/base/vector.h"
#include "orvet/foundation/call_trace.h"
#include "orvet/foundation/codes.h"
#include "orvet/foundation/environment.h"
#include "orvet/foundation/ktobject.h"
#include "orvet/foundation/messages.h"
#include "orvet/foundation/trace.h"
#include "orvet/inputfiles/VXA_inst_info.h"
#include "orvet/inputfiles/auth_profile_info.h"
#include "orvet/inputfiles/file_input_parms.h"
#include "orvet/inputfiles/keywords.h"
#include "orvet/inputfiles/user_info.h"
#include "orvet/utilities/capture_stream.h"
#include "orvet/utilities/heapdump.h"
#include "orvet/utilities/kt_chkfile.h"
#include "orvet/utilities/usprintf.h"

#endif
