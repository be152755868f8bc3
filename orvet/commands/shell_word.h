#ifndef ORVET_COMMANDS_SHELL_WORD_H
#define ORVET_COMMANDS_SHELL_WORD_H

#include "orvet/foundation/base/ustring.h"

namespace orvet {

/// The command shells that the library knows.
enum class command_shell { sh, cmd_exe };

/// The shell that `brod_base::exec_brod_cmd` passes its commands to on this system.
ORVET_API command_shell system_shell();

/// Writes `text` as one word of a shell's command to `word`, so that the shell sees no operator, variable or
/// pattern in it. Commands are text for the shell: a name that comes from a file or from a user goes into one
/// by this function alone.
///
///     ustring word;
///     if (!quote_word(name, word))
///         return refuse(name);
///     brod_base_ls object(word);
///
/// A word of ASCII letters, digits and @ - _ + . / : , (for cmd.exe \ too, and no comma) is unchanged. False,
/// with `word` unchanged, for a text that the shell can't be given: one with a zero, for cmd.exe also one
/// with
/// %, ", a line feed or a carriage return; and if allocation fails. The word is an argument, never the first
/// one of a line, which cmd.exe reads by rules of its own. `text` and `word` may be the same object.
[[nodiscard]] ORVET_API bool quote_word(const ustring & text, ustring & word,
                                        command_shell shell = system_shell());

} // namespace orvet

#endif
