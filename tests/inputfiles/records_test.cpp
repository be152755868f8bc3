#include "support.h"

#include <iterator>
#include <memory>

using namespace orvet;
using namespace orvet_test;

namespace {

template <class Record>
struct field {
    const ustring & (*get)(const Record & record);
    void (*put)(Record & record, const ustring & value);
};

// clang-format off

// Every field by its accessor and setter, in the order of the record's keywords.
#define FIELD(name) {[](const record & r) -> const ustring & { return r.name(); }, \
                     [](record & r, const ustring & value) { r.set_##name(value); }}
template <class Record>
struct layout;

template <>
struct layout<VXA_inst_info> {
    using record = VXA_inst_info;
    static constexpr int first_row = 0;
    static constexpr field<record> fields[] = {
        FIELD(op_system), FIELD(server_name), FIELD(server_ren_rgn), FIELD(gateway_ip_address),
        FIELD(gateway_port_number), FIELD(agent_name), FIELD(agent_port_number), FIELD(agent_inst_path),
        FIELD(images_server_name), FIELD(exported_dir), FIELD(mount_point), FIELD(mount_options),
        FIELD(export_options)};
};

template <>
struct layout<auth_profile_info> {
    using record = auth_profile_info;
    static constexpr int first_row = 14;
    static constexpr field<record> fields[] = {
        FIELD(usProfileName), FIELD(usManageAll), FIELD(usCMInstall), FIELD(usCMActivate), FIELD(usCMExecute),
        FIELD(usCMAuthorize), FIELD(usPreparation), FIELD(usPreparationModi), FIELD(usPreparationView),
        FIELD(usSend), FIELD(usRDR), FIELD(usQueues), FIELD(usQueuesManage), FIELD(usQueuesView),
        FIELD(usSysAdmin), FIELD(usSysAdminModi), FIELD(usSysAdminView), FIELD(usConfiguration),
        FIELD(usConfigurationModi), FIELD(usConfigurationView), FIELD(usPurgeRequests),
        FIELD(usManageRequestes)};
};

template <>
struct layout<user_info> {
    using record = user_info;
    static constexpr int first_row = 36;
    static constexpr field<record> fields[] = {FIELD(usUserName), FIELD(usProfileName)};
};
#undef FIELD

// clang-format on

template <class Record>
std::string values(const Record & record) {
    std::string text;
    for (const auto & each : layout<Record>::fields) text += text_of(each.get(record)) + "|";
    return text;
}

/// The marked keywords, each with the field's value; a field that left its default without a mark shows too.
template <class Record>
std::string shown(const Record & record) {
    std::string text;
    for (int row = 0; fip_names[row]; ++row) {
        const int index = row - layout<Record>::first_row;
        const bool own = index >= 0 && index < static_cast<int>(std::size(layout<Record>::fields));
        const std::string value = own ? text_of(layout<Record>::fields[index].get(record)) : "";
        if (record.fip(fip_names[row]))
            text += fip_names[row] + value + ";";
        else if (own && value != text_of(layout<Record>::fields[index].get(Record())))
            text += "?" + value + ";";
    }
    return text;
}

template <class Record>
void check_fields(const std::string & fresh) {
    Record by_setter, by_line;
    EXPECT_EQ(values(by_setter), fresh);
    std::string expected;
    int row = layout<Record>::first_row;
    for (const auto & each : layout<Record>::fields) {
        const std::string keyword = fip_names[row++];
        each.put(by_setter, ("WIN95" + keyword).c_str());
        EXPECT_EQ(by_line.set((keyword + "  WIN95" + keyword + " ").c_str()), 0) << keyword;
        expected += keyword + "WIN95" + keyword + ";";
        EXPECT_EQ(shown(by_setter), expected);
        EXPECT_EQ(shown(by_line), expected);
    }
    for (const char * stranger : {"FOO=", "USER", "user=", "", static_cast<const char *>(nullptr)}) {
        by_line.set_fip(stranger);
        EXPECT_EQ(by_line.fip(stranger), 0);
    }
    EXPECT_EQ(shown(by_line), expected);
}

TEST(Records, EachFieldHasItsDefaultKeywordSetterAndMark) {
    check_fields<VXA_inst_info>("||||9494|$(TARGET)|9495|c:\\corvan\\vxa||||||");
    check_fields<auth_profile_info>("|NO|NO|NO|NO|NO|NO|||NO|NO|NO|||NO|||NO|||NO|NO|");
    check_fields<user_info>("||");
}

struct set_case {
    const char * line;
    short code;
    const char * shown;     ///< a new record that was given the line
    const char * told = ""; ///< what the messages show of the line
};

template <class Record>
void check_set(const char * name, std::initializer_list<set_case> cases) {
    for (const set_case & each : cases) {
        Record record;
        const ustring line(each.line);
        transcript spoken(2);
        EXPECT_EQ(record.set(line), each.code) << each.line;
        const std::string told = each.told;
        const std::string trace = std::string("T[E] ") + name + "::set Invalid ";
        EXPECT_EQ(spoken.take(), each.code == 0 ? ""
                                 : each.code == 101
                                     ? "L MSG0136 [El The value <" + told + "> is invalid as operating system.\n" +
                                           trace + "operating system <" + told + "> found\n"
                                     : "L MSG0134 [Fl Keyword " + told +
                                           " is invalid in the currently read input file\n" + trace + "keyword <" +
                                           told + "> found\n")
            << each.line;
        EXPECT_EQ(shown(record), each.shown) << each.line;
        EXPECT_EQ(text_of(line), each.line);
    }
}

// clang-format off

TEST(Records, SetTakesALineOrLeavesTheRecord)
{
    check_set<VXA_inst_info>("VXA_inst_info", {
        {"server_name =  AbC ", 0, "SERVER_NAME=AbC;"},
        {"  mount_options = a = b", 0, "MOUNT_OPTIONS=a = b;"},
        {"SERVER_NAME=", 0, "SERVER_NAME=;"},
        {"SERVER_NAME=MOUNT_POINT= x", 0, "SERVER_NAME=MOUNT_POINT= x;MOUNT_POINT=x;"},
        {"MOUNT_POINT=SERVER_NAME=x", 0, "MOUNT_POINT=SERVER_NAME=x;"},
        {"SERVER_NAME=mount_point=x", 0, "SERVER_NAME=mount_point=x;"},
        {"OPERATING_SYSTEM=WIN95B", 0, "OPERATING_SYSTEM=WIN95B;"},
        {"OPERATING_SYSTEM=UVX", 0, "OPERATING_SYSTEM=UVX;"},
        {"OPERATING_SYSTEM= windows_nt ", 101, "", "windows_nt"},
        {"AGENT_NAME=$(HOSTNAME)", 0, "AGENT_NAME=;"},
        {"AGENT_NAME=$(HOSTNAME)s", 0, "AGENT_NAME=$(HOSTNAME)s;"},
        {"AGENT_NAME=$(hostname)", 0, "AGENT_NAME=$(hostname);"},
        {"target = x", 0, ""},
        {" server_name", 100, "", " server_name"},
        {"foo =a:b", 100, "", "foo "},
        {"USER=x", 100, "", "USER"},
        {"", 100, ""},
    });
    check_set<auth_profile_info>("auth_profile_info", {
        {"profile name= SEND=x ", 0, "PROFILE NAME=SEND=x;SEND=x;"},
        {"Preparation Modify=yes", 0, "PREPARATION MODIFY=yes;"},
        {"PROFILE NAME =x", 100, "", "PROFILE NAME =x"},
        {" SEND=x", 100, "", " SEND=x"},
        {"send", 100, "", "send"},
        {"foo:x=1", 100, "", "foo"},
    });
    check_set<user_info>("user_info", {
        {"USER=AUTHORIZATION PROFILE= x", 0, "USER=AUTHORIZATION PROFILE= x;AUTHORIZATION PROFILE=x;"},
        {"user=Jo", 0, "USER=Jo;"},
        {"AUTHORIZATION PROFILE=", 0, "AUTHORIZATION PROFILE=;"},
        {"USER =x", 100, "", "USER =x"},
        {"PROFILE NAME=x", 100, "", "PROFILE NAME=x"},
    });
    // A record's own field may serve as the line.
    user_info user;
    user.set_usUserName("USER=AUTHORIZATION PROFILE=a profile of some length");
    EXPECT_EQ(user.set(user.usUserName()), 0);
    EXPECT_EQ(values(user), "AUTHORIZATION PROFILE=a profile of some length|a profile of some length|");
}

// clang-format on

TEST(Records, TheirLinesStandInOrder) {
    VXA_inst_info agent;
    auth_profile_info profile;
    transcript spoken;
    agent.set(" agent_inst_path = d:\\a");
    profile.set("Profile Name=p");
    profile.validate();
    EXPECT_EQ(spoken.take(), R"(T[C] VXA_inst_info::set >>>> ENTRY>>>>>
T[I] VXA_inst_info::set line after key.to_upper is < AGENT_INST_PATH = d:\a>
T[I] VXA_inst_info::set line after trip of blanks is <AGENT_INST_PATH= d:\a>
T[C] VXA_inst_info::set in the switch
T[C] VXA_inst_info::set in the switch
T[C] VXA_inst_info::set in the switch.line is <d:\a>
T[C] VXA_inst_info::set after set
T[C] VXA_inst_info::set return data = 0
T[C] VXA_inst_info::set <<<<<<<<<< EXIT
T[C] auth_profile_info::set >>>> ENTRY>>>>>
T[I] auth_profile_info::set line after key.to_upper is <PROFILE NAME=p>
T[I] auth_profile_info::set line  is <p>
T[C] auth_profile_info::set return data = 0
T[C] auth_profile_info::set <<<<<<<<<< EXIT
T[C] auth_profile_info::validate >>>> ENTRY>>>>>
)");
}

template <class Record>
void check_validate(const std::vector<const char *> & marks, int result, const std::string & lines,
                    const char * op_system = nullptr) {
    Record record;
    for (const char * keyword : marks) record.set_fip(keyword);
    if (op_system)
        layout<Record>::fields[0].put(record, op_system);
    transcript spoken(1);
    EXPECT_EQ(record.validate(), result) << lines;
    EXPECT_EQ(spoken.take(), lines);
}

std::string missing(const std::string & keyword) {
    return "L MSG0137 [F] The mandatory keywork " + keyword + " was not supplied in the input file.\n";
}

std::string foreign(const std::string & keyword) {
    return "L MSG0138 [W] The keyword " + keyword +
           " specified in the input file is not allowed in the current context.\n";
}

TEST(Records, ValidateWeighsTheMarks) {
    const std::string bad_system = "T[E] VXA_inst_info::validate Invalid operating system <";
    std::vector<const char *> marks;
    check_validate<VXA_inst_info>(marks, 0, bad_system + ">\n");
    check_validate<VXA_inst_info>(marks, 0, bad_system + "UVX>\n", "UVX");
    for (int row : {1, 2, 3, 8, 9, 10}) { // each mandatory keyword is missed in its turn
        check_validate<VXA_inst_info>(marks, 0, missing(fip_names[row]), "WIN95");
        marks.push_back(fip_names[row]);
    }
    check_validate<VXA_inst_info>(marks, 1, "", "WINDOWS_NT4");
    marks.assign(fip_names, fip_names + 15);
    marks.push_back("USER=");
    check_validate<VXA_inst_info>(marks, 1, foreign("PROFILE NAME=") + foreign("USER="), "WIN95");
    check_validate<auth_profile_info>({}, 1, "");
    marks.assign(fip_names + 13, fip_names + 37);
    check_validate<auth_profile_info>(marks, 1, foreign("TARGET=") + foreign("USER="));
    check_validate<user_info>({}, 0, missing("USER="));
    check_validate<user_info>({"USER=", "SEND="}, 0, missing("AUTHORIZATION PROFILE="));
    check_validate<user_info>({"USER=", "SEND=", "AUTHORIZATION PROFILE="}, 1, foreign("SEND="));
}

TEST(Records, CopiesStandAloneAndClearGoesBack) {
    auth_profile_info profile;
    profile.set("PROFILE NAME=operators");
    profile.set("PREPARATION VIEW=a text longer than any short one");
    profile.set_fip("USER=");
    const std::string before = shown(profile);
    const std::unique_ptr<codable> copy(profile.clone());
    ustring text("former");
    profile.toString(text);
    EXPECT_EQ(text_of(text + "end"), "operators\nNO\nNO\nNO\nNO\nNO\nNO\nNO\nNO\nNO\nNO\nNO\nNO\nNO\nend");
    profile.clear();
    EXPECT_EQ(shown(profile), "");
    EXPECT_EQ(shown(static_cast<auth_profile_info &>(*copy)), before);
}

} // namespace
