#include "support.h"

#include <sstream>

namespace {
/// What a load leaves: codes, server, names of the domains, and the lines without those of each read and
/// print call.
struct loaded {
    loaded(const std::string & text, int trace_level)
    {
        write_file("scan.txt", text);
        kt_file file(pathname("scan.txt"));
        EXPECT_EQ(sum({file.open("r"), file.find_section("[topology]")}), 0);
        transcript said(trace_level);
        top_code = file.load_top(server, topv);
        offsets_code = top_code == 0 ? file.load_offsets(topv) : short{-99};
        lines = without({"[C] kt_file::get_", "[C] print_topv"}, said.take());
        EXPECT_EQ(file.close(), 0);
        for (unsigned i = 0; i < topv.size(); ++i)
            names += text_of(static_cast<const top_entry &>(*topv[i]).domain_name) + " ";
    }
    short top_code, offsets_code;
    ustring server;
    vector topv;
    std::string names, lines;
};

TEST(Topology, LoadsWithItsWholeTrace)
{
    loaded result("[topology]\ncount = 2\nhq = any,HQ1\nnorth = any,NTH,push,HQ1\n\n[hq]\ncount = "
                  "1\nentry\n[north]\ncount = 0\n",
                  1);
    EXPECT_EQ(text_of(result.server), "HQ1_HQ1");
    std::replace(result.lines.begin(), result.lines.end(), '\\', '/');
    EXPECT_EQ(without({"get_line"}, result.lines), R"(T[I] kt_file::load_top count = <2>
T[I] kt_file::load_top Dep = <[hq] , HQ1 , > 
T[I] kt_file::load_top Dep = <[north] , NTH , HQ1_HQ1/NTH_NTH> 
T[I] print_topv load_top_after_loading-topv[0] = <HQ1,> trg_sect_info = <[hq],0,0>
T[I] print_topv load_top_after_loading-topv[1] = <NTH,HQ1_HQ1/NTH_NTH> trg_sect_info = <[north],0,0>
T[I] kt_file::load_top Valid dependency found: <1,HQ1> by <0,HQ1>
T[I] print_topv load_top_after_depcheck-topv[0] = <HQ1,> trg_sect_info = <[hq],0,0>
T[I] print_topv load_top_after_depcheck-topv[1] = <NTH,HQ1_HQ1/NTH_NTH> trg_sect_info = <[north],0,0>
T[I] kt_file::seek_section Section <[hq]> found. Count = <1> 
T[I] kt_file::load_offsets Loaded offset (75) for section ([hq]) with (1) entries
L MSG0114 [I]  Loading <1> targets info for domain <[hq]>.
T[I] kt_file::seek_section Section <[north]> found. Count = <0> 
T[I] kt_file::load_offsets Loaded offset (99) for section ([north]) with (0) entries
L MSG0114 [I]  Loading <0> targets info for domain <[north]>.
T[I] print_topv load_dom_after_loading-topv[0] = <HQ1,> trg_sect_info = <[hq],1,75>
T[I] print_topv load_dom_after_loading-topv[1] = <NTH,HQ1_HQ1/NTH_NTH> trg_sect_info = <[north],0,99>
T[I] print_topv load_dom_after_qsort-topv[0] = <HQ1,> trg_sect_info = <[hq],1,75>
T[I] print_topv load_dom_after_qsort-topv[1] = <NTH,HQ1_HQ1/NTH_NTH> trg_sect_info = <[north],0,99>
)");
}

/// A topology of these domains, each NAME:MODE<DEPENDENCY, and an empty target section for each.
std::string topology(const std::string & domains)
{
    const auto count = static_cast<int>(std::count(domains.begin(), domains.end(), ' ')) + 1;
    std::string text = "[topology]\ncount = " + std::to_string(count) + "\n", sections;
    std::istringstream in(domains);
    for (std::string name, mode, key = "%s%d"; in >> name; key += "+") {
        const std::size_t end = name.find('<'), colon = std::min(name.find(':'), end);
        mode = colon == end ? "push" : name.substr(colon + 1, end - colon - 1);
        text += key + " = a," + name.substr(0, colon) + "," + mode + "," +
                (end < name.size() ? name.substr(end + 1) : "") + "\n";
        sections += "[" + key + "]\ncount = 0\n";
    }
    return text + sections;
}

TEST(Topology, TakesOutDomainsWhoseDependencyIsMissing)
{
    // The trace tells the place in the vector, the log the number in the file.
    const auto gone = [](const std::string & place, const std::string & n, const std::string & name,
                         const std::string & dependency) {
        return "T[E] kt_file::load_top Invalid domaind dependency found <" + place + "," + name + "," +
               dependency + ">\nL MSG0107 [E]  Discovered domain number <" + n + "> with RGN <" + name +
               "> depends from unexisting domain <" + dependency + ">. All domain targets will be ignored.\n";
    };
    const auto odd = [](const std::string & n, const std::string & name, const std::string & mode) {
        return "T[W] kt_file::load_top Domain <" + n + "," + name + "," + mode +
               "> is not push\nL MSG0108 [W]  " + "Discovered domain number <" + n + "> with RGN <" + name +
               "> has an invalid mode <" + mode +
               "> (probably discovery should be started there). Domain is included anyhow.\n";
    };
    const std::tuple<const char *, std::string, std::string, std::string> cases[] = {
        {"a chain goes down to its end", "R B<X C<B D<R", "R D ",
         gone("1", "1", "B", "X") + gone("1", "2", "C", "B")},
        {"the second of a name takes its place", "R B<X B<R C<B", "R B C ", gone("1", "1", "B", "X")},
        {"an odd mode is told and stays", "R BB:pull<R CCC:", "R CCC BB ",
         odd("1", "BB", "pull") + odd("2", "CCC", "")},
        {"a percent sign is plain text", "%s", "%s ", ""}};
    for (const auto & [what, domains, kept, log] : cases) {
        const loaded result(topology(domains), 2);
        EXPECT_EQ(std::to_string(result.top_code + result.offsets_code) + result.names, "0" + kept) << what;
        EXPECT_EQ(result.lines.substr(0, result.lines.find("L MSG0114")), log) << what;
    }
    const loaded result(topology("R B<X C<D D<D D<R E<C"), 1);
    std::string check = result.lines.substr(result.lines.find("T[E]"));
    check.erase(check.find("T[I] print_topv"));
    EXPECT_EQ(check, gone("1", "1", "B", "X") +
                         "T[I] kt_file::load_top Valid dependency found: <1,D> by <2,D>\n"
                         "T[I] kt_file::load_top Valid dependency found: <2,D> by <2,D>\n"
                         "T[I] kt_file::load_top Valid dependency found: <3,R> by <0,R>\n"
                         "T[I] kt_file::load_top Valid dependency found: <4,C> by <1,C>\n");
    codable * const two[] = {result.topv[0], result.topv[1]};
    EXPECT_TRUE(sort_on_dep_len(two, two + 1) == -1 && sort_on_dep_len(two + 1, two) == 1 &&
                sort_on_dep_len(two, two) == 0);
}

TEST(Topology, RefusesWhatItCantRead)
{
    const std::string no_count =
        "T[E] kt_file::load_top Error 259 parsing count line\nL MSG0112 [E]  Error parsing section "
        "<topology> of file <scan.txt>. A \"count = <value>\" string was expected.\n";
    const auto missing = [](const std::string & head,
                            const std::string & why = "reading kt_file while locating <[r]>") {
        return "T[E] kt_file::seek_section Error " + why +
               "\nT[F] kt_file::load_offsets Error locating section <" + head +
               "> in kt_file\nL MSG0113 [E]  Unable to locate section <" + head + "> in file <scan.txt>.\n";
    };
    const auto bad_line = [](const std::string & n) {
        return "T[E] kt_file::load_top Error 258 parsing topology section at offset <" + n +
               ">\nL MSG0111 [E]  Error parsing " + "line <" + n +
               "> of section <topology> of file <scan.txt>. A \"<key> = <value>\" string was expected.\n";
    };
    const std::string root = "[topology]\ncount = 2\nr = a,R\n", loading = "L MSG0114 [I]  Loading <";
    std::string most;
    for (int i = 0; i < 32767; ++i)
        most += "R ";
    const std::tuple<std::string, int, int, std::string, std::string> cases[] = {
        {"[topology]", 259, -99, "", no_count},
        {"[topology]\ncount = 32768\nr = a,R\n", 259, -99, "", no_count},
        {root + "bad line\n", 258, -99, "R ", bad_line("1")},
        {root + "b = a,B,push\n[b]\ncount = 1\n[r]\ncount = 1\n", 0, 260, "R B ",
         loading + "1> targets info for domain <[r]>.\n" +
             missing("[b]", "reading kt_file while locating <[b]>")},
        {root + "b = a,B,push\n[r]\nno count\n", 0, 258, "R B ", missing("[r]", "258 parsing line")},
        {"[topology]\ncount = 32767\nr = a,R,push\n", 0, 260, most,
         missing("[r]")}}; // the last line stands for the rest
    for (const auto & [text, top_code, offsets_code, names, log] : cases) {
        const loaded result(text, 3);
        EXPECT_TRUE(result.top_code == top_code && result.offsets_code == offsets_code) << text;
        EXPECT_EQ(text_of(result.server) + result.names, names.empty() ? "" : "R_R" + names) << text;
        EXPECT_EQ(result.lines, log) << text;
    }
}

TEST(Topology, PassesOverWhatIsNoDomain)
{
    vector topv, none, other;
    other.push_back(new sof_entry("[x]", static_cast<sof_entry::sectype>(1)));
    for (const vector & sections : {none, other})
        topv.push_back(new top_entry("N", "", sections));
    const auto call = [](const std::string & name, const std::string & own = "") {
        return "T[C] " + name + " >>>> ENTRY>>>>>\n" + own + "T[C] " + name + " return data = 0\nT[C] " +
               name + " <<<<<<<<<< EXIT\n";
    };
    const std::string print = call("print_topv");
    write_file("scan.txt", "count = 0\n[a]\n");
    kt_file file(pathname("scan.txt"));
    ustring server;
    vector nothing;
    EXPECT_EQ(file.open("r"), 0);
    EXPECT_EQ(without({"get_line"}, told([&] {
                          return sum({file.load_top(server, nothing), file.seek_section("[a]", nullptr, 0)});
                      })),
              call("kt_file::load_top", "T[I] kt_file::load_top count = <0>\n" + print + print) +
                  call("kt_file::seek_section") + "0");
    EXPECT_EQ(told([&] { return file.load_offsets(topv); }),
              call("kt_file::load_offsets", print + print) + "0");
    topv.push_back(new ustring("text"));
    EXPECT_EQ(told([&] { return print_topv(topv, "x"); }), print + "0");
    EXPECT_EQ(file.close(), 0);
}
} // namespace
