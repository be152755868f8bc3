#ifndef ORVET_INPUTFILES_KEYWORDS_H
#define ORVET_INPUTFILES_KEYWORDS_H

#include <array>

#include "orvet/foundation/base/name_list.h"

namespace orvet {

// clang-format off

/// The keywords of all input files, closed by a null entry. The position of a keyword is the index of its mark
/// in a record; a record's own keywords stand together, in the order in which a line is held against them.
inline constexpr const char * fip_names[] = {
    // VXA_inst_info
    "OPERATING_SYSTEM=", "SERVER_NAME=", "SERVER_REN_RGN=", "GATEWAY_IP_ADDRESS=", "GATEWAY_PORT_NUMBER=",
    "AGENT_NAME=", "AGENT_PORT_NUMBER=", "AGENT_INST_PATH=", "IMAGES_SERVER_NAME=", "EXPORTED_DIR=",
    "MOUNT_POINT=", "MOUNT_OPTIONS=", "EXPORT_OPTIONS=", "TARGET=",
    // auth_profile_info
    "PROFILE NAME=", "MANAGE ALL TARGETS=", "CHANGE MANAGEMENT INSTALL=", "CHANGE MANAGEMENT ACTIVATE=",
    "CHANGE MANAGEMENT EXECUTE=", "CHANGE MANAGEMENT AUTHORIZE=", "PREPARATION=", "PREPARATION MODIFY=",
    "PREPARATION VIEW=", "SEND=", "RETRIEVE, DELETE AND REPLACE=", "QUEUES=", "QUEUES MANAGE=",
    "QUEUES VIEW=", "SYSTEM ADMINISTRATION=", "SYSTEM ADMINISTRATION MODIFY=",
    "SYSTEM ADMINISTRATION VIEW=", "CONFIGURATION=", "CONFIGURATION MODIFY=", "CONFIGURATION VIEW=",
    "PURGE REQUESTS=", "MANAGE ALL REQUESTS=",
    // user_info
    "USER=", "AUTHORIZATION PROFILE=",
    nullptr,
};

inline constexpr int fip_count = 38;

/// The row of a keyword of `fip_names`, looked up when it is compiled; one that is not in the table does not
/// compile. A null text gives the row of the null entry.
class fip_row {
public:
    consteval fip_row(const char * keyword = nullptr) : row_(index_in(fip_names, keyword))
    {
        if (keyword && !fip_names[row_])
            throw "no such keyword";
    }
    constexpr operator int() const { return row_; }

private:
    int row_;
};

// What each record demands and what else it allows; the lists are closed by a null entry.
inline constexpr fip_row vxa_mandatory[] = {
    "OPERATING_SYSTEM=", "SERVER_NAME=", "SERVER_REN_RGN=", "GATEWAY_IP_ADDRESS=", "IMAGES_SERVER_NAME=",
    "EXPORTED_DIR=", "MOUNT_POINT=", nullptr,
};
inline constexpr fip_row vxa_allowed[] = {
    "GATEWAY_PORT_NUMBER=", "AGENT_PORT_NUMBER=", "AGENT_INST_PATH=", "AGENT_NAME=", "MOUNT_OPTIONS=",
    "EXPORT_OPTIONS=", "TARGET=", nullptr,
};
inline constexpr fip_row auth_mandatory[] = {nullptr};
inline constexpr auto auth_allowed = []() consteval {
    std::array<fip_row, 23> list; // the record's own keywords, all of them
    for (unsigned i = 0; i < 22; ++i)
        list[i] = fip_names[fip_row("PROFILE NAME=") + i];
    return list;
}();
inline constexpr fip_row user_mandatory[] = {"USER=", "AUTHORIZATION PROFILE=", nullptr};
inline constexpr fip_row user_allowed[] = {nullptr};

/// What the operating system of an agent record may begin with; `validate` takes the first two alone.
inline constexpr const char * op_system_names[] = {"WINDOWS_NT", "WIN95", "ZR7", "UVX", nullptr};

// clang-format on

/// Which keywords a record has been given: a mark of 0 or 1 for each row of `fip_names`.
class fip_marks {
public:
    /// Marks a keyword; a text that is none marks nothing.
    void set(const char * keyword) { set(index_in(fip_names, keyword)); }
    void set(int row)
    {
        count_ += row < fip_count && !flags_[row];
        flags_[row] = row < fip_count;
    }
    /// The mark of a keyword; 0 for a text that is none.
    int operator[](const char * keyword) const { return flags_[index_in(fip_names, keyword)]; }
    int operator[](int row) const { return flags_[row]; }
    /// How many keywords are marked.
    int count() const { return count_; }

private:
    int flags_[fip_count + 1] = {};
    int count_ = 0;
};

} // namespace orvet

#endif
