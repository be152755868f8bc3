#ifndef ORVET_COMMANDS_RECORDED_ANSWER_H
#define ORVET_COMMANDS_RECORDED_ANSWER_H

#include "orvet/foundation/base/pathname.h"
#include "orvet/foundation/ktobject.h"

namespace orvet {

/// What became of the answer to one command while `brod_base::record_answers` was on.
class ORVET_API recorded_answer : public ktobject {
public:
    /// Stores copies.
    recorded_answer(const ustring & ran, const pathname & canned, const ustring & why_not)
        : command(ran), file(canned), reason(why_not)
    {
    }
    codable * clone() override;

    /// Whether `file` holds the answer.
    bool is_recorded() const { return reason.length() == 0; }

    ustring command; ///< as it was given to `set_brod_cmd`, without the base command
    pathname file;   ///< the canned file that answers the command in dummy mode
    ustring reason;  ///< why the answer is not in there; empty for an answer that is
};

} // namespace orvet

#endif
