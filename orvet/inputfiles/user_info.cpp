#include "orvet/inputfiles/user_info.h"

#include <iterator>

#include "orvet/foundation/base/memory.h"
#include "orvet/inputfiles/record.h"

namespace orvet {

namespace {

constexpr record_field fields[] = {
    {.fallback = "", .announce = announce_value}, // usUserName
    {.fallback = ""},                             // usProfileName
};

constexpr record_kind kind{
    .first_row = fip_row("USER="),
    .count = static_cast<int>(std::size(fields)),
    .fields = fields,
    .shown_up_to = u':',
};

} // namespace

void user_info::clear()
{
    clear_record({kind, texts_, fip_flags_});
}

void user_info::set_text(fip_row row, const ustring & value)
{
    set_field({kind, texts_, fip_flags_}, row - first_row, value);
}

short user_info::set(const ustring & line)
{
    const call_trace trace("user_info::set");
    return set_line(trace, {kind, texts_, fip_flags_}, line);
}

int user_info::validate() const
{
    const call_trace trace("user_info::validate");
    return weigh_marks(fip_flags_, user_mandatory, user_allowed);
}

codable * user_info::clone()
{
    return make<user_info>(*this);
}

} // namespace orvet
