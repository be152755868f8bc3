#ifndef ORVET_COMMANDS_RESOLVE_TOKENS_H
#define ORVET_COMMANDS_RESOLVE_TOKENS_H

#include "orvet/foundation/base/ustring.h"

namespace orvet {

/// Replaces the token that a path from Brodan begins with: "$(REPOSITORY)" by the directory "repos" below
/// Brodan's installation path, followed by the rest as plain text; else "$(FILEPATH)" by the installation
/// path, followed by the rest as a path element. Only the first token is replaced, and text before it is
/// dropped. A text without a token is unchanged, also if allocation fails.
ORVET_API void resolve_tokens(ustring & text);

} // namespace orvet

#endif
