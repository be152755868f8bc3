#ifndef ORVET_FOUNDATION_EXPLAIN_H
#define ORVET_FOUNDATION_EXPLAIN_H

#include "orvet/export.h"

/// What an operator can do about a message or a return code of the library:
///
///     for (const orvet::explanation & each : orvet::explain(rc, "load_top"))
///         std::fprintf(stderr, "%s\nDo: %s\n", each.cause, each.remedy);
///
/// The texts are constant data in UTF-8, one paragraph without line breaks each. No function allocates, and
/// any thread may call them.
namespace orvet {

/// One cause of a message or code. No member is null, and none is ever freed.
struct explanation {
    const char * subject;   ///< the text of the message, or the code and its name in `orvet::code`, if any
    const char * operation; ///< what writes or returns it: `kt_file::open`, several separated by ", "
    const char * cause;     ///< what happened, and what holds after it
    const char * remedy;    ///< what to do next
};

/// A range of explanations for range-for; it may be empty.
struct explanation_range {
    const explanation * first; ///< the first explanation
    const explanation * last;  ///< the end, after the last one

    ///@{
    /// As in a container of the standard library.
    const explanation * begin() const { return first; }
    const explanation * end() const { return last; }
    bool empty() const { return first == last; }
    ///@}
};

/// Explains the first message number in `text`, in upper or lower case: "MSG0107", "msgi0004", or a whole
/// line of the log or of standard output. A text that is only a number is explained as a code. Empty if
/// there is no such message or code, and for a null pointer.
///
/// With `operation`, only the causes that belong to it, by its name with or without the class: "copy_to".
ORVET_API explanation_range explain(const char * text, const char * operation = nullptr) noexcept;

/// Explains a code. Several operations use the same number for different things, so give `operation` if it is
/// known. Empty if no operation, or not this one, returns it; a command that `exec_brod_cmd` ran may end with
/// any value of its own.
ORVET_API explanation_range explain(int code, const char * operation = nullptr) noexcept;

/// The explanations of all messages, in number order.
ORVET_API explanation_range message_explanations() noexcept;
/// The explanations of all codes, in number order.
ORVET_API explanation_range code_explanations() noexcept;

} // namespace orvet

#endif
