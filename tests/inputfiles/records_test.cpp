#include "records.h"

namespace {

template <class Record>
std::string defaults()
{
    std::string text;
    for (const auto & each : record_fields<Record>::all)
        text += each.name + (" <" + orvet_test::text_of((Record().*each.get)())) + ">\n";
    return text;
}

TEST(Records, BeginWithTheirDefaults)
{
    expect_golden("record_defaults",
                  defaults<VXA_inst_info>() + defaults<auth_profile_info>() + defaults<user_info>());
}

template <class Record>
std::string after_each_setter()
{
    std::string text;
    for (const auto & each : record_fields<Record>::all) {
        Record record;
        (record.*each.put)("x");
        text += std::string("-- set_") + each.name + "\n" + differences(record);
    }
    return text;
}

TEST(Records, SettersStoreAndMarkTheirFieldAlone)
{
    expect_golden("record_setters", after_each_setter<VXA_inst_info>() +
                                        after_each_setter<auth_profile_info>() +
                                        after_each_setter<user_info>());
}

/// Gives each line to a record, those that begin with "+" as a mark alone, and validates it. Call lines are
/// shown where the case's name says so.
template <class Record>
std::string after_lines(const std::string & name, const std::string & text)
{
    Record record;
    transcript lines(name.ends_with("each trace line") ? 0 : 2);
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) {
        if (line.starts_with("+"))
            record.set_fip(line.c_str() + 1);
        else
            lines.step("set <" + line + ">", [&] { return record.set(line.c_str()); });
    }
    lines.step("validate", [&] { return record.validate(); });
    return lines.take() + differences(record);
}

TEST(Records, AgentLines)
{
    expect_golden_cases("agent_lines", after_lines<VXA_inst_info>);
}

TEST(Records, ProfileLines)
{
    expect_golden_cases("profile_lines", after_lines<auth_profile_info>);
}

TEST(Records, UserLines)
{
    expect_golden_cases("user_lines", after_lines<user_info>);
}

TEST(Records, UnknownMarksAreIgnored)
{
    user_info user;
    for (const char * keyword : {"FOO=", "USER", "user=", "", static_cast<const char *>(nullptr)}) {
        user.set_fip(keyword);
        EXPECT_EQ(user.fip(keyword), 0);
    }
    EXPECT_EQ(differences(user), "marked\n");
}

TEST(Records, CopiesAreTheirOwnAndClearTakesAllBack)
{
    auth_profile_info profile;
    user_info user;
    profile.set("SEND=YES");
    user.set_usUserName("USER=AUTHORIZATION PROFILE=a profile of some length");
    EXPECT_EQ(user.set(user.usUserName()), 0); // its own field as the line
    const std::unique_ptr<codable> profile_copy(profile.clone());
    const std::unique_ptr<codable> user_copy(user.clone());
    profile.clear();
    user.clear();
    EXPECT_EQ(differences(profile), "marked\n");
    EXPECT_EQ(differences(user), "marked\n");
    EXPECT_EQ(differences(static_cast<auth_profile_info &>(*profile_copy)), "usSend <YES>\nmarked SEND=\n");
    EXPECT_EQ(differences(static_cast<user_info &>(*user_copy)),
              "usUserName <AUTHORIZATION PROFILE=a profile of some length>\nusProfileName <a profile of some "
              "length>\n"
              "marked USER= AUTHORIZATION PROFILE=\n");
}

TEST(Records, ProfileTextHoldsTheMainSettings)
{
    auth_profile_info profile;
    for (const auto & each : record_fields<auth_profile_info>::all)
        (profile.*each.put)(each.name);
    ustring text("before");
    profile.toString(text);
    expect_golden("profile_text", text_of(text));
}

TEST(Records, TextsAdd)
{
    EXPECT_EQ(text_of(ustring("sum ") + "of two"), "sum of two");
}

} // namespace
