#include "orvet/inputfiles/auth_profile_info.h"

#include <utility>

#include "orvet/foundation/base/memory.h"
#include "orvet/inputfiles/record_internal.h"

namespace orvet {

auth_profile_info::auth_profile_info()
{
    set_initial_values(profile_kind, texts_);
}

void auth_profile_info::clear()
{
    clear_record({profile_kind, texts_, fip_flags_});
}

void auth_profile_info::set_text(fip_row row, const ustring & value)
{
    set_field({profile_kind, texts_, fip_flags_}, row, value);
}

const ustring & auth_profile_info::value(const char * keyword) const
{
    return field_of(profile_kind, texts_, keyword);
}

short auth_profile_info::set(const ustring & line)
{
    const call_trace trace("auth_profile_info::set");
    return set_line(trace, {profile_kind, texts_, fip_flags_}, line);
}

int auth_profile_info::validate() const
{
    const call_trace trace("auth_profile_info::validate");
    return check_keywords(profile_kind, fip_flags_);
}

void auth_profile_info::toString(ustring & text) const
{
    memory_watch watch;
    ustring lines;
    for (int i = 0; i < profile_kind.field_count; ++i)
        if (!profile_kind.keywords[i].detail)
            lines.append(texts_[i]).append("\n");
    if (!watch.failed())
        text = std::move(lines);
}

codable * auth_profile_info::clone()
{
    return make<auth_profile_info>(*this);
}

ustring operator+(const ustring & left, const char * right)
{
    ustring sum(left);
    sum.append(right);
    return sum;
}

} // namespace orvet
