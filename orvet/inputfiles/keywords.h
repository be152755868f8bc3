#ifndef ORVET_INPUTFILES_KEYWORDS_H
#define ORVET_INPUTFILES_KEYWORDS_H

#include "orvet/foundation/base/name_list.h"

namespace orvet {

/// What the operating system of an agent record has to begin with; `validate` accepts the first two alone.
inline constexpr const char * op_system_names[] = {"WINDOWS_NT", "WIN95", "ZR7", "UVX", nullptr};

namespace detail {

/// What the trace shows of a value that is stored.
enum class value_trace { none, value, steps };

/// A keyword of a record. Everything that the library knows about it is in its row.
struct keyword_row {
    const char * name;         ///< with its "="
    const char * initial = ""; ///< the field's value in a new record
    bool mandatory = false;    ///< a section without it is not valid
    bool stored = true;        ///< false: accepted, but there is no field; after all rows with one
    bool detail = false;       ///< a setting that `toString` leaves out
    value_trace trace = value_trace::none;
    const char * const * allowed_prefixes = nullptr; ///< a value begins with one of them; null for any value
    const char * clearing_value = nullptr;           ///< the value that leaves the field empty
};

// clang-format off

// The keywords of each record, in the order of its fields, in which a line is compared with them.

inline constexpr keyword_row agent_keywords[] = {
    {.name = "OPERATING_SYSTEM=", .mandatory = true, .allowed_prefixes = op_system_names},
    {.name = "SERVER_NAME=", .mandatory = true},
    {.name = "SERVER_REN_RGN=", .mandatory = true},
    {.name = "GATEWAY_IP_ADDRESS=", .mandatory = true},
    {.name = "GATEWAY_PORT_NUMBER=", .initial = "9494"},
    {.name = "AGENT_NAME=", .initial = "$(TARGET)", .clearing_value = "$(HOSTNAME)"},
    {.name = "AGENT_PORT_NUMBER=", .initial = "9495"},
    {.name = "AGENT_INST_PATH=", .initial = "c:\\corvan\\vxa", .trace = value_trace::steps},
    {.name = "IMAGES_SERVER_NAME=", .mandatory = true},
    {.name = "EXPORTED_DIR=", .mandatory = true},
    {.name = "MOUNT_POINT=", .mandatory = true},
    {.name = "MOUNT_OPTIONS="},
    {.name = "EXPORT_OPTIONS="},
    {.name = "TARGET=", .stored = false},
};

inline constexpr keyword_row profile_keywords[] = {
    {.name = "PROFILE NAME=", .trace = value_trace::value},
    {.name = "MANAGE ALL TARGETS=", .initial = "NO"},
    {.name = "CHANGE MANAGEMENT INSTALL=", .initial = "NO"},
    {.name = "CHANGE MANAGEMENT ACTIVATE=", .initial = "NO"},
    {.name = "CHANGE MANAGEMENT EXECUTE=", .initial = "NO"},
    {.name = "CHANGE MANAGEMENT AUTHORIZE=", .initial = "NO"},
    {.name = "PREPARATION=", .initial = "NO"},
    {.name = "PREPARATION MODIFY=", .detail = true},
    {.name = "PREPARATION VIEW=", .detail = true},
    {.name = "SEND=", .initial = "NO"},
    {.name = "RETRIEVE, DELETE AND REPLACE=", .initial = "NO"},
    {.name = "QUEUES=", .initial = "NO"},
    {.name = "QUEUES MANAGE=", .detail = true},
    {.name = "QUEUES VIEW=", .detail = true},
    {.name = "SYSTEM ADMINISTRATION=", .initial = "NO"},
    {.name = "SYSTEM ADMINISTRATION MODIFY=", .detail = true},
    {.name = "SYSTEM ADMINISTRATION VIEW=", .detail = true},
    {.name = "CONFIGURATION=", .initial = "NO"},
    {.name = "CONFIGURATION MODIFY=", .detail = true},
    {.name = "CONFIGURATION VIEW=", .detail = true},
    {.name = "PURGE REQUESTS=", .initial = "NO"},
    {.name = "MANAGE ALL REQUESTS=", .initial = "NO"},
};

inline constexpr keyword_row user_keywords[] = {
    {.name = "USER=", .mandatory = true, .trace = value_trace::value},
    {.name = "AUTHORIZATION PROFILE=", .mandatory = true},
};

// clang-format on

/// Names as the members of an object, since a function can't return an array.
template <unsigned Count>
struct name_array {
    const char * names[Count] = {};
};

template <unsigned Count>
consteval unsigned count_of(const keyword_row (&)[Count])
{
    return Count;
}

/// How many keywords have a field. Those are the first ones.
template <unsigned Count>
consteval unsigned field_count(const keyword_row (&rows)[Count])
{
    unsigned count = 0;
    while (count < Count && rows[count].stored)
        ++count;
    return count;
}

/// The names of a record's fields.
template <const auto & Rows>
consteval auto names_of_fields()
{
    name_array<field_count(Rows)> fields;
    unsigned count = 0;
    for (const char *& name : fields.names)
        name = Rows[count++].name;
    return fields;
}

/// The names of a record's mandatory keywords, or of the others, closed by a null entry.
template <const auto & Rows, bool Mandatory>
consteval auto names_by_need()
{
    constexpr unsigned size = [] {
        unsigned count = 1;
        for (const keyword_row & row : Rows)
            count += row.mandatory == Mandatory;
        return count;
    }();
    name_array<size> list;
    unsigned count = 0;
    for (const keyword_row & row : Rows)
        if (row.mandatory == Mandatory)
            list.names[count++] = row.name;
    return list;
}

/// The names of all keywords, closed by a null entry.
consteval auto all_names()
{
    name_array<count_of(agent_keywords) + count_of(profile_keywords) + count_of(user_keywords) + 1> list;
    unsigned count = 0;
    for (const keyword_row & row : agent_keywords)
        list.names[count++] = row.name;
    for (const keyword_row & row : profile_keywords)
        list.names[count++] = row.name;
    for (const keyword_row & row : user_keywords)
        list.names[count++] = row.name;
    return list;
}

inline constexpr auto all_keywords = all_names();
template <const auto & Rows>
inline constexpr auto fields_of = names_of_fields<Rows>();
template <const auto & Rows, bool Mandatory>
inline constexpr auto keywords_by_need = names_by_need<Rows, Mandatory>();

} // namespace detail

/// The keywords of all input files, closed by a null entry. The position of a keyword is the index of its
/// mark in a record.
inline constexpr auto & fip_names = detail::all_keywords.names;

/// How many keywords there are: the row of the null entry.
inline constexpr int fip_count = int{sizeof fip_names / sizeof *fip_names} - 1;

///@{
/// The keywords that each record requires, and those that it allows besides; closed by a null entry.
inline constexpr auto & vxa_mandatory = detail::keywords_by_need<detail::agent_keywords, true>.names;
inline constexpr const char * vxa_allowed[] = {
    "GATEWAY_PORT_NUMBER=", "AGENT_PORT_NUMBER=", "AGENT_INST_PATH=", "AGENT_NAME=",
    "MOUNT_OPTIONS=",       "EXPORT_OPTIONS=",    "TARGET=",          nullptr,
};
inline constexpr auto & auth_mandatory = detail::keywords_by_need<detail::profile_keywords, true>.names;
inline constexpr auto & auth_allowed = detail::keywords_by_need<detail::profile_keywords, false>.names;
inline constexpr auto & user_mandatory = detail::keywords_by_need<detail::user_keywords, true>.names;
inline constexpr auto & user_allowed = detail::keywords_by_need<detail::user_keywords, false>.names;
///@}

namespace detail {

/// True when two lists hold the same names, in whatever order.
consteval bool same_names(const char * const * a, const char * const * b)
{
    int more = 0;
    for (const char * const * name = a; *name; ++name, ++more)
        if (!holds(b, *name))
            return false;
    for (; *b; ++b)
        --more;
    return more == 0;
}

/// True when each keyword ends in its only "=", as the reader of a line expects.
consteval bool each_ends_in_its_equals_sign(const char * const * names)
{
    for (; *names; ++names) {
        const char * at = *names;
        while (*at && *at != '=')
            ++at;
        if (!*at || at[1])
            return false;
    }
    return true;
}

void keyword_is_not_in_the_table(); // never defined: its name is the compiler's message

static_assert(same_names(vxa_allowed, keywords_by_need<agent_keywords, false>.names),
              "vxa_allowed, which has an order of its own, is not the agent's optional keywords");
static_assert(each_ends_in_its_equals_sign(fip_names), "a keyword has to end in its only =");
static_assert(field_count(agent_keywords) == count_of(agent_keywords) - 1,
              "keywords without a field come after the others");

} // namespace detail

/// The row of a keyword of `fip_names`, found at compile time; a keyword that is not in the table does not
/// compile. A null text is the row of the null entry.
class fip_row {
public:
    /// The row of that keyword.
    consteval fip_row(const char * keyword = nullptr) : row_(index_in(fip_names, keyword))
    {
        if (keyword && !fip_names[row_])
            detail::keyword_is_not_in_the_table();
    }
    /// The row as a number.
    constexpr operator int() const { return row_; }

private:
    int row_;
};

/// Which keywords a record was given: a mark of 0 or 1 for each row of `fip_names`.
class fip_marks {
public:
    /// Marks a keyword; any other text marks nothing.
    void set(const char * keyword) { set(index_in(fip_names, keyword)); }
    /// Marks a row; that of the null entry is never marked.
    void set(int row)
    {
        count_ += row < fip_count && !flags_[row];
        flags_[row] = row < fip_count;
    }
    /// The mark of a keyword; 0 for any other text.
    int operator[](const char * keyword) const { return flags_[index_in(fip_names, keyword)]; }
    /// The mark of a row.
    int operator[](int row) const { return flags_[row]; }
    /// How many keywords are marked.
    int count() const { return count_; }

private:
    int flags_[fip_count + 1] = {};
    int count_ = 0;
};

} // namespace orvet

#endif
