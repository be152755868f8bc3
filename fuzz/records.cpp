// Each line of a file goes to the `set` of all three records, beside a model of the rules; once with the
// gates open and once shut, which must make no difference.
#include <array>
#include <cstring>

#include "fuzz.h"

namespace {

using orvet::ustring;
using namespace fuzz;

template <class Record>
using accessor = const ustring & (Record::*)() const;

/// What the rules say of one kind of record; its fields stand in the order of its rows of `fip_names`.
template <class Record>
struct kind;

template <>
struct kind<orvet::VXA_inst_info> {
    using record = orvet::VXA_inst_info;
    static constexpr accessor<record> fields[] = {
        &record::op_system,          &record::server_name,         &record::server_ren_rgn,
        &record::gateway_ip_address, &record::gateway_port_number, &record::agent_name,
        &record::agent_port_number,  &record::agent_inst_path,     &record::images_server_name,
        &record::exported_dir,       &record::mount_point,         &record::mount_options,
        &record::export_options,
    };
    static constexpr int first_row = 0;
    static constexpr bool is_agent = true;
};

template <>
struct kind<orvet::auth_profile_info> {
    using record = orvet::auth_profile_info;
    static constexpr accessor<record> fields[] = {
        &record::usProfileName,
        &record::usManageAll,
        &record::usCMInstall,
        &record::usCMActivate,
        &record::usCMExecute,
        &record::usCMAuthorize,
        &record::usPreparation,
        &record::usPreparationModi,
        &record::usPreparationView,
        &record::usSend,
        &record::usRDR,
        &record::usQueues,
        &record::usQueuesManage,
        &record::usQueuesView,
        &record::usSysAdmin,
        &record::usSysAdminModi,
        &record::usSysAdminView,
        &record::usConfiguration,
        &record::usConfigurationModi,
        &record::usConfigurationView,
        &record::usPurgeRequests,
        &record::usManageRequestes,
    };
    static constexpr int first_row = 14;
    static constexpr bool is_agent = false;
};

template <>
struct kind<orvet::user_info> {
    using record = orvet::user_info;
    static constexpr accessor<record> fields[] = {&record::usUserName, &record::usProfileName};
    static constexpr int first_row = 36;
    static constexpr bool is_agent = false;
};

/// All that shows of a record.
template <class Record>
struct state {
    static constexpr std::size_t count = std::size(kind<Record>::fields);
    std::array<std::string, count> texts;
    std::array<int, orvet::fip_count> marks;

    explicit state(const Record & record)
    {
        for (std::size_t i = 0; i < count; ++i)
            texts[i] = bytes_of((record.*kind<Record>::fields[i])());
        for (int row = 0; row < orvet::fip_count; ++row)
            marks[static_cast<std::size_t>(row)] = record.fip(orvet::fip_names[row]);
    }
    bool operator==(const state &) const = default;

    short set(std::string text)
    {
        const state before = *this;
        const std::size_t equals = text.find('=');
        std::string key = upper(text.substr(0, equals));
        if (kind<Record>::is_agent && equals != std::string::npos)
            key = stripped(key);
        text = key + (equals == std::string::npos ? "" : text.substr(equals));
        bool matched = false;
        for (std::size_t i = 0; i < count; ++i) {
            const std::size_t row = kind<Record>::first_row + i;
            const std::string keyword = orvet::fip_names[row];
            if (!text.starts_with(keyword))
                continue;
            text = stripped(text.substr(keyword.size()));
            texts[i] = keyword == "AGENT_NAME=" && text == "$(HOSTNAME)" ? "" : text;
            marks[row] = 1;
            matched = true;
            bool fits = keyword != "OPERATING_SYSTEM=";
            for (const char * const * name = orvet::op_system_names; *name; ++name)
                fits = fits || text.starts_with(*name);
            if (!fits)
                return *this = before, short{101};
        }
        return matched || (kind<Record>::is_agent && text.starts_with("TARGET=")) ? 0 : 100;
    }
};

template <class Record>
void take_lines(const std::vector<ustring> & lines)
{
    Record traced;
    Record silent;
    state<Record> expected(traced);
    for (const ustring & line : lines) {
        const short code = expected.set(bytes_of(line));
        set_gates(true);
        require(traced.set(line) == code);
        set_gates(false);
        require(silent.set(line) == code);
        require(state(traced) == expected && state(silent) == expected);
        require(traced.validate() == silent.validate());
    }
}

const target records("records", [](std::string_view input) {
    const std::vector<ustring> lines = texts_of(input);
    take_lines<orvet::VXA_inst_info>(lines);
    take_lines<orvet::auth_profile_info>(lines);
    take_lines<orvet::user_info>(lines);
});

} // namespace
