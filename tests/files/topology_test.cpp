#include "support.h"

#include <tuple>

using namespace orvet;
using namespace orvet_test;
namespace {
/// What a load leaves: codes, server, then a line a domain.
struct loaded {
    explicit loaded(const std::string & text, int trace_level = 6) {
        write_file("scan.txt", text);
        kt_file file(pathname("scan.txt"));
        EXPECT_EQ(file.open("r"), 0);
        EXPECT_EQ(file.find_section("[topology]"), 0);
        transcript said(trace_level);
        top_code = file.load_top(server, topv);
        if (top_code == 0)
            offsets_code = file.load_offsets(topv);
        lines = said.take();
        EXPECT_EQ(file.close(), 0);
        for (unsigned i = 0; i < topv.size(); ++i) names += text_of(static_cast<const top_entry &>(*topv[i]).domain_name) + " ";
    }
    short top_code = 0, offsets_code = -99;
    ustring server;
    vector topv;
    std::string names, lines;
};

TEST(Topology, LoadsWithItsWholeTrace) {
    const loaded result("[topology]\ncount = 2\nhq = any,HQ1\nnorth = any,NTH,push,HQ1\n\n[hq]\ncount = 1\nentry\n"
                        "[north]\ncount = 0\n",
                        0);
    EXPECT_EQ(result.top_code + result.offsets_code, 0);
    EXPECT_EQ(text_of(result.server), "HQ1_HQ1");
    const std::string path = native("HQ1_HQ1/NTH_NTH");
    const auto call = [](const std::string & name, const std::string & own, bool returns = true) {
        const std::string begin = "T[C] " + name + " ";
        return begin + ">>>> ENTRY>>>>>\n" + own + (returns ? begin + "return data = 0\n" : "") + begin + "<<<<<<<<<< EXIT\n";
    };
    const auto read = [&](const std::string & line) {
        return call("kt_file::get_line", "T[I] kt_file::get_line read line " + line + "\n", false);
    };
    const auto checkpoint = [&](const std::string & label, const std::string & hq, const std::string & north) {
        const std::string begin = "T[I] print_topv " + label + "-topv[";
        return call("print_topv", begin + "0] = <HQ1,> trg_sect_info = <[hq]," + hq + ">\n" + begin + "1] = <NTH," + path +
                                      "> trg_sect_info = <[north]," + north + ">\n");
    };
    const auto section = [&](const std::string & skipped, const std::string & name, int count, int offset) {
        const std::string n = std::to_string(count), at = std::to_string(offset);
        return call("kt_file::seek_section", skipped + read(name) + read("count = " + n) +
                                                 "T[I] kt_file::seek_section Section <" + name + "> found. Count = <" + n +
                                                 "> \n") +
               call("kt_file::get_pos", "") + "T[I] kt_file::load_offsets Loaded offset (" + at + ") for section (" + name +
               ") with (" + n + ") entries\nL MSG0114 [I]  Loading <" + n + "> targets info for domain <" + name + ">.\n";
    };
    const std::string top = "T[I] kt_file::load_top ";
    EXPECT_EQ(result.lines,
              call("kt_file::load_top",
                   read("count = 2") + top + "count = <2>\n" + read("hq = any,HQ1") + top + "Dep = <[hq] , HQ1 , > \n" +
                       read("north = any,NTH,push,HQ1") + top + "Dep = <[north] , NTH , " + path + "> \n" +
                       checkpoint("load_top_after_loading", "0,0", "0,0") + top + "Valid dependency found: <1,HQ1> by <0,HQ1>\n" +
                       checkpoint("load_top_after_depcheck", "0,0", "0,0")) +
                  call("kt_file::load_offsets", section(read(""), "[hq]", 1, 75) + section(read("entry"), "[north]", 0, 99) +
                                                    checkpoint("load_dom_after_loading", "1,75", "0,99") +
                                                    checkpoint("load_dom_after_qsort", "1,75", "0,99")));
}

/// A topology section of these lines; each key has an empty target section.
std::string topology(const std::vector<std::string> & domains) {
    std::string text = "[topology]\ncount = " + std::to_string(domains.size()) + "\n", sections;
    for (const std::string & domain : domains) {
        text += domain + "\n";
        sections += "[" + domain.substr(0, domain.find(" = ")) + "]\ncount = 0\n";
    }
    return text + sections;
}

TEST(Topology, TakesOutDomainsWhoseDependencyIsMissing) {
    const auto gone = [](int number, const std::string & name, const std::string & dependency) {
        return "L MSG0107 [E]  Discovered domain number <" + std::to_string(number) + "> with RGN <" + name +
               "> depends from unexisting domain <" + dependency + ">. All domain targets will be ignored.\n";
    };
    const auto odd = [](int number, const std::string & name, const std::string & mode) {
        return "L MSG0108 [W]  Discovered domain number <" + std::to_string(number) + "> with RGN <" + name +
               "> has an invalid mode <" + mode + "> (probably discovery should be started there). Domain is included anyhow.\n";
    };
    const std::tuple<const char *, std::vector<std::string>, std::string, std::string> cases[] = {
        {"a chain goes down to its end",
         {"r = a,R", "b = a,B,push,X", "c = a,C,push,B", "d = a,D,push,R"},
         "R D ",
         gone(1, "B", "X") + gone(2, "C", "B")},
        {"one in front of the removed stays", {"r = a,R", "c = a,C,push,B", "b = a,B,push,X"}, "R C ", gone(2, "B", "X")},
        {"the root is never tested", {"r = a,R,pull,X", "b = a,B,push"}, "R B ", ""},
        {"itself, one further down, each other",
         {"r = a,R", "b = a,B,push,B", "c = a,C,push,D", "d = a,D,push,C"},
         "R B C D ",
         ""},
        {"another case is another name", {"r = a,R", "b = a,B,push,r"}, "R ", gone(1, "B", "r")},
        {"the second of a name takes its place",
         {"r = a,R", "b = a,B,push,X", "b2 = a,B,push,R", "c = a,C,push,B"},
         "R B C ",
         gone(1, "B", "X")},
        {"both of a name go",
         {"r = a,R", "b = a,B,push,X", "b2 = a,B,push,Y", "c = a,C,push,B"},
         "R ",
         gone(1, "B", "X") + gone(2, "B", "Y") + gone(3, "C", "B")},
        {"an odd mode is told and stays",
         {"r = a,R", "b = a,BB,pull,R", "c = a,CCC"},
         "R CCC BB ",
         odd(1, "BB", "pull") + odd(2, "CCC", "")},
        {"equal lengths stay as in the file",
         {"r = a,R", "a = a,AAAA,push,R", "b = a,B,push,AAAA", "c = a,C,push,R", "d = a,D,push,R"},
         "R C D AAAA B ",
         ""},
        {"a percent sign is plain text", {"r%s%d = a,%s"}, "%s ", ""}};
    for (const auto & [what, domains, kept, log] : cases) {
        const loaded result(topology(domains));
        EXPECT_EQ(result.top_code + result.offsets_code, 0) << what;
        EXPECT_EQ(result.names, kept) << what;
        EXPECT_EQ(result.lines.substr(0, result.lines.find("L MSG0114")), log) << what;
    }
    // The trace tells the place in the vector, the log the number in the file.
    const loaded result(topology({"r = a,R", "b = a,B,push,X", "c = a,C,push,D", "d = a,D,push,D", "e = a,E,push,C"}), 1);
    std::string check = result.lines.substr(result.lines.find("T[E]"));
    check.erase(check.find("T[I] print_topv"));
    EXPECT_EQ(check, "T[E] kt_file::load_top Invalid domaind dependency found <1,B,X>\n" + gone(1, "B", "X") +
                         "T[I] kt_file::load_top Valid dependency found: <1,D> by <2,D>\n"
                         "T[I] kt_file::load_top Valid dependency found: <2,D> by <2,D>\n"
                         "T[I] kt_file::load_top Valid dependency found: <3,C> by <1,C>\n");
}

TEST(Topology, RefusesWhatItCantRead) {
    const std::string no_count = "L MSG0112 [E]  Error parsing section <topology> of file <scan.txt>. A \"count = "
                                 "<value>\" string was expected.\n";
    const auto missing = [](const std::string & head) {
        return "L MSG0113 [E]  Unable to locate section <" + head + "> in file <scan.txt>.\n";
    };
    const auto bad_line = [](const std::string & number) {
        return "L MSG0111 [E]  Error parsing line <" + number +
               "> of section <topology> of file <scan.txt>. A \"<key> = "
               "<value>\" string was expected.\n";
    };
    const std::string root = "[topology]\ncount = 2\nr = a,R\n", loading = "L MSG0114 [I]  Loading <";
    const std::tuple<std::string, int, int, std::string, std::string> cases[] = {
        {"[topology]", 259, -99, "", no_count},
        {"[topology]\ncount=1\nr = a,R\n", 259, -99, "", no_count},
        {"[topology]\ncount = 32768\nr = a,R\n", 259, -99, "", no_count},
        {"[topology]\ncount = 99999999999\nr = a,R\n", 259, -99, "", no_count},
        {"[topology]\ncount = -1\nr = a,R\n", 0, 0, "", ""},
        {"[topology]\ncount = many\n", 0, 0, "", ""},
        {"[topology]\ncount = 1\nbad\n", 258, -99, "", bad_line("0")},
        {root + "bad line\n", 258, -99, "R ", bad_line("1")},
        {root + "b = a,B,push\n[b]\ncount = 1\n[r]\ncount = 1\n", 0, 260, "R B ",
         loading + "1> targets info for domain <[r]>.\n" + missing("[b]")},
        {root + "b = a,B,push\n[r]\nno count\n", 0, 258, "R B ", missing("[r]")},
        {"[topology]\ncount = 3\nr = a,R,push\n", 0, 260, "R R R ", missing("[r]")}, // the last line stands for the rest
        {"[topology]\r\ncount = 1\r\nr = a,R\r\n[r]\r\ncount = x", 0, 0, "R ", loading + "0> targets info for domain <[r]>.\n"}};
    for (const auto & [text, top_code, offsets_code, names, log] : cases) {
        const loaded result(text);
        EXPECT_EQ(result.top_code, top_code) << text;
        EXPECT_EQ(result.offsets_code, offsets_code) << text;
        EXPECT_EQ(result.names, names) << text;
        EXPECT_EQ(text_of(result.server), names.empty() ? "" : "R_R") << text;
        EXPECT_EQ(result.lines, log) << text;
    }
}
} // namespace
