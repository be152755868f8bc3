#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "operations.h"

namespace {

/// The values that are not as after the whole operation, nor, if it did not say so, as before.
std::string half_done(const fault_target & o, outcome now, outcome whole)
{
    std::string lines;
    values names = now.after;
    names.merge(values(whole.before));
    names.merge(values(whole.after));
    for (const auto & [name, text] : names) {
        const std::string value = now.after[name];
        const bool is_old = value == whole.before[name] || name.starts_with(o.gives_up);
        if (value != whole.after[name] && !(now.code != code::success && is_old))
            lines += name + ": " + value + "\n  but whole: " + whole.after[name] + "\n";
    }
    return lines;
}

/// The names of the calls without an entry line for each exit line, but for those `known`.
std::string unpaired(const std::string & lines, const std::string & known = "")
{
    std::map<std::string, int> open;
    std::istringstream source(lines_with("T[C]", lines));
    for (std::string mark, name, text; source >> mark >> name && std::getline(source, text);)
        open[name] += (text == " >>>> ENTRY>>>>>") - (text == " <<<<<<<<<< EXIT");
    std::string names;
    for (const auto & [name, count] : open)
        if (count != 0 && known.find(name) == std::string::npos)
            names += name + " ";
    return names;
}

class Fault : public testing::TestWithParam<fault_target> {};

TEST_P(Fault, LeavesNothingHalfDone)
{
    for (const bool traced : {true, false}) {
        const std::vector<outcome> & all = runs_of(GetParam(), traced);
        const outcome & whole = all.front();
        for (const outcome & each : all) {
            SCOPED_TRACE(each.fault + (traced ? ", traced" : ""));
            EXPECT_EQ(half_done(GetParam(), each, whole), "");
            EXPECT_EQ(each.streams, 0);
            EXPECT_EQ(each.blocks, 0);
            EXPECT_EQ(unpaired(each.lines, unpaired(whole.lines)), "");
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Of, Fault, testing::ValuesIn(operations), name_of);

const std::vector<outcome> & runs_of(const std::string & name)
{
    const auto named = [&](const fault_target & o) { return o.name == name; };
    return runs_of(*std::find_if(operations.begin(), operations.end(), named), false);
}

struct report {
    const char * name;
    const char * operation;
    const char * fault;
    int code;
    const char * lines; // of the log, and the error text of the configuration
};
void PrintTo(const report & row, std::ostream * out)
{
    *out << row.name;
}

const report reports[] = {
    {"the file can't be opened", "read", "open_stream, 1st call, once", code::open_failed,
     "L MSG0017 [F] Error opening the file scan, errno =\t13.\n"},
    {"its end can't be reached", "read", "seek, 1st call, once", code::seek_failed,
     "L MSG0019 [F] Error seeking in the file scan to offset 0 from origin 2.\n"},
    {"its size is unknown", "read", "tell, 1st call, once", code::position_failed, ""},
    {"a read ends early", "read", "read, 1st call, once", code::read_failed,
     "L MSG0037 [F] System error reading 3 bytes from file scan. Read 1 bytes.\n"},
    {"the stream can't be closed", "read", "close_stream, 1st call, once", code::close_failed,
     "L MSG0020 [F] Error closing the file scan\n"},
    {"a write ends early", "write", "write, 1st call, once", code::write_failed,
     "L MSG0018 [F] Error writing to file scan. Written bytes were 1, to write 46.\n"},
    {"the last bytes can't be written", "write", "flush, 1st call, once", code::close_failed,
     "L MSG0020 [F] Error closing the file scan\n"},
    {"what was written before reading is lost", "update", "flush, 2nd call, once", code::close_failed,
     "L MSG0020 [F] Error closing the file scan\n"},
    {"the file can't be renamed", "move", "rename_file, 1st call, once", code::rename_failed,
     "L MSG0016 [E] The execution of the command other returned rc -1, errno = 13\n"},
    {"the file can't be removed", "remove", "remove_file, 1st call, once", code::remove_failed,
     "L MSG0045 [W] An error has been encountered removing the file scan. Errno was 13\n"},
    {"no shell starts", "commands", "run_command, 1st call, once", -1,
     "L MSG0015 [I] Submitting the command  brod lscm [south] -w a text longer than what an object holds "
     "itself to Palisor 3.1.x.\nL MSG0016 [E] The execution of the command  brod lscm [south] -w a text "
     "longer "
     "than what an object holds itself returned rc -1, errno = 13\n"},
    {"an input file can't be read", "users", "read, 1st call, once", code::invalid_section,
     "L MSG0135 [Il Input file users reading started.\nL MSG0139 [I] Some error have been encountered "
     "reading and validating the file containing input information.\n"},
    {"the configuration can't be read", "configure", "read, 1st call, once", code::open_failed,
     "unable to open file [brod.cfg]"},
    {"the new text can't be written", "configure", "write, 1st call, once", code::write_failed,
     "i/o error writing file [brod.tmp]"},
    {"the permissions can't be copied", "configure", "copy_permissions, 1st call, once", code::write_failed,
     "i/o error writing file [brod.tmp]"},
    {"the new text does not reach the disk", "configure", "sync_stream, 1st call, once", code::write_failed,
     "i/o error writing file [brod.tmp]"},
    {"no backup can be made", "configure", "rename_file, 1st call, once", code::replace_failed,
     "error backing up [brod.cfg] file"},
    {"the new text can't take its place", "configure", "rename_held, 1st call, once", code::replace_failed,
     "error replacing [brod.cfg] file; recovery [succeeded]"},
    {"the old text can't come back", "configure", "rename_held, 1st call, from then on", code::replace_failed,
     "error replacing [brod.cfg] file; recovery [failed]"},
};

class Report : public testing::TestWithParam<report> {};

TEST_P(Report, NamesTheFailure)
{
    const std::vector<outcome> & all = runs_of(GetParam().operation);
    const auto struck = [](const outcome & each) { return each.fault == GetParam().fault; };
    const auto found = std::find_if(all.begin(), all.end(), struck);
    ASSERT_NE(found, all.end());
    EXPECT_EQ(found->code, GetParam().code);
    EXPECT_EQ(found->lines, GetParam().lines);
}

INSTANTIATE_TEST_SUITE_P(If, Report, testing::ValuesIn(reports), name_of);

/// The configuration is in its file, else in the backup.
std::string configuration(values all)
{
    return all[all.contains("file brod.cfg") ? "file brod.cfg" : "file brod.bak"];
}

TEST(Rewrite, LosesNoConfiguration)
{
    const std::vector<outcome> & all = runs_of("configure");
    const outcome & whole = all.front();
    for (const outcome & each : all) {
        SCOPED_TRACE(each.fault);
        const bool is_new = each.code == code::success;
        EXPECT_EQ(configuration(each.after), configuration(is_new ? whole.after : whole.before));
    }
}

const scenario rewrite("rewrite", [] {
    scan_cfg cfg("brod.cfg");
    cfg.load();
    fault(fault::calls, fault::death, std::atoi(std::getenv("step"))).work([&] {
        static_cast<void>(cfg.set_server(2));
    });
    std::printf("survived");
});

TEST(Rewrite, SurvivesADeathBeforeEachStep)
{
    const std::string old_text = "SERVER: one\nSERVER: two\nkey: value\n";
    const std::string new_text = "key: value\nSERVER: two\nSERVER: one\n";
    std::string output;
    for (int step = 1; output.find("survived") == std::string::npos; ++step) {
        SCOPED_TRACE("death before step " + std::to_string(step));
        write_file("brod.cfg", old_text);
        write_file("brod.bak", "older");
        set_variable("step", std::to_string(step).c_str());
        output = run_scenario("rewrite");

        EXPECT_EQ(scan_cfg::recover("brod.cfg"), code::success);
        const std::string text = read_text("brod.cfg");
        EXPECT_EQ(text, text == new_text ? new_text : old_text);
        scan_cfg again("brod.cfg");
        EXPECT_EQ(again.load(), code::success);
        EXPECT_EQ(again.set_server(2), code::success);
    }
    EXPECT_EQ(read_text("brod.bak"), new_text);
}

} // namespace
