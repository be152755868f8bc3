#ifndef ORVET_COMMANDS_RESOLVE_TOKENS_H
#define ORVET_COMMANDS_RESOLVE_TOKENS_H

#include "orvet/foundation/base/ustring.h"

namespace orvet {

/// Replaces the token that a path from Brodan begins with by the real place: "$(REPOSITORY)" by the directory
/// "repos" below Brodan's installation path, with what follows as plain text; else "$(FILEPATH)" by the
/// installation path, with what follows as an element of it. Only the first one is replaced, and text in
/// front of it is dropped. A text without a token stays as it was.
ORVET_API void resolve_tokens(ustring & text);

} // namespace orvet

#endif
