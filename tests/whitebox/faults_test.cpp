// Linked from the library's objects: the linker leads what they ask of the system, and for memory, through here.
#include "support.h"

#include <algorithm>
#include <cstring>
#include <regex>

#include "orvet/foundation/base/memory.h"
#include "orvet/foundation/platform/platform.h"
using namespace orvet;
using namespace orvet_test;
using namespace std::string_literals;
namespace {
enum class fault { none, once, from_then_on, death } armed = fault::none;
bool of_memory = false;   // else of the system
int to_go = 0;            // calls until it strikes
const char * struck = ""; // the call that it has struck first
long blocks = 0;          // of memory in use
/// What was asked for since the process began.
struct {
    long allocations, bytes, comparisons, writes;
} asked{};
std::FILE * held[8] = {}; // the library's open streams
std::string ran;          // the last command: none gets to a shell
/// Keeps the fault away from what is done meanwhile.
struct truce {
    const fault before = std::exchange(armed, fault::none);
    ~truce() { armed = before; }
};
bool strikes(const char * call, bool memory = false) {
    const bool due = armed != fault::none && memory == of_memory && --to_go <= 0 && (to_go == 0 || armed == fault::from_then_on);
    if (due && armed == fault::death)
        die();
    struck = due && to_go == 0 ? call : struck;
    errno = !due ? errno : memory ? ENOMEM : EACCES;
    return due;
}
/// What `operation` gives when the fault strikes at call `n`.
template <class Operation>
int with_fault(fault kind, bool memory, int n, const Operation & operation) {
    const truce after;
    struck = "", to_go = n, of_memory = memory, armed = kind;
    return operation();
}
} // namespace
// clang-format off
#define SEAM(result, name, symbol, parameters)               \
    result real_##name parameters __asm__("__real_" symbol); \
    result test_##name parameters __asm__("__wrap_" symbol); \
    result test_##name parameters
