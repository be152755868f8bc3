#include "support.h"

#include <iterator>

namespace {
template <class Record>
struct field {
    const ustring & (Record::*get)() const;
    void (Record::*put)(const ustring & value);
};

template <class Record>
struct layout;

// clang-format off
// Every field by its accessor and setter, in the order of the record's keywords.
#define FIELD(name) {&record::name, &record::set_##name}
#define LAYOUT(type, row, ...)                                       \
    template <>                                                      \
    struct layout<type> {                                            \
        using record = type;                                         \
        static constexpr const char * name = #type;                  \
        static constexpr int first_row = row;                        \
        static constexpr field<record> fields[] = {__VA_ARGS__};     \
    }
LAYOUT(VXA_inst_info, 0, FIELD(op_system), FIELD(server_name), FIELD(server_ren_rgn), FIELD(gateway_ip_address),
       FIELD(gateway_port_number), FIELD(agent_name), FIELD(agent_port_number), FIELD(agent_inst_path),
       FIELD(images_server_name), FIELD(exported_dir), FIELD(mount_point), FIELD(mount_options), FIELD(export_options));
LAYOUT(auth_profile_info, 14, FIELD(usProfileName), FIELD(usManageAll), FIELD(usCMInstall), FIELD(usCMActivate),
       FIELD(usCMExecute), FIELD(usCMAuthorize), FIELD(usPreparation), FIELD(usPreparationModi), FIELD(usPreparationView),
       FIELD(usSend), FIELD(usRDR), FIELD(usQueues), FIELD(usQueuesManage), FIELD(usQueuesView), FIELD(usSysAdmin),
       FIELD(usSysAdminModi), FIELD(usSysAdminView), FIELD(usConfiguration), FIELD(usConfigurationModi),
       FIELD(usConfigurationView), FIELD(usPurgeRequests), FIELD(usManageRequestes));
LAYOUT(user_info, 36, FIELD(usUserName), FIELD(usProfileName));
// clang-format on
/// The marked keywords, each with the field's value; a field that left its default without a mark shows too.
template <class Record>
std::string shown(const Record & record)
{
    std::string text;
    for (int row = 0; fip_names[row]; ++row) {
        const auto index = static_cast<unsigned>(row - layout<Record>::first_row);
        const auto get =
            index < std::size(layout<Record>::fields) ? layout<Record>::fields[index].get : nullptr;
        const bool marked = record.fip(fip_names[row]) != 0;
        if (marked || (get && (record.*get)() != (Record().*get)()))
            text += (marked ? fip_names[row] : "?") + (get ? text_of((record.*get)()) : "") + ";";
    }
    return text;
}

template <class Record>
void check_fields(const std::string & fresh)
{
    Record by_setter, by_line;
    std::string expected, defaults;
    for (const auto & each : layout<Record>::fields)
        defaults += text_of((by_line.*each.get)()) + "|";
    EXPECT_EQ(defaults, fresh);
    int row = layout<Record>::first_row;
    for (const auto & each : layout<Record>::fields) {
        const std::string keyword = fip_names[row++];
        (by_setter.*each.put)(("WIN95" + keyword).c_str());
        EXPECT_EQ(by_line.set((keyword + "  WIN95" + keyword + " ").c_str()), 0) << keyword;
        expected += keyword + "WIN95" + keyword + ";";
        EXPECT_EQ(shown(by_setter) + shown(by_line), expected + expected);
    }
    for (const char * stranger : {"FOO=", "USER", "user=", "", static_cast<const char *>(nullptr)})
        by_line.set_fip(stranger);
    EXPECT_EQ(shown(by_line), expected);
}

TEST(Records, EachFieldHasItsDefaultKeywordSetterAndMark)
{
    check_fields<VXA_inst_info>("||||9494|$(TARGET)|9495|c:\\corvan\\vxa||||||");
    check_fields<auth_profile_info>("|NO|NO|NO|NO|NO|NO|||NO|NO|NO|||NO|||NO|||NO|NO|");
    check_fields<user_info>("||");
}

struct refused_line {
    const char * line;
    const char * told; ///< what the messages show of it
    short code = 100;
};

template <class Record>
void check_refused(std::initializer_list<refused_line> lines)
{
    for (const auto & [line, told, code] : lines) {
        Record record;
        transcript spoken(2);
        EXPECT_EQ(record.set(line), code) << line;
        const std::string name = layout<Record>::name, value = std::string("<") + told + "> ";
        EXPECT_EQ(spoken.take(), code == 101 ? "L MSG0136 [El The value " + value +
                                                   "is invalid as operating system.\nT[E] " + name +
                                                   "::set Invalid operating system " + value + "found\n"
                                             : "L MSG0134 [Fl Keyword " + std::string(told) +
                                                   " is invalid in the currently read input file\nT[E] " +
                                                   name + "::set Invalid keyword " + value + "found\n");
        EXPECT_EQ(shown(record), "") << line;
    }
}

// clang-format off
// What a line makes of a record stands beside a model, with the other inputs that are generated.
TEST(Records, SetTellsWhatItRefuses) {
    check_refused<VXA_inst_info>({
        {"OPERATING_SYSTEM= windows_nt ", "windows_nt", 101}, {"OPERATING_SYSTEM=SERVER_NAME=x", "SERVER_NAME=x", 101},
        {" server_name", " server_name"}, {"foo =a:b", "foo "}, {"USER=x", "USER"}, {"", ""}});
    check_refused<auth_profile_info>({{"PROFILE NAME =x", "PROFILE NAME =x"}, {" SEND=x", " SEND=x"}, {"foo:x=1", "foo"}});
    check_refused<user_info>({{"USER =x", "USER =x"}, {"PROFILE NAME=x", "PROFILE NAME=x"}});
    user_info user; // a record's own field may serve as the line
    user.set_usUserName("USER=AUTHORIZATION PROFILE=a profile of some length");
    EXPECT_EQ(user.set(user.usUserName()), 0);
    const std::unique_ptr<codable> copy(user.clone());
    user.clear();
    EXPECT_EQ(shown(user) + "|" + shown(static_cast<user_info &>(*copy)),
              "|USER=AUTHORIZATION PROFILE=a profile of some length;AUTHORIZATION PROFILE=a profile of some length;");
}
// clang-format on
TEST(Records, TheirLinesStandInOrder)
{
    VXA_inst_info agent;
    auth_profile_info profile;
    user_info user;
    EXPECT_EQ(told([&] { return agent.set(" agent_inst_path = d:\\a"); }),
              R"(T[C] VXA_inst_info::set >>>> ENTRY>>>>>
T[I] VXA_inst_info::set line after key.to_upper is < AGENT_INST_PATH = d:\a>
T[I] VXA_inst_info::set line after trip of blanks is <AGENT_INST_PATH= d:\a>
T[C] VXA_inst_info::set in the switch
T[C] VXA_inst_info::set in the switch
T[C] VXA_inst_info::set in the switch.line is <d:\a>
T[C] VXA_inst_info::set after set
T[C] VXA_inst_info::set return data = 0
T[C] VXA_inst_info::set <<<<<<<<<< EXIT
0)");
    EXPECT_EQ(told([&] { return profile.set("Profile Name=p"); }, 1),
              "T[I] auth_profile_info::set line after key.to_upper is <PROFILE NAME=p>\n"
              "T[I] auth_profile_info::set line  is <p>\n0");
    EXPECT_EQ(told([&] { return user.set("USER=u"); }, 1),
              "T[I] user_info::set line after key.to_upper is <USER=u>\nT[I] user_info::set line  is <u>\n0");
    EXPECT_EQ(told([&] { return profile.validate(); }),
              "T[C] auth_profile_info::validate >>>> ENTRY>>>>>\n1");
    EXPECT_EQ(text_of(ustring("sum ") + "of two"), "sum of two");
}

using keywords = std::vector<const char *>;

/// `refused`: the line that tells why; `foreign`: the marks that are warned of.
template <class Record>
void check_validate(Record record, const keywords & marks, const std::string & refused,
                    const keywords & foreign = {})
{
    for (const char * keyword : marks)
        record.set_fip(keyword);
    std::string lines = refused;
    for (const std::string keyword : foreign)
        lines += "L MSG0138 [W] The keyword " + keyword +
                 " specified in the input file is not allowed in the current context.\n";
    transcript spoken(1);
    EXPECT_EQ(record.validate(), refused.empty()) << lines;
    EXPECT_EQ(spoken.take(), lines);
}

std::string missing(const std::string & keyword)
{
    return "L MSG0137 [F] The mandatory keywork " + keyword + " was not supplied in the input file.\n";
}

TEST(Records, ValidateWeighsTheMarks)
{
    VXA_inst_info agent;
    keywords marks(fip_names, fip_names + 11), all(fip_names, fip_names + 15);
    const std::string bad_system = "T[E] VXA_inst_info::validate Invalid operating system <";
    check_validate(agent, marks, bad_system + ">\n");
    agent.set_op_system("UVX");
    check_validate(agent, marks, bad_system + "UVX>\n");
    agent.set_op_system("WINDOWS_NT4");
    check_validate(agent, marks, "");
    agent.set_op_system("WIN95");
    for (int row : {10, 9, 8, 3, 2, 1}) { // each mandatory keyword is missed in its turn
        marks.erase(std::find(marks.begin(), marks.end(), fip_names[row]));
        check_validate(agent, marks, missing(fip_names[row]));
    }
    all.push_back("USER=");
    check_validate(agent, all, "", {"PROFILE NAME=", "USER="});
    check_validate(auth_profile_info(), {}, "");
    check_validate(auth_profile_info(), {"USER="}, "", {"USER="});
    check_validate(auth_profile_info(), {fip_names + 13, fip_names + 37}, "", {"TARGET=", "USER="});
    check_validate(user_info(), {}, missing("USER="));
    check_validate(user_info(), {"USER=", "SEND="}, missing("AUTHORIZATION PROFILE="));
    check_validate(user_info(), {"USER=", "SEND=", "AUTHORIZATION PROFILE="}, "", {"SEND="});
}
} // namespace
