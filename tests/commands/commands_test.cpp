#include "support.h"

#include <cerrno>
#include <cstdlib>

namespace {

const scenario speak("speak", [] {
    std::printf("out\n");
    std::fprintf(stderr, "err\n");
    std::exit(3);
});
const scenario open_files("open_files", print_open_files);

/// A text with the command of "speak" and the shell's command for printing as they are called here.
std::string shown(const std::string & text)
{
    return replaced(text,
                    {{scenario_command("speak"), "SPEAK"}, {"<cat ", "<PRINT "}, {"<type ", "<PRINT "}});
}

std::string in_migr(const char * name)
{
    return read_text(std::string("brodan/migr/") + name);
}

/// A command set whole, on "cmd.out".
struct test_command : brod_base {
    explicit test_command(const std::string & text)
        : brod_base(sset_out_file("cmd.out"), sset_out_file("final.tmp"))
    {
        set_brod_cmd(from_bytes(text), 2);
    }
};

TEST(Command, ReportsEachStep)
{
    input_parms ip;
    ip.set_ip_base_cmd(scenario_command("speak").c_str());
    ip.set_ip_file_name("final.ini");
    transcript lines;
    {
        brod_base_lscm brod("TARGET", "APPS.A");
        ip.set_ip_base_cmd("");
        ip.set_ip_file_name("");
        errno = ERANGE; // of before; the command leaves none
        lines.step("run", [&] { return brod.exec_brod_cmd(1, 1); });
        lines.step("set the output", [&] { brod.set_output_file("caf\xC3\xA9.out"); });
        lines.step("set the final output", [&] { brod.set_final_output_file("other.x"); });
        lines.step("set a command", [&] { brod.set_brod_cmd("exit 0", 0); });
        lines.step("run it", [&] { return brod.exec_brod_cmd(1, 0); });
        for (const char * name : {"a.d/final.x", "final", ".hidden.x"}) {
            brod.final_out_file().set_file_name(name);
            lines.step(std::string("build a final name from ") + name,
                       [&] { brod.build_final_out_file("new"); });
        }
        lines.note("output " + text_of(brod.output_file().text()) + ", " +
                   text_of(brod.out_file().file_name().text()));
        lines.note("final " + text_of(brod.final_output_file().text()));
        lines.note("--");
    }
    expect_golden("command", shown(lines_without("] kt_file", lines.take())));
    EXPECT_TRUE(fs::exists(fs::path(u8"brodan/migr/caf\xC3\xA9.out")));
}

TEST(Command, ResultIsTheTools)
{
    test_command brod("exit 0");
    EXPECT_EQ(brod.brod_cmd_rc(), 0);
    brod.set_brod_cmd_rc(7);
    EXPECT_EQ(brod.brod_cmd_rc(), 7);
}

const struct {
    const char * name;
    std::string command;
    int result;
    const char * out;
    const char * err;
} runs[] = {
    {"a success", "exit 0", 0, "", ""},
    {"a command of many bytes", std::string(3000, ' ') + "SPEAK", 3, "out\n", "err\n"},
    {"a command that is killed", killed_command ? killed_command : "exit 137", 137, "", ""},
    {"a command with a zero", std::string("exit 0\0 or not", 13), -1, "", ""},
};

TEST(Command, GivesExitValueAndStreams)
{
    ignore_children(true); // as whoever starts a tool may
    for (const auto & row : runs) {
        SCOPED_TRACE(row.name);
        write_file("brodan/migr/cmd.out", "");
        write_file("brodan/migr/broderr.out", "before\n");
        test_command brod(row.name == runs[1].name ? std::string(3000, ' ') + scenario_command("speak")
                                                   : row.command);
        EXPECT_EQ(brod.exec_brod_cmd(1, 1), row.result);
        EXPECT_EQ(in_migr("cmd.out"), row.out);
        EXPECT_EQ(in_migr("broderr.out"), std::string("before\n") + row.err);
        const auto run = [&] {
            std::printf("first ");
            brod.exec_brod_cmd(0, 1);
        };
        EXPECT_EQ(printed_by(run), std::string("first ") + row.out);
    }
    EXPECT_TRUE(ignore_children(false));
    EXPECT_NE(test_command("no_such_command_here").exec_brod_cmd(1, 1), 0);
}

TEST(Command, ClosesItsFilesAtTheEnd)
{
    for (kt_file & (brod_base::*file)() : {&brod_base::out_file, &brod_base::final_out_file}) {
        test_command brod("exit 0");
        ASSERT_EQ((brod.*file)().open("w"), 0);
        ASSERT_EQ((brod.*file)().write("x", 1), 0);
    }
    EXPECT_EQ(in_migr("cmd.out"), "x");
    EXPECT_EQ(in_migr("final.tmp"), "x");
    pathname & both = sset_out_file("both.out"); // deleted once
    const brod_base brod(both, both);
    EXPECT_EQ(portable(text_of(brod.output_file().text())), "DIR/brodan/migr/both.out");
    EXPECT_EQ(text_of(brod.output_file().text()), text_of(brod.final_output_file().text()));
}

const scenario clean("clean", [] {
    set_variable("ktxrmtf", "YES");
    input_parms ip;
    setloglevel(ip);
    std::FILE * const seen = std::fopen("inherited.txt", "w");
    auto brod = std::make_unique<test_command>(scenario_command("open_files"));
    brod->out_file().open("w");
    brod->exec_brod_cmd(0, 0);
    transcript lines(3);
    brod.reset();
    std::printf("%s", lines.take().c_str());
    std::fclose(seen);
});

TEST(Command, LeavesNoOpenFileToChildrenAndNoOutputIfAsked)
{
    const std::string printed = run_scenario("clean");
    EXPECT_NE(printed.find("inherited.txt"), std::string::npos) << printed;
    for (const char * own : {"cmd.out", "ktx1.trc", "ktx1.log"})
        EXPECT_EQ(printed.find(own), std::string::npos) << printed;
    EXPECT_EQ(lines_with("~", printed), "T[E] brod_base::~brod_base Remove temp files\n");
    EXPECT_EQ(in_migr("cmd.out"), "(no file)");
}

const example<const char *, std::string> canned_files[] = {
    {"targets", "BROD lstg -l>x 2>>y", "x_lstgl"},
    {"all targets", "brod lstg \\* -l -b", "x_lstglb"},
    {"a blank before the command", " brod lstg -l", "x_invalid"},
    {"routes", "cat /usr/lpp/brodan/db/routetab ", "x_lsroute"},
    {"not quite routes", "cat /usr/lpp/brodan/db/routeta", "x_invalid"},
    {"not quite targets", "brod lstg -", "x_invalid"},
    {"the configuration", "cat /usr/lpp/brodan/db/brod.cfg>x", "x_cfg"},
    {"a node", "cat /usr/lpp/brodan/db/snadscon/  NODE A>x", "xc_NODE A"},
    {"a group", "brod lstg \\* -l -j  GRP 2>>y", "xd_GRP 2"},
    {"no group", "brod lstg \\* -l -j", "x_invalid"},
};

TEST(DummyMode, KnowsTheCommandsOfItsFiles)
{
    expect_each(canned_files, [](const char * command) { return text_of(brod_base::canned_file(command)); });
}

const struct {
    const char * name;
    std::string command;
    const char * becomes; // null where nothing is printed
    const char * output;
} dummies[] = {
    {"a directory and a long command", "Dummy  canned brod lstg -l" + std::string(2000, 'x'),
     "canned/x_lstgl", "targets\n"},
    {"no directory", "dummy brod lstg -l", "brod/x_invalid", ""},
    {"one word", "dummy nothing", "x_invalid", ""},
    {"a blank before the word", " dummy canned brod lstg -l", nullptr, "before"},
    {"a zero in the command", std::string("dummy brod\0 lstg -l", 19), nullptr, "before"},
};

TEST(DummyMode, AnswersFromCannedFiles)
{
    fs::create_directory("canned");
    write_file("canned/x_lstgl", "targets\n");
    for (const auto & row : dummies) {
        SCOPED_TRACE(row.name);
        write_file("brodan/migr/cmd.out", "before");
        test_command brod(row.command);
        int result = -7;
        std::string printed;
        const auto run = [&] { printed = printed_by([&] { result = brod.exec_brod_cmd(0, 0); }); };
        printed_as_error_by(run);
        const std::string line =
            std::string(row.becomes ? row.becomes : "") + " > DIR/brodan/migr/cmd.out> \n";
        EXPECT_EQ(shown(portable(printed)),
                  row.becomes ? "Dummy call: <" + row.command + "> becomes <PRINT " + line : "");
        EXPECT_EQ(result == 0, in_migr("cmd.out") == "targets\n");
        EXPECT_EQ(in_migr("cmd.out"), row.output);
    }
}

TEST(Listings, NameTheirCommandsAndFiles)
{
    const brod_base_ls ls("APPS.A");
    const brod_base_lscm lscm("TARGET", "APPS.A");
    EXPECT_EQ(text_of(ls.brod_cmd()), " brod ls APPS.A");
    EXPECT_EQ(text_of(lscm.brod_cmd()), " brod lscm APPS.A -w TARGET");
    EXPECT_EQ(portable(text_of(ls.output_file().text())), "DIR/brodan/migr/cattmp.out");
    EXPECT_EQ(portable(text_of(lscm.output_file().text())), "DIR/brodan/migr/hsttmp.out");
    EXPECT_EQ(text_of(ls.final_output_file().text()), ""); // "-ini" is not given
}

/// A case whose name begins with "no file" has none.
TEST(Listings, ReadTheLocalName)
{
    expect_golden_cases("local_names", [](const std::string & name, const std::string & listing) {
        transcript lines;
        brod_base_ls brod("APPS.A");
        lines.take();
        fs::remove("brodan/migr/cattmp.out");
        if (!name.starts_with("no file"))
            write_file("brodan/migr/cattmp.out", listing);
        lines.step("set_local_name", [&] { brod.set_local_name(); });
        lines.note("<" + text_of(brod.get_local_name().text()) + "> of " + text_of(brod.get_global_name()));
        return lines_without("] kt_file", lines.take());
    });
}

TEST(Listings, KeepTheLastNameWhereALaterListingHasNone)
{
    brod_base_ls brod("APPS.A");
    for (const char * listing : {"Local name: a\n", "other\n"}) {
        write_file("brodan/migr/cattmp.out", listing);
        brod.set_local_name();
    }
    EXPECT_EQ(text_of(brod.get_local_name().text()), "a");
}

} // namespace
