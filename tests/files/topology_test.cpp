#include "support.h"

using namespace orvet;
using namespace orvet_test;

namespace {

/// What a load leaves: codes, server, then a line a domain.
struct loaded {
    short top_code = 0;
    short offsets_code = -99;
    ustring server;
    vector topv;
    std::string lines;

    std::string domains() const {
        std::string text;
        for (unsigned i = 0; i < topv.size(); ++i) {
            const auto & domain = static_cast<const top_entry &>(*topv[i]);
            const auto & section = static_cast<const sof_entry &>(*domain.trg_sect_info[0]);
            text += text_of(domain.domain_name) + " " + text_of(domain.dep_path.text()) + " " +
                    text_of(section.sect_name) + " " + std::to_string(section.sect_count) + " " +
                    std::to_string(section.sect_offset) + "\n";
        }
        return text;
    }
};

void load(loaded & result, const std::string & text, int trace_level = 6) {
    write_file("scan.txt", text);
    kt_file file(pathname("scan.txt"));
    EXPECT_EQ(file.open("r"), 0);
    EXPECT_EQ(file.find_section("[topology]"), 0);
    transcript lines(trace_level);
    result.top_code = file.load_top(result.server, result.topv);
    if (result.top_code == 0)
        result.offsets_code = file.load_offsets(result.topv);
    result.lines = lines.take();
    EXPECT_EQ(file.close(), 0);
}

constexpr char sample[] = "[topology]\n"
                          "count = 3\n"
                          "hq = any,HQ1\n"
                          "north = any,NTH,push,HQ1\n"
                          "south = any,STH,push,NTH\n"
                          "\n"
                          "[hq]\n"
                          "count = 2\n"
                          "entry 1\n"
                          "entry 2\n"
                          "[north]\n"
                          "count = 0\n"
                          "[south]\n"
                          "count = 1\n"
                          "entry 3\n";

TEST(Topology, LoadsTheSampleWithItsWholeTrace) {
    loaded result;
    load(result, sample, 1);
    EXPECT_EQ(result.top_code, 0);
    EXPECT_EQ(result.offsets_code, 0);
    EXPECT_EQ(text_of(result.server), "HQ1_HQ1");
    const std::string north = native("HQ1_HQ1/NTH_NTH");
    const std::string south = native("NTH_NTH/STH_STH");
    EXPECT_EQ(result.domains(), "HQ1  [hq] 2 100\nNTH " + north + " [north] 0 134\nSTH " + south + " [south] 1 152\n");
    const auto checkpoint = [&](const std::string & label, const char * hq, const char * nth, const char * sth) {
        const std::string begin = "T[I] print_topv " + label + "-topv[";
        return begin + "0] = <HQ1,> trg_sect_info = <[hq]," + hq + ">\n" + begin + "1] = <NTH," + north +
               "> trg_sect_info = <[north]," + nth + ">\n" + begin + "2] = <STH," + south +
               "> trg_sect_info = <[south]," + sth + ">\n";
    };
    const auto read = [](const std::string & line) { return "T[I] kt_file::get_line read line " + line + "\n"; };
    EXPECT_EQ(result.lines,
              read("count = 3") + "T[I] kt_file::load_top count = <3>\n" + read("hq = any,HQ1") +
                  "T[I] kt_file::load_top Dep = <[hq] , HQ1 , > \n" + read("north = any,NTH,push,HQ1") +
                  "T[I] kt_file::load_top Dep = <[north] , NTH , " + north + "> \n" + read("south = any,STH,push,NTH") +
                  "T[I] kt_file::load_top Dep = <[south] , STH , " + south + "> \n" +
                  checkpoint("load_top_after_loading", "0,0", "0,0", "0,0") +
                  "T[I] kt_file::load_top Valid dependency found: <1,HQ1> by <0,HQ1>\n"
                  "T[I] kt_file::load_top Valid dependency found: <2,NTH> by <1,NTH>\n" +
                  checkpoint("load_top_after_depcheck", "0,0", "0,0", "0,0") + read("") + read("[hq]") +
                  read("count = 2") +
                  "T[I] kt_file::seek_section Section <[hq]> found. Count = <2> \n"
                  "T[I] kt_file::load_offsets Loaded offset (100) for section ([hq]) with (2) entries\n"
                  "L MSG0114 [I]  Loading <2> targets info for domain <[hq]>.\n" +
                  read("entry 1") + read("entry 2") + read("[north]") + read("count = 0") +
                  "T[I] kt_file::seek_section Section <[north]> found. Count = <0> \n"
                  "T[I] kt_file::load_offsets Loaded offset (134) for section ([north]) with (0) entries\n"
                  "L MSG0114 [I]  Loading <0> targets info for domain <[north]>.\n" +
                  read("[south]") + read("count = 1") +
                  "T[I] kt_file::seek_section Section <[south]> found. Count = <1> \n"
                  "T[I] kt_file::load_offsets Loaded offset (152) for section ([south]) with (1) entries\n"
                  "L MSG0114 [I]  Loading <1> targets info for domain <[south]>.\n" +
                  checkpoint("load_dom_after_loading", "2,100", "0,134", "1,152") +
                  checkpoint("load_dom_after_qsort", "2,100", "0,134", "1,152"));
}

/// A topology section of these lines; each key has an empty target section unless `sections` is false.
std::string topology(const std::vector<std::string> & domains, bool sections = true) {
    std::string text = "[topology]\ncount = " + std::to_string(domains.size()) + "\n";
    for (const std::string & domain : domains) text += domain + "\n";
    for (const std::string & domain : domains)
        if (sections)
            text += "[" + domain.substr(0, domain.find(" = ")) + "]\ncount = 0\n";
    return text;
}

std::string names(const loaded & result) {
    std::string text;
    for (unsigned i = 0; i < result.topv.size(); ++i)
        text += text_of(static_cast<const top_entry &>(*result.topv[i]).domain_name) + " ";
    return text;
}

TEST(Topology, TakesOutDomainsWhoseDependencyIsMissing) {
    const auto gone = [](int number, const std::string & name, const std::string & dependency) {
        return "L MSG0107 [E]  Discovered domain number <" + std::to_string(number) + "> with RGN <" + name +
               "> depends from unexisting domain <" + dependency + ">. All domain targets will be ignored.\n";
    };
    const struct {
        const char * what;
        std::vector<std::string> domains;
        std::string kept;
        std::string log;
    } cases[] = {
        {"a chain goes down to its end",
         {"r = a,R", "b = a,B,push,X", "c = a,C,push,B", "d = a,D,push,R"},
         "R D ",
         gone(1, "B", "X") + gone(2, "C", "B")},
        {"one in front of the removed stays",
         {"r = a,R", "c = a,C,push,B", "b = a,B,push,X"},
         "R C ",
         gone(2, "B", "X")},
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
         "L MSG0108 [W]  Discovered domain number <1> with RGN <BB> has an invalid mode <pull> (probably "
         "discovery "
         "should be started there). Domain is included anyhow.\n"
         "L MSG0108 [W]  Discovered domain number <2> with RGN <CCC> has an invalid mode <> (probably "
         "discovery "
         "should be started there). Domain is included anyhow.\n"},
        {"a percent sign is plain text", {"r%s%d = a,%s"}, "%s ", ""},
    };
    for (const auto & each : cases) {
        loaded result;
        load(result, topology(each.domains));
        EXPECT_EQ(result.top_code, 0) << each.what;
        EXPECT_EQ(result.offsets_code, 0) << each.what;
        EXPECT_EQ(names(result), each.kept) << each.what;
        EXPECT_EQ(result.lines.substr(0, result.lines.find("L MSG0114")), each.log) << each.what;
    }
}

