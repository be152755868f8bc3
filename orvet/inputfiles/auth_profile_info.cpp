#include "orvet/inputfiles/auth_profile_info.h"

#include <iterator>
#include <utility>

#include "orvet/foundation/base/memory.h"
#include "orvet/inputfiles/record.h"

namespace orvet {

namespace {

// clang-format off

constexpr record_field fields[] = {
    {.fallback = "", .announce = announce_value}, // usProfileName
    {.fallback = "NO"},                           // usManageAll
    {.fallback = "NO"},                           // usCMInstall
    {.fallback = "NO"},                           // usCMActivate
    {.fallback = "NO"},                           // usCMExecute
    {.fallback = "NO"},                           // usCMAuthorize
    {.fallback = "NO"},                           // usPreparation
    {.fallback = "", .detail = true},             // usPreparationModi
    {.fallback = "", .detail = true},             // usPreparationView
    {.fallback = "NO"},                           // usSend
    {.fallback = "NO"},                           // usRDR
    {.fallback = "NO"},                           // usQueues
    {.fallback = "", .detail = true},             // usQueuesManage
    {.fallback = "", .detail = true},             // usQueuesView
    {.fallback = "NO"},                           // usSysAdmin
    {.fallback = "", .detail = true},             // usSysAdminModi
    {.fallback = "", .detail = true},             // usSysAdminView
    {.fallback = "NO"},                           // usConfiguration
    {.fallback = "", .detail = true},             // usConfigurationModi
    {.fallback = "", .detail = true},             // usConfigurationView
    {.fallback = "NO"},                           // usPurgeRequests
    {.fallback = "NO"},                           // usManageRequestes
};

// clang-format on

constexpr record_kind kind{
    .first_row = fip_row("PROFILE NAME="),
    .count = static_cast<int>(std::size(fields)),
    .fields = fields,
    .shown_up_to = u':',
};

} // namespace

void auth_profile_info::clear()
{
    clear_record({kind, texts_, fip_flags_});
}

void auth_profile_info::set_text(fip_row row, const ustring & value)
{
    set_field({kind, texts_, fip_flags_}, row - first_row, value);
}

short auth_profile_info::set(const ustring & line)
{
    const call_trace trace("auth_profile_info::set");
    return set_line(trace, {kind, texts_, fip_flags_}, line);
}

int auth_profile_info::validate() const
{
    const call_trace trace("auth_profile_info::validate");
    return weigh_marks(fip_flags_, auth_mandatory, auth_allowed.data());
}

void auth_profile_info::toString(ustring & text) const
{
    memory_watch watch;
    ustring lines;
    for (int i = 0; i < kind.count; ++i)
        if (!fields[i].detail)
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
