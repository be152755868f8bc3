#include <ostream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <orvet/foundation/explain.h>

using orvet::explain;

namespace {

std::vector<std::string> operations_of(orvet::explanation_range rows)
{
    std::vector<std::string> names;
    for (const orvet::explanation & row : rows)
        names.emplace_back(row.operation);
    return names;
}

struct question {
    const char * name;
    const char * text;
    const char * operation; ///< of the first answer; null if there is none
};

const question questions[] = {
    {"the number alone", "MSG0107", "kt_file::load_top"},
    {"lower case", "msg0107", "kt_file::load_top"},
    {"a whole line of the log", "2026-01-02 03:04:05  MSG0107 [E]  Discovered domain", "kt_file::load_top"},
    {"a console message of the same digits", "MSGI0001 [F] The environment", "environment::get_kt_inst_path"},
    {"a word that only begins like a number", "MSG of MSG0045", "kt_file::removef"},
    {"a code in digits", "259", "get_count"},
    {"a negative code in digits", "-1", "kt_file::find_section"},
    {"an unknown message", "MSG9999", nullptr},
    {"too few digits", "MSG010", nullptr},
    {"too many digits", "MSG01070", nullptr},
    {"an unknown code", "4711", nullptr},
    {"a code out of range", "99999999999999999999", nullptr},
    {"digits with a letter", "259x", nullptr},
    {"an empty text", "", nullptr},
    {"a null pointer", nullptr, nullptr},
};

void PrintTo(const question & row, std::ostream * out)
{
    *out << row.name;
}

class Explain : public testing::TestWithParam<question> {};

TEST_P(Explain, FindsTheFirstNumberInTheText)
{
    const orvet::explanation_range rows = explain(GetParam().text);
    EXPECT_STREQ(rows.empty() ? nullptr : rows.first->operation, GetParam().operation);
}

INSTANTIATE_TEST_SUITE_P(Questions, Explain, testing::ValuesIn(questions), [](const auto & row) {
    std::string name = row.param.name;
    for (char & c : name)
        c = c == ' ' ? '_' : c;
    return name;
});

TEST(ExplainCode, ListsEachOperationThatUsesTheNumber)
{
    EXPECT_EQ(operations_of(explain(-1)),
              (std::vector<std::string>{"kt_file::find_section", "brod_base::exec_brod_cmd"}));
}

TEST(ExplainCode, LeavesOutOtherOperations)
{
    EXPECT_EQ(operations_of(explain(250, "recover")), std::vector<std::string>{"scan_cfg::recover"});
    EXPECT_EQ(operations_of(explain(250, "scan_cfg::load")), std::vector<std::string>{"scan_cfg::load"});
    EXPECT_EQ(operations_of(explain("MSG0016", "copy_to")), std::vector<std::string>{"kt_file::copy_to"});
}

TEST(ExplainCode, FindsAnOperationAnywhereInAList)
{
    EXPECT_EQ(explain(250, "get_fips").begin(), explain(250, "kt_file::open").begin());
    EXPECT_FALSE(explain(250, "get_fips").empty());
}

TEST(ExplainCode, TakesNoPartOfANameForTheName)
{
    EXPECT_TRUE(explain(250, "pen").empty());
    EXPECT_TRUE(explain(250, "file::open").empty());
    EXPECT_TRUE(explain(250, "").empty());
}

TEST(ExplainTables, FindEachRowByItsOwnSubject)
{
    for (const auto & rows : {orvet::message_explanations(), orvet::code_explanations()})
        for (const orvet::explanation & row : rows) {
            const std::string subject = row.subject;
            const orvet::explanation_range found = explain(subject.substr(0, subject.find(' ')).c_str());
            EXPECT_LE(found.begin(), &row) << subject;
            EXPECT_GT(found.end(), &row) << subject;
        }
}

} // namespace
