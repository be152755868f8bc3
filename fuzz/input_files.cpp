// Whole input files, and their lines one by one. The first byte chooses the kind of file, the rest is the
// file.
#include "fuzz.h"
using namespace orvet;

// clang-format off
constexpr std::pair<int, const char *> kinds[] = {{1, "TARGET="}, {2, "PROFILE NAME="}, {3, "USER="}, {1, "SERVER_NAME="}, {1, ""}, {2, "SEND="},
             {3, "AUTHORIZATION P"}, {4, "TARGET="}};

static std::vector<ustring> values(const VXA_inst_info & r) {
    return {r.op_system(), r.server_name(), r.server_ren_rgn(), r.gateway_ip_address(), r.gateway_port_number(),
            r.agent_name(), r.agent_port_number(), r.agent_inst_path(), r.images_server_name(), r.exported_dir(),
            r.mount_point(), r.mount_options(), r.export_options()}; }

static std::vector<ustring> values(const auth_profile_info & r) {
    return {r.usProfileName(), r.usManageAll(), r.usCMInstall(), r.usCMActivate(), r.usCMExecute(),
            r.usCMAuthorize(), r.usPreparation(), r.usPreparationModi(), r.usPreparationView(), r.usSend(), r.usRDR(),
            r.usQueues(), r.usQueuesManage(), r.usQueuesView(), r.usSysAdmin(), r.usSysAdminModi(),
            r.usSysAdminView(), r.usConfiguration(), r.usConfigurationModi(), r.usConfigurationView(),
            r.usPurgeRequests(), r.usManageRequestes()}; }

static std::vector<ustring> values(const user_info & r) { return {r.usUserName(), r.usProfileName()}; }
// clang-format on

/// All that shows of a record. What is in it comes from the file, and can be set in another one.
template <class Record>
static std::string described(const Record & record, const value & file)
{
    const std::vector<ustring> texts = values(record);
    const char * const * keyword = fip_names + (texts.size() == 13 ? 0 : texts.size() == 22 ? 14 : 36);
    Record copy;
    value all(record.validate());
    for (const ustring & text : texts) {
        const bool given = record.fip(*keyword);
        all.append(*keyword) += value(text) + (given ? "\n" : " is not given\n");
        expect(!given || file.has(value(text)), "a value is read byte for byte", file, text);
        const ustring bare = ustring(text).strip(ustring::strip_both, u' ');
        expect(!given || bare == text, "a value has no blanks around it", bare, text);
        copy.set(ustring(given ? *keyword : "").append(text));
        ++keyword;
    }
    expect(values(copy) == texts, "what is written is read back", all, "another record");
    return all;
}

template <class Record>
static void set_lines(const value & file)
{
    Record record;
    for (const std::string & line : lines_of(file)) {
        const std::vector<ustring> before = values(record);
        const short code = record.set(text_of(line));
        expect(code == 0 || values(record) == before, "a refused line changes nothing", "", line);
        show("code of set", code);
    }
    show("record", described(record, file));
}

void input_files(std::string_view input)
{
    const auto & [type, separator] = kinds[take_byte(input) % std::size(kinds)];
    write_file("input.tmp", input);
    file_input_parms parms;
    const short code = parms.get_fips("input.tmp", 1, separator, type);
    show("code", code);
    for (int i = 0; i < 5; ++i)
        show("agent", described(parms.input_info(i), input));
    const vector & records = parms.arSections();
    for (unsigned i = 0; i < records.size() && type == 2; ++i)
        show("profile", described(dynamic_cast<auth_profile_info &>(*records[i]), input));
    for (unsigned i = 0; i < records.size() && type == 3; ++i)
        show("user", described(dynamic_cast<user_info &>(*records[i]), input));
    unsigned sections = type == 1; // an agent's record 0 is that before the first section
    const std::vector<std::string> lines =
        lines_of(std::string("\n").append(input)); // the first is for no error
    for (const std::string & line : lines)
        sections += text_of(line).strip(ustring::strip_front, u' ').to_upper().begins_with(separator);
    const unsigned read = type == 1 ? static_cast<unsigned>(parms.index()) : records.size();
    if (code == 0 && *separator)
        expect_same("each section is a record", sections == 0 ? 1 : sections, read);
    expect_same("an error has its line", lines.at(static_cast<unsigned>(parms.error_line())),
                parms.error_text());
    set_lines<VXA_inst_info>(input);
    set_lines<auth_profile_info>(input);
    set_lines<user_info>(input);
}