TEST(Topology, TracesThePlaceInTheVectorAndTheNumberInTheFile) {
    loaded result;
    load(result, topology({"r = a,R", "b = a,B,push,X", "c = a,C,push,D", "d = a,D,push,D", "e = a,E,push,C"}), 1);
    std::string check = result.lines.substr(result.lines.find("T[E]"));
    check.erase(check.find("T[I] print_topv"));
    EXPECT_EQ(check, "T[E] kt_file::load_top Invalid domaind dependency found <1,B,X>\n"
                     "L MSG0107 [E]  Discovered domain number <1> with RGN <B> depends from unexisting domain <X>. "
                     "All domain targets will be ignored.\n"
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
    const std::string root = "[topology]\ncount = 2\nr = a,R\n";
    const struct {
        std::string text;
        short top_code, offsets_code;
        std::string domains;
        std::string server;
        std::string log;
    } cases[] = {
        {"[topology]", 259, -99, "", "", no_count},
        {"[topology]\ncount=1\nr = a,R\n", 259, -99, "", "", no_count},
        {"[topology]\ncount = 32768\nr = a,R\n", 259, -99, "", "", no_count},
        {"[topology]\ncount = 99999999999\nr = a,R\n", 259, -99, "", "", no_count},
        {"[topology]\ncount = -1\nr = a,R\n", 0, 0, "", "", ""},
        {"[topology]\ncount = many\n", 0, 0, "", "", ""},
        {root + "bad line\n", 258, -99, "R ", "R_R",
         "L MSG0111 [E]  Error parsing line <1> of section <topology> of file <scan.txt>. A \"<key> = "
         "<value>\" "
         "string was expected.\n"},
        {"[topology]\ncount = 1\nbad\n", 258, -99, "", "",
         "L MSG0111 [E]  Error parsing line <0> of section <topology> of file <scan.txt>. A \"<key> = "
         "<value>\" "
         "string was expected.\n"},
        {root + "b = a,B,push\n[b]\ncount = 1\n[r]\ncount = 1\n", 0, 260, "R B ", "R_R",
         "L MSG0114 [I]  Loading <1> targets info for domain <[r]>.\n" + missing("[b]")},
        {root + "b = a,B,push\n[r]\nno count\n", 0, 258, "R B ", "R_R", missing("[r]")},
        // More lines are counted than there are: the last one stands for the rest.
        {"[topology]\ncount = 3\nr = a,R\n", 0, 260, "R R R ", "R_R", missing("[r]")},
        {"[topology]\r\ncount = 1\r\nr = a,R\r\n[r]\r\ncount = x", 0, 0, "R ", "R_R",
         "L MSG0114 [I]  Loading <0> targets info for domain <[r]>.\n"},
    };
    for (const auto & each : cases) {
        loaded result;
        load(result, each.text);
        EXPECT_EQ(result.top_code, each.top_code) << each.text;
        EXPECT_EQ(result.offsets_code, each.offsets_code) << each.text;
        EXPECT_EQ(names(result), each.domains) << each.text;
        EXPECT_EQ(text_of(result.server), each.server) << each.text;
        std::string log = result.lines;
        for (std::size_t at; (at = log.find("L MSG0108")) != std::string::npos;)
            log.erase(at, log.find('\n', at) + 1 - at);
        EXPECT_EQ(log, each.log) << each.text;
    }
}

TEST(Topology, SortsByTheLengthOfThePathAlone) {
    loaded result;
    load(result, topology({"r = a,R", "a = a,AAAA,push,R", "b = a,B,push,AAAA", "c = a,C,push,R", "d = a,D,push,R"}));
    EXPECT_EQ(names(result), "R C D AAAA B "); // equal ones as in the file
}

TEST(Topology, PassesOverWhatIsNoTargetSection) {
    vector topv;
    topv.push_back(new ustring("no domain"));
    topv.push_back(new top_entry("E", "", vector()));
    vector other;
    other.push_back(new sof_entry("[o]", static_cast<sof_entry::sectype>(1)));
    topv.push_back(new top_entry("O", "path", other));
    transcript lines;
    EXPECT_EQ(print_topv(topv, "label"), 0);
    EXPECT_EQ(lines.take(), "T[C] print_topv >>>> ENTRY>>>>>\nT[C] print_topv return data = 0\n"
                            "T[C] print_topv <<<<<<<<<< EXIT\n");
    topv.remove(0);
    write_file("scan.txt", "nothing\n");
    kt_file file(pathname("scan.txt"));
    EXPECT_EQ(file.open("r"), 0);
    EXPECT_EQ(file.load_offsets(topv), 0);
    EXPECT_EQ(file.close(), 0);
}

} // namespace
