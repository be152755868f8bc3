#include "orvet/inputfiles/user_info.h"

#include "orvet/foundation/base/memory.h"
#include "orvet/inputfiles/record_internal.h"

namespace orvet {

user_info::user_info()
{
    set_initial_values(user_kind, texts_);
}

void user_info::clear()
{
    clear_record({user_kind, texts_, fip_flags_});
}

void user_info::set_text(fip_row row, const ustring & value)
{
    set_field({user_kind, texts_, fip_flags_}, row, value);
}

const ustring & user_info::value(const char * keyword) const
{
    return field_of(user_kind, texts_, keyword);
}

short user_info::set(const ustring & line)
{
    const call_trace trace("user_info::set");
    return set_line(trace, {user_kind, texts_, fip_flags_}, line);
}

int user_info::validate() const
{
    const call_trace trace("user_info::validate");
    return check_keywords(user_kind, fip_flags_);
}

codable * user_info::clone()
{
    return make<user_info>(*this);
}

} // namespace orvet
