#include "support.h"

namespace {

/// A case whose name ends with "each trace line" shows call lines too.
TEST(Topology, LoadsScanResults)
{
    expect_golden_cases("topology", [](const std::string & name, const std::string & text) {
        write_file("scan.txt", text);
        kt_file file(pathname("scan.txt"));
        ustring server("none");
        vector topv;
        file.open("r");
        file.find_section("[topology]");
        transcript lines(name.ends_with("each trace line") ? 0 : 1);
        short code = -1;
        lines.step("load_top", [&] { return code = file.load_top(server, topv); });
        lines.note("server " + text_of(server) + ", domains " + std::to_string(topv.size()));
        if (code == 0)
            lines.step("load_offsets", [&] { return file.load_offsets(topv); });
        EXPECT_EQ(file.close(), 0);
        for (unsigned i = 0; i < topv.size(); ++i) {
            const auto & domain = static_cast<top_entry &>(*topv[i]);
            const auto & section = static_cast<sof_entry &>(*domain.trg_sect_info[0]);
            lines.note(text_of(domain.domain_name) + " <" + text_of(domain.dep_path.text()) + "> " +
                       text_of(section.sect_name) + " " + std::to_string(section.sect_count) + " at " +
                       std::to_string(section.sect_offset));
        }
        return lines_without("kt_file::get_line", lines.take());
    });
}

TEST(Topology, ReportsTheDomainsThatItLeavesOut)
{
    write_file("scan.txt", "count = 4\na = x,A\nb = x,B,push,NONE\nc = x,C,push,A\nd = x,D,push,B\n");
    kt_file file(pathname("scan.txt"));
    const close_at_end closing(file);
    ASSERT_EQ(file.open("r"), 0);
    ustring server;
    vector topv;
    vector left_out;
    ASSERT_EQ(file.load_top(server, topv, left_out), 0);
    EXPECT_EQ(topv.size(), 2U);
    std::string orphans;
    for (const orphan_entry & each : items<orphan_entry>(left_out))
        orphans += result(each.number, each.domain_name, each.dependency) + "\n";
    EXPECT_EQ(orphans, "1 <B> <NONE>\n3 <D> <B>\n");
}

TEST(Topology, HasRoomForAShortsDomains)
{
    const auto load = [](const char * count) {
        write_file("scan.txt", std::string("count = ") + count + "\nr = a,R,push\n");
        kt_file file(pathname("scan.txt"));
        ustring server;
        vector topv;
        file.open("r");
        const short code = file.load_top(server, topv);
        EXPECT_EQ(file.close(), 0);
        return std::to_string(code) + ", " + std::to_string(topv.size());
    };
    EXPECT_EQ(load("32767"), "0, 32767"); // the last line stands for the rest
    EXPECT_EQ(load("32768"), "259, 0");
}

TEST(Topology, PassesOverWhatIsNoDomain)
{
    vector no_section;
    vector other_section;
    other_section.push_back(new sof_entry("[x]", static_cast<sof_entry::sectype>(1)));
    vector topv;
    topv.push_back(new top_entry("N", "longer", no_section));
    topv.push_back(new top_entry("O", "path", other_section));
    write_file("scan.txt", "[x]\ncount = 3\n");
    kt_file file(pathname("scan.txt"));
    file.open("r");
    transcript lines(1);
    EXPECT_EQ(file.load_offsets(topv), 0);
    EXPECT_EQ(lines.take(), "");
    EXPECT_EQ(text_of(static_cast<top_entry &>(*topv[0]).domain_name), "O"); // sorted with the rest
    topv.push_back(new ustring("text"));
    EXPECT_EQ(print_topv(topv, "label"), 0);
    EXPECT_EQ(lines.take(), "");
    EXPECT_EQ(file.close(), 0);
}

TEST(Topology, SortsByTheLengthOfThePathAlone)
{
    top_entry shorter("b", "zz", vector());
    top_entry longer("a", "aaa", vector());
    codable * const items[] = {&shorter, &longer};
    EXPECT_EQ(sort_on_dep_len(items, items + 1), -1);
    EXPECT_EQ(sort_on_dep_len(items + 1, items), 1);
    EXPECT_EQ(sort_on_dep_len(items, items), 0);
}

TEST(Topology, CopiesAreWhole)
{
    sof_entry section("[a]", static_cast<sof_entry::sectype>(1));
    section.sect_aux = "aux";
    section.sect_count = 2;
    section.sect_offset = 3;
    const std::unique_ptr<codable> copy(section.clone());
    const auto & same = static_cast<sof_entry &>(*copy);
    EXPECT_EQ(text_of(same.sect_aux), "aux");
    EXPECT_EQ(same.sect_count, 2);
    EXPECT_EQ(same.sect_offset, 3);
    EXPECT_EQ(same.sect_type, 1);
}

} // namespace
