// Each line of a file goes to the `set` of all three records, beside their model; once with the gates open
// and once shut, which must make no difference.
#include "record_model.h"

namespace {

using orvet::ustring;
using namespace fuzz;

template <class Record>
void take_lines(const std::vector<ustring> & lines)
{
    Record traced;
    Record silent;
    record_model<Record> expected(traced);
    for (const ustring & line : lines) {
        const short code = expected.set(bytes_of(line));
        set_gates(true);
        require(traced.set(line) == code && traced.validate() == expected.validate());
        set_gates(false);
        require(silent.set(line) == code && silent.validate() == expected.validate());
        require(record_model(traced) == expected);
    }
    require(record_model(silent) == expected);
}

const target records("records", [](std::string_view input) {
    const std::vector<ustring> lines = texts_of(input);
    take_lines<orvet::VXA_inst_info>(lines);
    take_lines<orvet::auth_profile_info>(lines);
    take_lines<orvet::user_info>(lines);
});

} // namespace
