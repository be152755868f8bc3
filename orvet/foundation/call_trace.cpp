#include "orvet/foundation/call_trace.h"

#include <cstdio>

#include "orvet/foundation/base/memory.h"

namespace orvet {

namespace {

constexpr std::string_view severity_texts[] = {" [C] ", " [I] ", " [W] ", " [E] ", " [F] "};

} // namespace

void call_trace::write(severity s, std::string_view format, const argument * values, std::size_t count) const
{
    const line_memory apart;
    trace::write_line(system_trace::wa(), severity_texts[static_cast<int>(s)], name_, format, values, count);
}

void detail::write_log(std::string_view format, const argument * values, std::size_t count)
{
    const line_memory apart;
    trace::write_line(log::wa(), " ", "", format, values, count);
}

void detail::write_console(std::string_view format, const argument * values, std::size_t count)
{
    const line_memory apart;
    std::fputs(format_message(format, values, count), stdout);
    std::fputc('\n', stdout);
    std::fflush(stdout);
}

} // namespace orvet