#define FAULTY(result, name, symbol, parameters, arguments, failure) \
    SEAM(result, name, symbol, parameters) { return strikes(#name) ? failure : real_##name arguments; }
SEAM(std::FILE *, open, PLATFORM "11open_streamERKNS_7ustringEPKc", (const ustring & path, const char * how)) {
    return *std::find(held, std::end(held), nullptr) = strikes("open") ? nullptr : real_open(path, how);
}
SEAM(int, close, "fclose", (std::FILE * stream)) {
    std::replace(held, std::end(held), stream, static_cast<std::FILE *>(nullptr));
    return strikes("close") | real_close(stream) ? EOF : 0; // it is gone even then
}
SEAM(void *, malloc, "malloc", (std::size_t size)) {
    ++asked.allocations, asked.bytes += static_cast<long>(size);
    return strikes("memory", true) ? nullptr : (++blocks, real_malloc(size));
}
SEAM(void, free, "free", (void * room)) { blocks -= room != nullptr, real_free(room); }
FAULTY(int, permit, PLATFORM "16copy_permissionsERKNS_7ustringEP" STREAM, (const ustring & from, std::FILE * to), (from, to), -1)
FAULTY(void, fill, PLATFORM "4fillEP" STREAM, (std::FILE * stream), (stream), (void)(stream->STREAM_FLAGS |= 0x20)) // as a failed read leaves it, in either runtime
FAULTY(int, sync, PLATFORM "11sync_streamEP" STREAM, (std::FILE * stream), (stream), -1)
FAULTY(int, remove, PLATFORM "11remove_fileERKNS_7ustringE", (const ustring & path), (path), (real_remove(path), -1))
FAULTY(int, rename, PLATFORM "11rename_fileERKNS_7ustringES3_", (const ustring & from, const ustring & to), (from, to), -1)
FAULTY(bool, exists, PLATFORM "6existsERKNS_7ustringE", (const ustring & path), (path), false)
FAULTY(bool, is_file, PLATFORM "7is_fileERKNS_7ustringE", (const ustring & path), (path), false)
SEAM(int, run, PLATFORM "11run_commandERKNS_7ustringE", (const ustring & line)) {
    if (strikes("run"))
        return -1;
    const truce now;
    return ran = text_of(line), 0;
}
FAULTY(std::size_t, read, "fread", (void * to, std::size_t size, std::size_t n, std::FILE * from), (to, size, n, from), (from->STREAM_FLAGS |= 0x20, 0))
FAULTY(std::size_t, write, "fwrite", (const void * from, std::size_t size, std::size_t n, std::FILE * to), (from, size, n, to), 0)
SEAM(std::size_t, line, PLATFORM "13write_throughEP" STREAM "PKc" SIZE_CODE, (std::FILE * to, const char * from, std::size_t size)) {
    return ++asked.writes, strikes("write") ? 0 : real_line(to, from, size);
}
SEAM(bool, equals, "_ZNK5orvet7ustring6equalsERKS0_", (const ustring & a, const ustring & b)) { return ++asked.comparisons, real_equals(a, b); }
FAULTY(int, flush, "fflush", (std::FILE * stream), (stream), (real_flush(stream), EOF))
FAULTY(long, tell, PLATFORM "4tellEP" STREAM, (std::FILE * stream), (stream), -1)
SEAM(int, seek, "fseek", (std::FILE * stream, long offset, int origin)) {
    const int result = strikes("seek") ? -1 : real_seek(stream, offset, origin); // where a runtime keeps some, no read would fill
    return result != 0 || platform::unread(stream).begin == platform::unread(stream).end ? result : real_flush(stream);
}
#define OPERATION [](world & w [[maybe_unused]]) -> int { [[maybe_unused]] kt_file & f = w.file; return
#define ROW(preparation, operation, promise) {#operation, [](world & w [[maybe_unused]]) { preparation; }, OPERATION operation; }, promise}
// clang-format on
#define CALLED [[gnu::noinline]] // or the compiler takes them for a mixture
CALLED void * operator new(std::size_t size, const std::nothrow_t &) noexcept { return std::malloc(size); }
CALLED void * operator new[](std::size_t size, const std::nothrow_t &) noexcept { return std::malloc(size); }
CALLED void * operator new(std::size_t size) {
    void * const room = std::malloc(size);
    return room ? room : throw std::bad_alloc();
}
CALLED void * operator new[](std::size_t size) { return ::operator new(size); }
CALLED void operator delete(void * room) noexcept { std::free(room); }
CALLED void operator delete(void * room, std::size_t) noexcept { std::free(room); }
CALLED void operator delete[](void * room) noexcept { std::free(room); }
CALLED void operator delete[](void * room, std::size_t) noexcept { std::free(room); }
namespace {
const std::string where = "a directory of its own/", longer = "a text longer than what is kept inside", x(11000, 'x'),
                  y(9000, 'y');
const std::map<std::string, std::string> files = {
    {"scan",
     "[topology]\ncount = 3\nhq = any,HQ1\nnorth and some more = any,NORTHERN DOMAIN,push,HQ1\nsouth = any,STH,pull,NORTHERN "
     "DOMAIN\n[hq]\ncount = 2\na\nb\n[north and some more]\ncount = 0\n[south]\ncount = 1\n"},
    {"list", "Name:x\nLocal name: $(FILEPATH)/and/a/longer/name\n"},
    {"agents", "target=first\nOperating_system = WINDOWS_NT\nserver_NAME=" + longer +
                   "\nSERVER_REN_RGN=a\nGATEWAY_IP_ADDRESS=b\nIMAGES_SERVER_NAME=c\nEXPORTED_DIR=d\nMOUNT_POINT=e\n"},
    {"profiles", "profile name=" + longer + "\n  SEND=YES\nPROFILE NAME=next\n"},
    {"users", "USER=" + longer + "\n  authorization profile=" + longer + "\n[" + longer + longer},
    {"brod.cfg", "SERVER: a" + y + "\nSERVER: b" + y + "\nWORKSTATION NAME:" + longer + "\nkey:" + x + "\nother:" + y + "\n"},
    {"new", "WORKSTATION NAME:" + longer + "\nkey:" + x + "\nother:" + y + "\nSERVER: b" + y + "\nSERVER: a" + y + "\n"},
    {"other", "other"},
    {"brod.bak", "older"},
};
/// The files that are not as they are laid out, with whose text they have or how it begins; afterwards they are.
std::string lay_out() {
    std::set<std::string> names;
    for (const auto & file : files) names.insert(file.first);
    for (const auto & entry : std::filesystem::directory_iterator(where)) names.insert(entry.path().filename().string());
    std::string changes;
    for (const std::string & name : names) {
        const std::string text = read_text(where + name);
        const auto file = files.find(name);
        if (file != files.end() && file->second == text)
            continue;
        const auto same = std::find_if(files.begin(), files.end(), [&](const auto & other) { return other.second == text; });
        changes += " " + name + "=" + (same != files.end() ? same->first : text == "(no file)" ? "-" : text.substr(0, 4));
        std::filesystem::remove(where + name);
        if (file != files.end())
            write_file(where + name, file->second);
    }
    return changes;
}
int depth = 0;    // of calls under way
std::string said; // [E] and [F] by their letters, L and a message's number, q for quitting, = and a result
struct recorder : trace_stream {
    int writeline(const char * line) override {
        const truce now;
        static const std::regex form(
            ".*((>>>> ENTRY)>>>>>|(<<< EXIT)|(QUITTING)|return data (=.*))\n|.* MSG0*(\\d+) .*\n|[^[]* \\[([IWEF])\\] .*\n|.*\n");
        static const std::regex open_ended(".*(set_local_name|os_brod_cmd|validate|kt_chkfile|sset_out_file) >>>> E.*\n");
        std::cmatch part;
        std::regex_match(line, part, form);
        depth += part[2].matched && !std::regex_match(line, open_ended) ? 1 : part[3].matched ? -1 : 0;
        said += (part[4].matched ? "q" : part[6].matched ? "L" : "") + part[5].str() + part[6].str() + part[7].str();
        return 1;
    }
};
/// How the calls end that fail: with these lines in this order, and none without.
const std::regex endings("EL17q= 250|FL18q= 251|EL20q= 252|EL19q= 253|FL37q= 254|FL1q= 255|Fq= 256|EL45= 257|(EL1.*)?q= 258|"
                         "EL112q= 259|Eq= 260|EL16q= 6|L139F.*q= 102|q= 100|(EL16)?q= -1|q$");
/// What the operations work on.
struct world {
    kt_file file{pathname((where + "scan").c_str())};
    ustring head{"[hq]"}, text{longer.c_str()}, value{longer.c_str()};
    pathname path{(where + "other").c_str()};
    vector items, copy;
    long number = -7;
    int count = -7;
    char buffer[4] = "old", option[5] = "-trg", word[30] = "another text, a longer one", *words[3] = {nullptr, option, word};
    file_input_parms fips;
    VXA_inst_info agent;
    auth_profile_info profile;
    user_info user;
    input_parms ip;
    scan_cfg cfg{(where + "brod.cfg").c_str()};
    std::unique_ptr<brod_base_ls> ls;
    std::vector<std::string> state() {
        std::vector<std::string> all;
        const auto add = [&](const auto &... each) { (all.push_back(each), ...); };
        const auto s = text_of;
        const auto n = [](auto number_of) { return std::to_string(number_of); };
        add(file.seek(0, SEEK_CUR) == 0 ? "open" : "shut", n(file.file_size()), n(number), n(count), buffer, ran);
        add(n(fips.arSections().size()) + "/" + n(fips.index()), n(agent.fip("SERVER_NAME=")) + s(agent.server_name()),
            n(profile.fip("SEND=")) + s(profile.usSend()), n(user.fip("USER=")) + s(user.usUserName()),
            n(ip.ip("-trg")) + s(ip.ip_trg_name()), n(ip.ip("-osys")));
        add(n(cfg.server_lines().size()) + n(cfg.generic_lines().size()),
            std::regex_replace(s(cfg.error_text()), std::regex("^(.{8})[^;]*"), "$1"), cfg.cfg_stream() ? "streams" : "",
            s(cfg.target_name()));
        add(s(text), s(value), s(path.text()), "");
        for (unsigned i = 0; i < items.size(); ++i) {
            auto * const domain = dynamic_cast<top_entry *>(items[i]);
            all.back() += domain ? "@" + n(static_cast<sof_entry *>(domain->trg_sect_info[0])->sect_offset) : "*";
        }
        if (ls)
            add(s(ls->brod_cmd()), s(ls->output_file().text()), s(ls->final_output_file().text()),
                s(ls->final_out_file().file_name().text()), s(ls->get_local_name().text()));
        return all;
    }
};
void opened(world & w) { w.file.open("r+b"); }
void at_count(world & w) { opened(w), w.file.seek(11, SEEK_SET); }
void loaded(world & w) { at_count(w), w.file.load_top(w.text, w.items), w.file.seek(0, SEEK_CUR); }
void made(world & w) { w.ls = std::make_unique<brod_base_ls>(w.text); }
void listed(world & w) { made(w), w.ls->out_file().set_file_name((where + "list").c_str()); }
void from(world & w, const char * name) { w.path = (where + name).c_str(); }
void read_cfg(world & w) { w.cfg.load(), w.text = (where + "brod.cfg").c_str(); }
void failed(world & w) {
    from(w, "users"), w.fips.get_fips(w.path, 1, "USER=", 1), w.fips.error_text().mbcs_str(), from(w, "profiles");
}
int read_line(const char * file, ustring & line) {
    std::FILE * const stream = std::fopen(file, "rb");
    line.getline(stream);
    return std::fclose(stream), static_cast<int>(std::strlen(line.mbcs_str()));
}
void kinds(world & w) {
    loaded(w);
    for (codable * each : std::initializer_list<codable *>{new pathname(w.path), new pair(w.text, w.value), new keyval(w.text),
                                                           new user_info(w.user), new auth_profile_info(w.profile)})
        w.items.push_back(each);
}
int clones(world & w) {
    int whole = 0;
    for (unsigned i = 0; i < w.items.size(); ++i) whole += std::unique_ptr<codable>(w.items[i]->clone()) != nullptr;
    return whole;
}
/// An operation, and what comes of each call that fails, once and, if different, from then on; of none, behind "-"; of shortages,
/// behind "mem": code, what is new in the world, its files and on the console. "+", or no word, is what comes of none.
using row = std::tuple<const char *, void (*)(world &), int (*)(world &), const char *>;
const row rows[] = {
    ROW(, f.open("r"), "open: 250; seek: 253 open; tell: 256 open -1; seek: 253 open 191; -: 0 open 191; mem: 250 | +"),
    ROW(opened(w), f.open("r+b"), "close: + | 250 shut 0; open: 250 shut 0; seek: 253 0; tell: 256 -1; -: 0; mem: +"),
    ROW((opened(w), w.file.write("new", 3)), f.close(),
        "flush: 252 scan=newp; close: 252 shut gone scan=newp; -: 0 shut 0 scan=newp"),
    ROW(opened(w), (f.close(), f.open("rb"), f.close()),
        "seek: + | 252 shut 0 gone; tell: + | 252 shut -1 gone; seek: + | 252 shut gone; close: 252 shut gone; -: 0 shut 0; mem: "
        "+"),
    ROW(opened(w), (f.write("new", 3), f.get_line(w.text), f.open("rb"), f.close()),
        "write: 0 shut 0 [topology] | 0 shut 0; flush: + | 0 shut 0 scan=newp; fill: 0 shut 0 scan=newp; seek: + | 252 shut 0 "
        "pology] gone scan=newp; tell: + | 252 shut -1 pology] gone scan=newp; seek: + | 252 shut pology] gone scan=newp; "
        "close: 252 shut pology] gone scan=newp; -: 0 shut 0 pology] scan=newp; mem: +"),
    ROW((opened(w), w.file.write("new", 3)), f.seek(3, SEEK_SET), "flush: 253 scan=newp; seek: 253 scan=newp; -: 0 scan=newp"),
    ROW(opened(w), f.get_pos(&w.number), "tell: 256 -1; -: 0 0"),
    ROW(opened(w), f.get_line(w.text), "fill: 0; -: 1 [topology]"),
    ROW(opened(w), f.write(w.head), "write: 251; -: 0 scan=[hq]; mem: 251"),
    ROW(opened(w), f.write("new", 3), "write: 251; -: 0 scan=newp"),
    ROW(opened(w), f.read(w.buffer, 1, 3), "read: 254; -: 0 [to"),
    ROW(opened(w), static_cast<int>(f.read(w.buffer, 3)), "read: 0; -: 3 [to"),
    ROW(opened(w), (f.read(w.buffer, 3), f.write("new", 3)),
        "read: 0 scan=newp | 251; seek: 251 [to; write: 251 [to; -: 0 [to scan=[ton"),
    ROW(opened(w), (f.write("new", 3), f.get_line(w.text), f.close()),
        "write: 0 shut 0 [topology] | 252; flush: 252 pology] scan=newp | 252 scan=newp; fill: 0 shut 0 scan=newp | 252 shut "
        "gone scan=newp; "
        "close: 252 shut pology] gone scan=newp; -: 0 shut 0 pology] scan=newp"),
    ROW(, f.copy_to(w.path), "remove: + | 6 other=-; rename: 6 other=-; -: 0 other=scan scan=-; mem: 6 other=-"),
    ROW(, f.removef(), "remove: 257 scan=-; -: 0 scan=-; mem: 257"),
    ROW(opened(w), f.find_section(w.head), "fill: -1; -: 0; mem: -1"),
    ROW(opened(w), f.seek_section(w.head, &w.count, 1), "fill: 260; -: 0 2; mem: 260 | 258"),
    ROW((opened(w), w.file.seek(34, SEEK_SET), w.text = "old", w.value = ustring()), f.get_keyval(w.text, w.value),
        "fill: 0; -: 0 north and some more any,NORTHERN DOMAIN,push,HQ1; mem: 258"),
    ROW(at_count(w), f.load_top(w.text, w.items),
        "fill: 259; -: 0 HQ1_HQ1 @0@0@0; mem: 259 | 258 | 258 HQ1_HQ1 @0 | 258 HQ1_HQ1 @0@0 | 258 HQ1_HQ1 @0@0@0"),
    ROW((write_file(where + "scan", "count = 1\nhq = any," + longer + "\n"), opened(w)), f.load_top(w.text, w.items),
        "fill: 259 scan=coun; -: 0 ~_~ @0 scan=coun; mem: 259 scan=coun | 258 scan=coun | 258 ~_~ @0 scan=coun"),
    ROW(loaded(w), f.load_offsets(w.items),
        "fill: 260; tell: 256 @-1@0@0; tell: 256 @137@-1@0; tell: 256 @137@173@-1; -: 0 @137@173@191; mem: 260 @137@0@0 | "
        "258 @137@173@0 | 258 | 258 @137@0@0 | +"),
    ROW(from(w, "agents"), w.fips.get_fips(w.path, 1, "TARGET=", 1),
        "open: 250; seek: 253; tell: 256; fill: 102 0/1; fill: 102 0/2; -: 0 0/2; mem: 250 | 102 0/2 | 100 0/2 | +"),
    ROW(from(w, "profiles"), w.fips.get_fips(w.path, 1, "PROFILE NAME=", 2),
        "open: 250; seek: 253; tell: 256; fill: 102 0/1; fill: 102 1/1; -: 0 2/1; mem: 250 | 102 0/1 | 100 0/1 | 102 1/1 | +"),
    ROW(from(w, "users"), w.fips.get_fips(w.path, 1, "USER=", 3),
        "open: 250; seek: 253; tell: 256; fill: 102 0/1; -: 0 1/1; mem: 250 | 102 0/1 | 100 0/1 | +"),
    ROW(failed(w), w.fips.get_fips(w.path, 1, w.fips.error_text().mbcs_str(), 2),
        "open: 250; seek: 253; tell: 256; fill: 102 0/1; -: 0 1/1; mem: 102 | 250 | 102 0/1 | 100 0/1 | +"),
    ROW(w.text.insert(0, "server_name = MOUNT_POINT="), w.agent.set(w.text), "-: 0 1MOUNT_POINT=~; mem: 100"),
    ROW(w.text.insert(0, "send="), w.profile.set(w.text), "-: 0 1~; mem: 100"),
    ROW(w.text.insert(0, "USER="), w.user.set(w.text), "-: 0 1~; mem: 100"),
    ROW(, (w.profile.set_usSend(w.text), 0), "-: 0 1~; mem: 0"),
    ROW(, w.ip.get_ips(3, w.words), "-: 0 1another text, a longer one; mem: 15 'MSGI"),
    ROW(, (w.ip.set_ip_op_sys(longer.c_str()), 0), "-: 0 1 'MSGI; mem: 0 | +"),
    ROW(, brod_base_ls(w.text).exec_brod_cmd(1, 1),
        "flush: + | -1; run: -1; -: 0  brod ls ~>~cattmp.out 2>>~broderr.out; mem: -1 | +"),
    ROW(, brod_base_lscm(w.text, w.value).exec_brod_cmd(0, 0), "flush: + | -1; run: -1; -: 0  brod lscm ~ -w ~; mem: -1 | +"),
    ROW(made(w), w.ls->exec_brod_cmd(1, 1), "flush: + | -1; run: -1; -: 0  brod ls ~>~cattmp.out 2>>~broderr.out; mem: -1"),
    ROW((made(w), w.ls->set_brod_cmd("dummy directory brod lstg -l", 1)), w.ls->exec_brod_cmd(0, 1),
        "flush: + | -1 'Dumm; run: -1 'Dumm; -: 0 ~directory/x_lstgl > ~cattmp.out 'Dumm; mem: -1"),
    ROW(made(w), (w.ls->set_brod_cmd(w.value, 0), w.ls->exec_brod_cmd(0, 0)),
        "flush: + | -1  ~; run: -1  ~; -: 0  ~  ~; mem: -1 | -1  ~"),
    ROW(made(w), (w.ls->set_output_file(w.value), 0), "-: 0 ~~; mem: 0"),
    ROW(made(w), (w.ls->build_final_out_file(w.value), 0), "-: 0 ~; mem: 0"),
    ROW(listed(w), (w.ls->set_local_name(), 0),
        "open: 0 list=-; seek: 0 list=-; tell: 0 list=-; fill: 0 list=-; -: 0 ~and/a/longer/name list=-; mem: 0 list=- | +"),
    ROW((listed(w), w.ls->out_file().open("r")), (w.ls.reset(), 0), "-: 0 list=-"),
    ROW(, (w.text = std::unique_ptr<pathname>(&sset_out_file("a name"))->text(), 0), "-: 0 ~a name; mem: 0 | 0 "),
    ROW(w.text = "at $(REPOSITORY)/x", (resolve_tokens(w.text), 0), "-: 0 ~repos/x; mem: 0"),
    ROW(, static_cast<int>(input_parms::usage({ip_names, ip_names}, "tool").length()), "-: 871; mem: 0"),
    ROW(, usprintf(w.text, "%s and %d, a longer text", w.head, 5), "-: 25 [hq] and 5, a longer text; mem: 38"),
    ROW(, get_token(w.text, 0).length() != 0, "-: 1; mem: 0"),
    ROW(, static_cast<int>(build_server_rr(w.text).length()), "-: 77; mem: 0"),
    ROW(w.text = "count = 00000000000000000000000000005", get_count(w.text, &w.count), "-: 0 5; mem: 259"),
    ROW(, w.cfg.load(), "open: 250 unable t 'unab; fill: 250 unable t 'unab; -: 0 23 ~; mem: 250 unable t 'unab | 250 'unab | +"),
    ROW((read_cfg(w), write_file(where + "brod.tmp", "left")), w.cfg.set_server(2),
        "is_file: + | 250 unable t | killed ~tmp=left; remove: + | 250 unable t | killed ~tmp=left; open: 250 unable"
        " t | killed; permit: 251 i/o erro ~tmp= | killed ~tmp=; write: 251 i/o erro ~tmp= | killed ~tmp=; write: 251 i/o erro"
        " ~tmp=WORK | killed ~tmp=; write: 251 i/o erro ~tmp=WORK | killed ~tmp=WORK; flush: 251 i/o erro ~tmp=new | killed "
        "~tmp=WORK; sync: 251 i/o erro ~tmp=new | killed ~tmp=new; close: 251 i/o erro ~tmp=new | killed ~tmp=new; is_file: "
        "251 i/o erro ~tmp=new | killed ~tmp=new; remove: + | 261 error ba ~bak=- ~tmp=new | killed ~tmp=new; rename: 261 "
        "error ba ~bak=- ~tmp=new | killed ~bak=- ~tmp=new; rename: 261 error re; recovery [succeeded] ~bak=- ~tmp=new | 261 "
        "error re; recovery [failed] ~bak=~cfg ~cfg=- ~tmp=new | killed ~bak=~cfg ~cfg=- ~tmp=new; -: 0 ~bak=~cfg ~cfg=new; "
        "mem: 250 unable t ~tmp=left | 250 ~tmp=left | 251 i/o erro ~tmp=WORK | 251 ~tmp=WORK"),
    ROW(read_cfg(w), (w.cfg.fill_vector(w.items), 0), "-: 0 **; mem: 0"),
    ROW(read_cfg(w), (w.cfg.show_all(), w.cfg.show(), 0), "-: 0 '//**; mem: +"),
    ROW((read_cfg(w), std::filesystem::remove(where + "brod.cfg")), scan_cfg::recover(w.text),
        "exists: 250 ~cfg=-; is_file: 250 ~cfg=-; rename: 261 ~cfg=-; -: 0 ~bak=- ~cfg=~bak; mem: 250 ~cfg=-"),
    ROW(from(w, "brod.cfg"), scan_cfg::recover(w.path.text()), "exists: 250; -: 0; mem: +"),
    ROW(, kt_chkfile(w.path), "exists: 0; -: 1"),
    ROW(, (heapdump("dump"), std::remove("dump")), "open: -1 'PANI; -: 0 'PANI; mem: -1 'PANI"),
    ROW(, capture_stream().writeline("[F] a line that has to be kept\n"), "-: 31; mem: -1"),
    ROW(, stdio_trace_stream("a directory of its own/x").writeline("line"), "open: 4 | -1; write: -1 x=; -: 4 x=line; mem: 4"),
    ROW((from(w, "brod.cfg"), w.head.mbcs_str()), read_line(w.path.mbcs_str(), w.head),
        "fill: 4; fill: 4096; fill: 8192; -: 9009; mem: 4 | 0"),
    ROW(, (w.text.append(w.value), 0), "-: 0 ~~; mem: 0"),
    ROW(, (w.path += w.text, 0), "-: 0 ~other/~; mem: 0"),
    ROW(w.items.push_back(new ustring("one")), (w.items.push_back(new (std::nothrow) ustring("two")), 0), "-: 0 **; mem: 0"),
    ROW(loaded(w), (w.copy = w.items, static_cast<int>(w.copy.size())), "-: 3; mem: 0"),
    ROW(kinds(w), clones(w), "-: 8; mem: 0 | 1 | 2 | 3 | 4 | 5 | 6 | 7"),
    ROW(, (w.profile.toString(w.text), w.profile.validate()), "-: 1 /NO/NO/NO/NO/NO/NO/NO/NO/NO/NO/NO/NO/NO/; mem: 1"),
    ROW(, static_cast<int>(w.ip.missing(ip_names).size() / 30), "-: 1; mem: 0"),
};
/// What comes of one run of a row.
std::string run(const row & r, fault kind, bool memory, int n, const std::string & untouched) {
    static std::string outcome;
    for (std::string * text : {&outcome, &ran, &said}) text->reserve(5000), text->clear();
    lay_out();
    testing::internal::CaptureStdout();
    const long before = blocks;
    {
        world w;
        std::get<1>(r)(w);
        const auto old_state = w.state();
        said.clear(), depth = 0;
        EXPECT_NO_THROW(outcome = std::to_string(with_fault(kind, memory, n, [&] { return std::get<2>(r)(w); })));
        EXPECT_TRUE(depth == 0 && !std::regex_search(said, std::regex("[^q]= (6|-1|10.|25[^7]|26.)"))) << said;
        EXPECT_TRUE(said.find('q') == std::string::npos || std::regex_search(said, endings)) << said;
        const auto state = w.state();
        for (std::size_t i = 0; i < state.size(); ++i)
            outcome += i < old_state.size() && state[i] == old_state[i] ? "" : " " + state[i];
        w.ls.reset(), outcome += w.file.close() == 0 ? "" : " gone";
        outcome += lay_out();
    }
    EXPECT_TRUE(n == 0 || blocks == before) << blocks - before << " blocks are lost";
    EXPECT_TRUE(std::all_of(held, std::end(held), [](std::FILE * stream) { return !stream; })) << "a stream stays open";
    std::fflush(stdout);
    if (const std::string printed = replaced(testing::internal::GetCapturedStdout(), {{"\r\n", "\n"}}); printed != "")
        outcome += " '" + printed.substr(0, 4);
    for (const std::string & text : {longer, where, native(test_directory().string() + "/brodan/migr/"),
                                     native(test_directory().string() + "/brodan/"), "cat "s, "type "s, "brod."s})
        for (std::size_t at = 0; (at = outcome.find(text)) != std::string::npos;) outcome.replace(at, text.size(), "~");
    for (char & ch : outcome) ch = ch == '\n' || ch == '\\' ? '/' : ch;
    return outcome == untouched ? "+" : outcome;
}
const scenario killed("set_server", [] {
    world w;
    read_cfg(w), write_file(where + "brod.tmp", "left");
    with_fault(fault::death, false, std::atoi(std::getenv("n")), [&] { return w.cfg.set_server(2); });
});

TEST(Faults, LeaveWhatIsPromised) {
    std::filesystem::create_directory(where);
    set_variable("ktxrmtf", "yes");
    for (const row & r : rows)
        for (const bool traced : {true, false}) {
            for (auto * wa : {&system_trace::wa(), &orvet::log::wa()})
                trace::set_stream(*wa, new recorder), trace::set_level(*wa, traced ? 0 : 5);
            const std::string promise = std::get<3>(r), front = promise.substr(0, promise.find("; mem: "));
            run(r, fault::none, false, 0, "");
            std::string all, untouched = run(r, fault::none, false, 0, "");
            for (const bool memory : {false, true})
                for (int n = 1;; ++n) {
                    SCOPED_TRACE(std::get<0>(r) + (" " + std::to_string(n)));
                    const std::string once = run(r, fault::once, memory, n, untouched),
                                      always = run(r, fault::from_then_on, memory, n, untouched);
                    if (!*struck)
                        break;
                    std::string line = struck + (": " + once) + (once == always ? "" : " | " + always);
                    if (!memory && promise.find("killed") != promise.npos) {
                        set_variable("n", std::to_string(n).c_str());
                        run_scenario("set_server");
                        line += " | killed" + std::regex_replace(lay_out(), std::regex("brod\\."), "~");
                        run_scenario("set_server");
                        scan_cfg::recover((where + "brod.cfg").c_str());
                        const std::string text = read_text(where + "brod.cfg");
                        EXPECT_TRUE(text == files.at("brod.cfg") || text == files.at("new")) << line;
                        lay_out();
                    }
                    all += memory || line.ends_with(": +") || all.find(line) != std::string::npos ? "" : line + "; ";
                    for (const std::string & each : {once, always})
                        if (memory && !(traced && each == "+") &&
                            (promise + " |").find(" " + each + " |", front.size()) == promise.npos)
                            all += "mem: " + each + "; ";
                }
            EXPECT_EQ(all + "-: " + untouched, front) << std::get<0>(r);
        }
}

const scenario first_use("first_use", [] {
    set_variable("KTXPATH", where.c_str());
    const bool apart = std::freopen("stderr.txt", "w", stderr);
    const bool failed = with_fault(fault::once, true, std::atoi(std::getenv("n")), [] {
        const memory_watch watch;
        log_message(messages::MSG0001);
        return watch.failed();
    });
    const bool placed = environment::kt_inst_path().text() == ustring(where.c_str());
    std::printf("%d%s", !apart || failed || !placed, struck);
});

TEST(Faults, OfAFirstUseFailNothingElse) {
    std::filesystem::create_directory(where);
    int lost = 0, n = 0;
    for (std::string outcome = "0memory"; outcome == "0memory";) {
        set_variable("n", std::to_string(++n).c_str());
        for (const std::string & name : {"ktx1.log"s, where + "ktx1.log"}) std::filesystem::remove(name);
        outcome = run_scenario("first_use");
        EXPECT_EQ(outcome.find('0'), 0U) << outcome;
        lost += (read_text(where + "ktx1.log") + read_text("stderr.txt")).find(" MSG0001") == std::string::npos;
        EXPECT_EQ(read_text("ktx1.log"), "(no file)") << n;
    }
    EXPECT_EQ(lost, 1); // where there is no stream
}

TEST(Faults, OfTheLogLeaveTheCallAlone) {
    trace::set_level(orvet::log::wa(), 0);
    trace::set_stream(orvet::log::wa(), new stdio_trace_stream("lines.txt"));
    kt_file missing(pathname("not there"));
    EXPECT_EQ(with_fault(fault::from_then_on, false, 1, [&] { return missing.seek(0, SEEK_SET); }), 255);
    EXPECT_STREQ(struck, "write");
    trace::set_stream(orvet::log::wa(), nullptr);
}

const scenario few_streams("few_streams", [] {
    std::fclose(stdin);
    for (const char * name : {"/dev/null", "few.txt"}) {
        std::FILE * const stream = platform::open_stream(name, "w");
        std::setvbuf(stream, nullptr, _IONBF, 0); // as the runtime does where memory is short
        std::printf("%d%d", fileno(stream) > 2, platform::sync_stream(stream));
        std::printf("%d ", platform::close_stream(stream));
    }
});

TEST(Streams, KeepApartFromTheStandardOnes) {
    if (native("/") == "\\")
        GTEST_SKIP() << "their numbers stay taken here";
    EXPECT_EQ(run_scenario("few_streams"), "100 100 ");
}

/// Counted, so that no clock has to tell.
TEST(Costs, StayWhatTheyAre) {
    const auto spent = [](auto cost, const std::function<void()> & action) {
        const long before = asked.*cost;
        action();
        return asked.*cost - before;
    };
    using all = decltype(asked);
    trace::set_level(orvet::log::wa(), 0);
    trace::set_stream(orvet::log::wa(), new stdio_trace_stream("lines.txt"));
    log_message(messages::MSG0018, "file", 1, 2);
    EXPECT_EQ(spent(&all::allocations, [] { log_message(messages::MSG0018, "file", 1, 2); }), 0);
    EXPECT_EQ(spent(&all::writes, [] { log_message(messages::MSG0018, "file", 1, 2); }), 1);
    trace::set_stream(orvet::log::wa(), nullptr);
    constexpr int domains = 2000;
    std::string text = "count = " + std::to_string(domains) + "\n";
    for (int i = 0; i < domains; ++i) text += "d" + std::to_string(i) + " = any,D" + std::to_string(i) + ",push,D0\n";
    write_file("domains.txt", text);
    kt_file file(pathname("domains.txt"));
    EXPECT_EQ(file.open("r"), 0);
    for (const auto & [cost, most] :
         {std::pair(&all::allocations, 6), std::pair(&all::bytes, 1000), std::pair(&all::comparisons, 3)}) {
        vector topv;
        ustring server;
        EXPECT_EQ(file.seek(0, SEEK_SET), 0);
        EXPECT_LE(spent(cost, [&] { EXPECT_EQ(file.load_top(server, topv), 0); }), most * domains);
    }
    ustring line(std::string(100, ' ').c_str());
    EXPECT_EQ(file.seek(0, SEEK_SET), 0);
    EXPECT_EQ(spent(&all::allocations,
                    [&] {
                        while (file.get_line(line)) continue;
                    }),
              0);
    EXPECT_EQ(file.close(), 0);
}
} // namespace
