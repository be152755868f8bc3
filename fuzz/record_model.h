#ifndef ORVET_FUZZ_RECORD_MODEL_H
#define ORVET_FUZZ_RECORD_MODEL_H

#include <algorithm>
#include <array>
#include <iterator>

#include "fuzz.h"

namespace fuzz {

template <class Record>
using accessor = const orvet::ustring & (Record::*)() const;

/// What the rules say of a kind of record. Its fields stand in the order of its rows of `fip_names`.
template <class Record>
struct kind;

// clang-format off

template <>
struct kind<orvet::VXA_inst_info> {
    using record = orvet::VXA_inst_info;
    static constexpr accessor<record> fields[] = {
        &record::op_system, &record::server_name, &record::server_ren_rgn, &record::gateway_ip_address,
        &record::gateway_port_number, &record::agent_name, &record::agent_port_number, &record::agent_inst_path,
        &record::images_server_name, &record::exported_dir, &record::mount_point, &record::mount_options,
        &record::export_options,
    };
    static constexpr std::size_t first_row = 0, mandatory[] = {0, 1, 2, 3, 8, 9, 10};
    static constexpr bool is_agent = true;
};

template <>
struct kind<orvet::auth_profile_info> {
    using record = orvet::auth_profile_info;
    static constexpr accessor<record> fields[] = {
        &record::usProfileName, &record::usManageAll, &record::usCMInstall, &record::usCMActivate,
        &record::usCMExecute, &record::usCMAuthorize, &record::usPreparation, &record::usPreparationModi,
        &record::usPreparationView, &record::usSend, &record::usRDR, &record::usQueues, &record::usQueuesManage,
        &record::usQueuesView, &record::usSysAdmin, &record::usSysAdminModi, &record::usSysAdminView,
        &record::usConfiguration, &record::usConfigurationModi, &record::usConfigurationView,
        &record::usPurgeRequests, &record::usManageRequestes,
    };
    static constexpr std::size_t first_row = 14;
    static constexpr std::array<std::size_t, 0> mandatory = {};
    static constexpr bool is_agent = false;
};

template <>
struct kind<orvet::user_info> {
    using record = orvet::user_info;
    static constexpr accessor<record> fields[] = {&record::usUserName, &record::usProfileName};
    static constexpr std::size_t first_row = 36, mandatory[] = {0, 1};
    static constexpr bool is_agent = false;
};

// clang-format on

/// All that shows of a record, and what a line makes of it.
template <class Record>
struct record_model {
    using rules = kind<Record>;
    static constexpr std::size_t count = std::size(rules::fields);

    std::array<std::string, count> texts;
    std::array<int, count> marks; // of its own keywords

    explicit record_model(const Record & record)
    {
        for (std::size_t i = 0; i < count; ++i) {
            texts[i] = bytes_of((record.*rules::fields[i])());
            marks[i] = record.fip(orvet::fip_names[rules::first_row + i]);
        }
    }
    bool operator==(const record_model &) const = default;

    short set(std::string text)
    {
        const record_model before = *this;
        const std::size_t equals = text.find('=');
        std::string key = upper(text.substr(0, equals));
        if (rules::is_agent && equals != std::string::npos)
            key = stripped(key);
        text = key + (equals == std::string::npos ? "" : text.substr(equals));
        bool matched = false;
        for (std::size_t i = 0; i < count; ++i) {
            const std::string keyword = orvet::fip_names[rules::first_row + i];
            if (!text.starts_with(keyword))
                continue;
            text = stripped(text.substr(keyword.size()));
            texts[i] = keyword == "AGENT_NAME=" && text == "$(HOSTNAME)" ? "" : text;
            marks[i] = 1;
            matched = true;
            if (keyword == "OPERATING_SYSTEM=" && !is_one_of(text, {"WINDOWS_NT", "WIN95", "ZR7", "UVX"}))
                return *this = before, short{101};
        }
        return matched || (rules::is_agent && text.starts_with("TARGET=")) ? 0 : 100;
    }

    bool validate() const
    {
        return (!rules::is_agent || is_one_of(texts[0], {"WINDOWS_NT", "WIN95"})) &&
               std::all_of(std::begin(rules::mandatory), std::end(rules::mandatory),
                           [&](std::size_t i) { return marks[i] == 1; });
    }

private:
    static bool is_one_of(const std::string & text, std::initializer_list<const char *> names)
    {
        return std::any_of(names.begin(), names.end(),
                           [&](const char * name) { return text.starts_with(name); });
    }
};

} // namespace fuzz

#endif
