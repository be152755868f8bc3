#ifndef ORVET_INPUTFILES_RECORD_H
#define ORVET_INPUTFILES_RECORD_H

#include "orvet/foundation/base/ustring.h"
#include "orvet/foundation/call_trace.h"
#include "orvet/inputfiles/keywords.h"

// What the records of input files have in common. Each class is a table of keywords with these functions.
namespace orvet {

/// A kind of record: its keywords and how it reads a line.
struct record_kind {
    template <unsigned Count>
    consteval record_kind(const detail::keyword_row (&rows)[Count], char16_t cutoff, bool blanks)
        : keywords(rows), count(Count), field_count(detail::field_count(rows)),
          first_row(row_of(rows[0].name)), message_cutoff(cutoff), allows_blanks(blanks)
    {
    }

    const detail::keyword_row * keywords;
    int count;
    int field_count;         ///< the keywords with a field, which are the first ones
    int first_row;           ///< in `fip_names`
    char16_t message_cutoff; ///< where the messages cut an invalid line
    bool allows_blanks;      ///< around a keyword, before its "="

private:
    static consteval int row_of(const char * name) { return fip_row(name); }
};

inline constexpr record_kind agent_kind(detail::agent_keywords, u'=', true);
inline constexpr record_kind profile_kind(detail::profile_keywords, u':', false);
inline constexpr record_kind user_kind(detail::user_keywords, u':', false);

/// The inside of one record.
struct record_parts {
    const record_kind & kind;
    ustring * texts; ///< `kind.field_count` of them
    fip_marks & marks;
};

/// Gives the fields, which are empty, their initial values. Inline, so that a kind without any costs nothing.
inline void set_initial_values(const record_kind & kind, ustring * texts)
{
    for (int i = 0; i < kind.field_count; ++i)
        if (*kind.keywords[i].initial)
            texts[i].assign(kind.keywords[i].initial);
}
/// Sets every field to its initial value and removes all marks.
void clear_record(const record_parts & record);
/// Stores a copy in the field of a row of `fip_names` and marks its keyword. If allocation fails, both stay
/// unchanged.
void set_field(const record_parts & record, int row, const ustring & value);
/// The field of a keyword, or an empty text if the record has none.
const ustring & field_of(const record_kind & kind, const ustring * texts, const char * keyword);
/// Reads one line, and traces it as the function that `trace` stands for: 0, 100 or 101. The record stays
/// unchanged unless the result is 0.
short set_line(const call_trace & trace, const record_parts & record, const ustring & line);

/// The first mandatory keyword without a mark; null when there is none.
const char * missing_keyword(const record_kind & kind, const fip_marks & marks);
/// 0 when a mandatory keyword has no mark, else 1. Logs that keyword, or each keyword of another record that
/// is marked.
int check_keywords(const record_kind & kind, const fip_marks & marks);

/// True when the line begins with a keyword of the record, so that it needs no clean-up.
bool begins_with_keyword(const record_kind & kind, const ustring & line);
/// True for the systems of which an agent record is valid: `set` accepts others too, on which no agent is
/// installed.
bool can_be_installed(const ustring & op_system);
/// The line with the part before its first "=", or all of it without one, in upper case: `line` itself if
/// that changes nothing, else a copy in `buffer`, which may be the line. Null if allocation fails.
const ustring * with_upper_key(const ustring & line, ustring & buffer);

} // namespace orvet

#endif
