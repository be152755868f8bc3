#include "support.h"

#include <cstdio>

namespace {

namespace fs = std::filesystem;

/// Stands in for Brodan: prints the file "answer.txt".
const scenario answer("answer", [] {
    std::printf("%s", read_file("answer.txt").c_str());
    std::exit(read_file("answer.txt") == "refused\n" ? 8 : 0);
});

class Recording : public testing::Test {
protected:
    void SetUp() override
    {
        fs::create_directory("answers");
        brod_base::record_answers("answers");
        parameters_.set_ip_base_cmd(scenario_command("answer").c_str());
    }
    void TearDown() override
    {
        brod_base::record_answers("");
        parameters_.set_ip_base_cmd("");
        fs::remove_all("answers");
    }

    /// Asks the stand-in, which answers `text`.
    int ask(const std::string & command, const std::string & text, int to_output = 1)
    {
        write_file("answer.txt", text);
        brod_base brod(out_file_path("asked.out"), pathname());
        brod.set_brod_cmd(command.c_str(), 0);
        return brod.exec_brod_cmd(to_output, 1);
    }

    /// Plays the recorded answer back, and returns it.
    std::string play_back(const std::string & command)
    {
        parameters_.set_ip_base_cmd("dummy answers");
        write_file("brodan/migr/asked.out", "nothing");
        printed_by([&] { ask(command, ""); });
        parameters_.set_ip_base_cmd(scenario_command("answer").c_str());
        return read_text("brodan/migr/asked.out");
    }

    static const recorded_answer & last_answer()
    {
        const vector & answers = brod_base::recorded_answers();
        return static_cast<const recorded_answer &>(*answers[answers.size() - 1]);
    }

private:
    input_parms parameters_;
};

TEST_F(Recording, GivesTheSameAnswerInDummyMode)
{
    const std::string long_answer = std::string(20000, 'x') + "\xE9\n";
    ASSERT_EQ(ask("brod lstg -l", long_answer), 0);
    ASSERT_EQ(ask("brod lstg \\* -l -j OFFICE", "two\n"), 0);
    ASSERT_EQ(ask("brod ls APPS.A", "three\n"), 0);

    EXPECT_EQ(play_back("brod lstg -l"), long_answer);
    EXPECT_EQ(play_back("brod lstg \\* -l -j OFFICE"), "two\n");
    EXPECT_EQ(play_back("brod ls APPS.A"), "three\n");
}

TEST_F(Recording, TellsWhatWasRecorded)
{
    ask("brod lstg -l", "one\n");
    ask("brod lstg -l", "two\n");

    ASSERT_EQ(brod_base::recorded_answers().size(), 1U);
    EXPECT_EQ(text_of(last_answer().command), "brod lstg -l");
    EXPECT_EQ(text_of(last_answer().file.text()), native("answers/x_lstgl"));
    EXPECT_TRUE(last_answer().is_recorded());
}

TEST_F(Recording, ReplacesTheAnswerToTheSameCommand)
{
    ask("brod lstg -l", "one\n");
    ask("brod lstg -l", "two\n");

    EXPECT_EQ(read_text("answers/x_lstgl"), "two\n");
}

TEST_F(Recording, KeepsTheFirstAnswerWhereTwoCommandsShareAFile)
{
    ask("brod ls APPS.A", "one\n");
    ask("brod ls APPS.B", "two\n");

    EXPECT_EQ(read_text("answers/x_invalid"), "one\n");
    EXPECT_EQ(text_of(last_answer().reason), "the file holds the answer to another command: brod ls APPS.A");
}

struct unrecorded_row {
    const char * name;
    const char * command;
    const char * answer;
    int to_output;
    const char * reason;
};

const unrecorded_row unrecorded_rows[] = {
    {"the name is that of the parent directory", "brod lstg \\* -l -j ..", "a\n", 1,
     "the name of the file would lead out of the directory"},
    {"the name has a separator", "brod lstg \\* -l -j a/b", "a\n", 1,
     "the name of the file would lead out of the directory"},
    {"the name needs quotes", "brod lstg \\* -l -j A B", "a\n", 1,
     "the shell would not read the name of the file as one word"},
    {"the command fails", "brod lstg -l", "refused\n", 1, "the command failed with 8"},
    {"the output goes to the terminal", "brod lstg -l", "", 0, "the output did not go to a file"},
};

class NotRecorded : public Recording, public testing::WithParamInterface<unrecorded_row> {};

TEST_P(NotRecorded, LeavesNoFileAndTellsWhy)
{
    SCOPED_TRACE(GetParam().name);
    ask(GetParam().command, GetParam().answer, GetParam().to_output);

    EXPECT_TRUE(fs::is_empty("answers"));
    ASSERT_EQ(brod_base::recorded_answers().size(), 1U);
    EXPECT_EQ(text_of(last_answer().reason), GetParam().reason);
}

INSTANTIATE_TEST_SUITE_P(Rows, NotRecorded, testing::ValuesIn(unrecorded_rows));

TEST_F(Recording, KeepsAReadOnlyFile)
{
    write_file("answers/x_lstgl", "kept\n");
    fs::permissions("answers/x_lstgl", fs::perms::owner_read);

    EXPECT_EQ(ask("brod lstg -l", "new\n"), 0);

    EXPECT_EQ(read_text("answers/x_lstgl"), "kept\n");
    EXPECT_FALSE(last_answer().is_recorded());
    fs::permissions("answers/x_lstgl", fs::perms::owner_all);
}

TEST_F(Recording, LeavesNoHalfFileIfTheCopyFails)
{
    fs::create_directory("answers/recording.tmp");
    write_file("answers/x_lstgl", "kept\n");

    EXPECT_EQ(ask("brod lstg -l", "new\n"), 0);

    EXPECT_EQ(read_text("answers/x_lstgl"), "kept\n");
    EXPECT_FALSE(last_answer().is_recorded());
}

TEST_F(Recording, SurvivesADirectoryThatIsNotThere)
{
    brod_base::record_answers("nowhere");

    EXPECT_EQ(ask("brod lstg -l", "one\n"), 0);

    EXPECT_FALSE(last_answer().is_recorded());
    EXPECT_FALSE(fs::exists("nowhere"));
}

TEST_F(Recording, ChangesNoTraceAndNoLog)
{
    transcript lines;
    ask("brod lstg -l", "one\n");
    const std::string with_recording = lines.take();
    brod_base::record_answers("");
    ask("brod lstg -l", "one\n");

    EXPECT_EQ(lines.take(), with_recording);
}

TEST_F(Recording, RecordsNothingOnceItIsOff)
{
    brod_base::record_answers("");
    ask("brod lstg -l", "one\n");

    EXPECT_TRUE(fs::is_empty("answers"));
}

TEST(OutFilePath, IsCopiedByTheCommand)
{
    const brod_base brod(out_file_path("a.out"), out_file_path(""));

    EXPECT_EQ(text_of(brod.output_file().text()), native(test_directory().string() + "/brodan/migr/a.out"));
    EXPECT_EQ(text_of(brod.final_output_file().text()), "");
}

} // namespace
