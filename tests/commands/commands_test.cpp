#include "support.h"

#include <cerrno>
#include <cstdlib>

namespace {
namespace fs = std::filesystem;
using text_pair = std::pair<std::string, std::string>;

const scenario speak("speak", [] {
    std::printf("out\n");
    std::fprintf(stderr, "err\n");
    std::exit(3);
});
const scenario open_files("open_files", print_open_files);

/// The text as it is on every system: slashes, names for what differs, without the files' own lines.
std::string shown(const std::string & text)
{
    const std::string all = replaced(text, {{scenario_command("speak"), "SPEAK"},
                                            {"\\", "/"},
                                            {"<cat ", "<PRINT "},
                                            {"<type ", "<PRINT "},
                                            {"errno was 0", "errno was N"},
                                            {"errno = 0", "errno = N"}});
    return replaced(without({"] kt_file"}, all),
                    {{(test_directory() / "brodan").generic_string(), "BRODAN"}});
}

std::string in_migr(const char * name)
{
    return read_text(std::string("brodan/migr/") + name);
}

/// A command on "cmd.out", set whole.
struct test_command : brod_base {
    explicit test_command(const std::string & text)
        : brod_base(sset_out_file("cmd.out"), sset_out_file("x.tmp"))
    {
        set_brod_cmd(from_bytes(text), 2);
    }
};

TEST(Command, TellsWhatItDoes)
{
    input_parms ip;
    ip.set_ip_base_cmd(scenario_command("speak").c_str());
    transcript lines;
    brod_base_lscm brod("TARGET", "APPS.A");
    ip.set_ip_base_cmd("");
    errno = ERANGE; // of before; the command leaves none
    EXPECT_EQ(brod.exec_brod_cmd(1, 1), 3);
    const std::string all = lines.take();
    EXPECT_EQ(all.find("errno = " + std::to_string(ERANGE)), std::string::npos);
    EXPECT_EQ(shown(all), R"(T[C] sset_out_file >>>> ENTRY>>>>>
T[C] sset_out_file >>>> ENTRY>>>>>
T[C] brod_base_lscm::brod_base_lscm(target_name, gname) >>>> ENTRY>>>>>
T[C] brod_base::set_brod_cmd >>>> ENTRY>>>>>
T[I] brod_base::set_brod_cmd Command before conversion is <SPEAK brod lscm APPS.A -w TARGET>
T[C] brod_base::os_brod_cmd >>>> ENTRY>>>>>
T[I] brod_base::set_brod_cmd Command after conversion is <SPEAK brod lscm APPS.A -w TARGET>
T[C] brod_base::set_brod_cmd <<<<<<<<<< EXIT
T[C] brod_base_lscm::brod_base_lscm(target_name, gname) <<<<<<<<<< EXIT
T[C] brod_base::exec_brod_cmd >>>> ENTRY>>>>>
T[C] sset_out_file >>>> ENTRY>>>>>
T[I] brod_base::exec_brod_cmd Submit the command -->SPEAK brod lscm APPS.A -w TARGET>BRODAN/migr/hsttmp.out 2>>BRODAN/migr/broderr.out<--
L MSG0015 [I] Submitting the command SPEAK brod lscm APPS.A -w TARGET>BRODAN/migr/hsttmp.out 2>>BRODAN/migr/broderr.out to Palisor 3.1.x.
T[E] brod_base::exec_brod_cmd The return code was 3 errno was N
L MSG0016 [E] The execution of the command SPEAK brod lscm APPS.A -w TARGET>BRODAN/migr/hsttmp.out 2>>BRODAN/migr/broderr.out returned rc 3, errno = N
T[C] brod_base::exec_brod_cmd <><><><><> QUITTING
T[C] brod_base::exec_brod_cmd return data = 3
T[C] brod_base::exec_brod_cmd <<<<<<<<<< EXIT
)");
    trace::set_level(system_trace::wa(), 1);
    brod.set_output_file("caf\xC3\xA9.out");
    brod.set_final_output_file("other.x");
    for (const char * name : {"a.d/final.x", "final", ".hidden.x"}) {
        brod.final_out_file().set_file_name(name);
        brod.build_final_out_file("new");
    }
    EXPECT_EQ(shown(lines.take()),
              R"(T[I] brod_base::set_output_file The path for brod commands output is BRODAN/migr/café.out
T[I] brod_base::set_final_output_file The final path for brod commands output is BRODAN/migr/other.x
T[I] brod_base::build_final_out_file usFile  is <a.new>
T[I] brod_base::build_final_out_file The final path for brod commands output is a.new
T[I] brod_base::build_final_out_file usFile  is <new>
T[I] brod_base::build_final_out_file The final path for brod commands output is new
T[I] brod_base::build_final_out_file The final path for brod commands output is .hidden.x
)");
    brod.set_brod_cmd("exit 0", 0);
    EXPECT_EQ(brod.exec_brod_cmd(1, 0), 0);
    EXPECT_TRUE(fs::exists(fs::u8path("brodan/migr/caf\xC3\xA9.out")));
    EXPECT_EQ(text_of(brod_base_ls("x").final_output_file().text()), ""); // "-ini" was not given
    EXPECT_EQ((brod.set_brod_cmd_rc(static_cast<short>(brod.brod_cmd_rc() + 7)), brod.brod_cmd_rc()),
              7); // from 0
    EXPECT_EQ(shown(text_of(brod.out_file().file_name().text())), "BRODAN/migr/hsttmp.out");
}

// clang-format off
TEST(Command, GivesExitValueAndStreams) {
    const struct { std::string command; int result; const char * out = "", * err = ""; } rows[] = { // -2: not 0
        {"exit 0", 0}, {std::string(3000, ' ') + scenario_command("speak"), 3, "out\n", "err\n"},
        {"no_such_command_here", -2, "", nullptr}, {killed_command ? killed_command : "exit 137", 137},
        {std::string("exit 0\0 or not", 13), -1}};
    ignore_children(true); // as whoever starts a tool may
    for (const auto & [command, result, out, err] : rows) {
        write_file("brodan/migr/cmd.out", "");
        write_file("brodan/migr/broderr.out", "before\n");
        test_command brod(command);
        const int given = brod.exec_brod_cmd(1, 1);
        EXPECT_TRUE(result == -2 ? given != 0 : given == result) << command << given;
        EXPECT_EQ(in_migr("cmd.out"), out) << command;
        EXPECT_TRUE(!err || in_migr("broderr.out") == std::string("before\n") + err) << command;
        EXPECT_EQ(printed_by([&] { std::printf("first "), brod.exec_brod_cmd(0, 1); }), std::string("first ") + out);
    }
    EXPECT_TRUE(ignore_children(false));
    test_command brod("exit 3 ");
    const std::string said = told([&] { return brod.exec_brod_cmd(1, 1); }, 3);
    EXPECT_NE(said.find("rc 3, errno = 0\n"), std::string::npos) << said;
}
// clang-format on
const scenario clean("clean", [] {
    set_variable("ktxrmtf", "YES");
    input_parms ip;
    setloglevel(ip);
    std::FILE * const seen = std::fopen("inherited.txt", "w");
    auto brod = std::make_unique<test_command>(scenario_command("open_files"));
    brod->out_file().open("w");
    brod->exec_brod_cmd(0, 0);
    std::printf("%s", told([&] { return brod.reset(), 0; }, 3).c_str());
    std::fclose(seen);
});

TEST(Command, LeavesNoOpenFileToChildrenAndNoFileBehindIfAsked)
{
    for (kt_file & (brod_base::*get)() : {&brod_base::out_file, &brod_base::final_out_file}) {
        test_command brod("exit 0");
        EXPECT_EQ(sum({(brod.*get)().open("w"), (brod.*get)().write("x", 1)}), 0);
    }
    EXPECT_EQ(in_migr("cmd.out") + in_migr("x.tmp"), "xx"); // closed
    pathname & both = sset_out_file("both.out");            // deleted once
    EXPECT_EQ(brod_base(both, both).final_output_file().text().length(),
              (test_directory() / "brodan/migr/both.out").string().size());
    const std::string inherited = run_scenario("clean");
    EXPECT_NE(inherited.find("inherited.txt"), std::string::npos) << inherited;
    for (const char * own : {"cmd.out", "ktx1.trc", "ktx1.log"})
        EXPECT_EQ(inherited.find(own), std::string::npos) << inherited;
    EXPECT_NE(inherited.find("T[E] brod_base::~brod_base Remove temp files\n"), std::string::npos)
        << inherited;
    EXPECT_EQ(in_migr("cmd.out"), "(no file)");
}

// clang-format off
TEST(DummyMode, AnswersFromCannedFiles) {
    const text_pair files[] = {
        {"BROD lstg -l>x 2>>y", "x_lstgl"}, {"brod lstg \\* -l -b", "x_lstglb"}, {" brod lstg -l", "x_invalid"},
        {"cat /usr/lpp/brodan/db/routetab ", "x_lsroute"}, {"cat /usr/lpp/brodan/db/brod.cfg>x", "x_cfg"},
        {"cat /usr/lpp/brodan/db/snadscon/  NODE A>x", "xc_NODE A"},
        {"brod lstg \\* -l -j  GRP 2>>y", "xd_GRP 2"}, {"brod lstg \\* -l -j", "x_invalid"}};
    for (const auto & [command, file] : files)
        EXPECT_EQ(text_of(brod_base::canned_file(command.c_str())), file) << command;
    fs::create_directory("canned");
    write_file("canned/x_lstgl", "targets\n");
    const text_pair runs[] = {{"Dummy  canned brod lstg -l" + std::string(2000, 'x'), "canned/x_lstgl"},
                              {"dummy brod lstg -l", "brod/x_invalid"}, {"dummy nothing", "x_invalid"}};
    for (const auto & [command, file] : runs) {
        test_command brod(command);
        const bool found = file == "canned/x_lstgl";
        transcript lines(5, 0);
        EXPECT_EQ(shown(printed_by([&] { EXPECT_EQ(brod.exec_brod_cmd(0, 0) == 0, found); })),
                  "Dummy call: <" + command + "> becomes <PRINT " + file + " > BRODAN/migr/cmd.out> \n");
        EXPECT_EQ(in_migr("cmd.out"), found ? "targets\n" : "");
        EXPECT_EQ(lines.take().find("L MSG0015 [I] Submitting the command " + command.substr(0, 900)), 0U);
    }
    for (const std::string & none : {std::string(" dummy canned brod lstg -l"), std::string("dummy brod\0 lstg -l", 19)})
        EXPECT_EQ(printed_by([&] { test_command(none).exec_brod_cmd(1, 1); }), "");
}

TEST(Listings, ReadTheLocalName) {
    transcript lines;
    brod_base_ls brod("APPS.A");
    EXPECT_EQ(text_of(brod.brod_cmd()), " brod ls APPS.A");
    const text_pair listings[] = {
        {"Global name: A\r\nLOCAL NAME:   plain $(repository)\r\n", "plain $(repository)"},
        {std::string("zero\0Local name: no\n Local name: no\n", 36), "plain $(repository)"},
        {"Local name: $(REPOSITORY)a$(FILEPATH)", "BRODAN/reposa$(FILEPATH)"}, {"Local name: $(FILEPATH)", "BRODAN"},
        {"Local name: $(FILEPATH)/$(REPOSITORY)a", "BRODAN/reposa"},
        {"Local name:first\nLocal name: in front $(FILEPATH)//a", "BRODAN/a"},
        {"Local name:$(FILEPATH)x\nLocal name: \nLocal name:y\n", ""}};
    for (const auto & [listing, name] : listings) {
        write_file("brodan/migr/cattmp.out", listing);
        lines.take();
        brod.set_local_name();
        EXPECT_EQ(shown(text_of(brod.get_local_name().text())), name) << listing;
    }
    brod.out_file().close();
    fs::remove("brodan/migr/cattmp.out");
    brod.set_local_name();
    EXPECT_EQ(shown(lines.take()), R"(T[C] brod_base::set_local_name >>>> ENTRY>>>>>
T[I] brod_base::set_local_name read local name <$(FILEPATH)x>
T[C] resolve_tokens >>>> ENTRY>>>>>
T[I] resolve_tokens resolve tokens in <$(FILEPATH)x>
T[I] resolve_tokens return <BRODAN/x>
T[C] resolve_tokens <<<<<<<<<< EXIT
T[I] brod_base::set_local_name read local name <>
T[E] brod_base::set_local_name Local name for object <APPS.A> not found.
T[C] brod_base::set_local_name <><><><><> QUITTING
T[C] brod_base::set_local_name >>>> ENTRY>>>>>
L MSG0017 [F] Error opening the file BRODAN/migr/cattmp.out, errno =	N.
T[C] brod_base::set_local_name <><><><><> QUITTING
)");
}
// clang-format on
} // namespace
