#ifndef ORVET_TESTS_INPUTFILES_RECORDS_H
#define ORVET_TESTS_INPUTFILES_RECORDS_H

#include "support.h"

namespace orvet_test {

template <class Record>
struct field {
    const char * name;
    const ustring & (Record::*get)() const;
    void (Record::*put)(const ustring & value);
};

template <class Record>
struct record_fields;

#define FIELD(name)                                                                                          \
    {                                                                                                        \
#name, &record::name, &record::set_##name                                                            \
    }
template <>
struct record_fields<VXA_inst_info> {
    using record = VXA_inst_info;
    static constexpr field<record> all[] = {
        FIELD(op_system),           FIELD(server_name),  FIELD(server_ren_rgn),    FIELD(gateway_ip_address),
        FIELD(gateway_port_number), FIELD(agent_name),   FIELD(agent_port_number), FIELD(agent_inst_path),
        FIELD(images_server_name),  FIELD(exported_dir), FIELD(mount_point),       FIELD(mount_options),
        FIELD(export_options)};
};
template <>
struct record_fields<auth_profile_info> {
    using record = auth_profile_info;
    static constexpr field<record> all[] = {FIELD(usProfileName),
                                            FIELD(usManageAll),
                                            FIELD(usCMInstall),
                                            FIELD(usCMActivate),
                                            FIELD(usCMExecute),
                                            FIELD(usCMAuthorize),
                                            FIELD(usPreparation),
                                            FIELD(usPreparationModi),
                                            FIELD(usPreparationView),
                                            FIELD(usSend),
                                            FIELD(usRDR),
                                            FIELD(usQueues),
                                            FIELD(usQueuesManage),
                                            FIELD(usQueuesView),
                                            FIELD(usSysAdmin),
                                            FIELD(usSysAdminModi),
                                            FIELD(usSysAdminView),
                                            FIELD(usConfiguration),
                                            FIELD(usConfigurationModi),
                                            FIELD(usConfigurationView),
                                            FIELD(usPurgeRequests),
                                            FIELD(usManageRequestes)};
};
template <>
struct record_fields<user_info> {
    using record = user_info;
    static constexpr field<record> all[] = {FIELD(usUserName), FIELD(usProfileName)};
};
#undef FIELD

/// The fields of a record that differ from those of `other`, and its marks.
template <class Record>
std::string differences(const Record & record, const Record & other = Record())
{
    std::string text;
    for (const auto & each : record_fields<Record>::all)
        if ((record.*each.get)() != (other.*each.get)())
            text += each.name + (" <" + text_of((record.*each.get)())) + ">\n";
    text += "marked";
    for (const char * const * keyword = fip_names; *keyword; ++keyword)
        if (record.fip(*keyword) != 0)
            text += std::string(" ") + *keyword;
    return text + "\n";
}

} // namespace orvet_test

#endif
