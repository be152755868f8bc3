// Linked from the library's objects: the linker leads their file operations through here.
#include "support.h"

#include <cstdlib>
#include <map>

#include "orvet/foundation/platform/platform.h"
#include "system.h"

using namespace orvet;
using namespace orvet_test;

namespace {

enum class fault { none, once, from_then_on, death };

fault armed = fault::none;
int to_go = 0;      // operations until it strikes
std::string struck; // the one that it has struck first

bool strikes(const char * operation) {
    if (armed == fault::none || --to_go > 0)
        return false;
    if (armed == fault::death)
        die();
    if (to_go == 0)
        struck = operation;
    return to_go == 0 || armed == fault::from_then_on;
}

/// The code of `operation` when the fault strikes at its file operation `n`.
template <class Operation>
int with_fault(fault kind, int n, Operation operation) {
    struck.clear();
    to_go = n;
    armed = kind;
    const int rc = operation();
    armed = fault::none;
    return rc;
}

} // namespace

// clang-format off
#define FAULTY(result, name, symbol, parameters, arguments, failure) \
    result real_##name parameters __asm__("__real_" symbol);         \
    result test_##name parameters __asm__("__wrap_" symbol);         \
    result test_##name parameters { return strikes(#name) ? failure : real_##name arguments; }

FAULTY(std::FILE *, open, PLATFORM "11open_streamERKNS_7ustringEPKc", (const ustring & path, const char * how), (path, how), nullptr)
FAULTY(int, permit, PLATFORM "16copy_permissionsERKNS_7ustringEP" STREAM, (const ustring & from, std::FILE * to), (from, to), -1)
FAULTY(std::size_t, write, "fwrite", (const void * from, std::size_t size, std::size_t n, std::FILE * to), (from, size, n, to), 0)
FAULTY(int, flush, "fflush", (std::FILE * stream), (stream), EOF)
FAULTY(int, sync, PLATFORM "11sync_streamEP" STREAM, (std::FILE * stream), (stream), -1)
FAULTY(int, close, "fclose", (std::FILE * stream), (stream), (real_close(stream), EOF)) // the stream is gone even then
FAULTY(int, remove, PLATFORM "11remove_fileERKNS_7ustringE", (const ustring & path), (path), (real_remove(path), -1))
FAULTY(int, rename, PLATFORM "11rename_fileERKNS_7ustringES3_", (const ustring & from, const ustring & to), (from, to), -1)
// clang-format on

namespace {

const std::string path = "directory.%s/brod.";
const std::string generic = "x\n" + std::string(40000, 'g') + "\n"; // long enough for a write of its own
const std::string old_text = "SERVER: a\nSERVER: b\n" + generic;
const std::string new_text = generic + "SERVER: b\nSERVER: a\n";

void lay_out() {
    std::filesystem::create_directory("directory.%s");
    std::filesystem::remove(path + "tmp");
    write_file(path + "cfg", old_text);
    write_file(path + "bak", "older");
}

/// What brod.cfg, brod.bak and brod.tmp hold.
std::string state() {
    const std::map<std::string, std::string> known{
        {old_text, " old"}, {new_text, " new"}, {"older", " older"}, {"(no file)", " -"}};
    std::string all;
    for (const char * name : {"cfg", "bak", "tmp"}) {
        const auto found = known.find(read_text(path + name));
        all += found != known.end() ? found->second : " part";
    }
    return all;
}

ustring cfg_file() { return ustring((path + "cfg").c_str()); }

const scenario killed("set_server", [] {
    scan_cfg cfg(cfg_file());
    cfg.load();
    with_fault(fault::death, std::atoi(std::getenv("n")), [&] { return cfg.set_server(2); });
});

TEST(ScanCfgFaults, EachFileOperationFailsInTurn) {
    std::string outcome;
    std::string errors;
    std::string operation = "first";
    for (int n = 1; operation != ""; ++n) {
        std::string codes;
        for (const fault kind : {fault::once, fault::from_then_on}) {
            lay_out();
            scan_cfg cfg(cfg_file());
            ASSERT_EQ(cfg.load(), 0);
            const int rc = with_fault(kind, n, [&] { return cfg.set_server(2); });
            codes += std::to_string(rc) + state() + " | ";
            operation = struck;
            errors += operation == "rename" ? text_of(cfg.error_text()) + "\n" : "";
            EXPECT_EQ(cfg.cfg_stream(), nullptr);
        }
        lay_out();
        set_variable("n", std::to_string(n).c_str());
        run_scenario("set_server");
        outcome += operation + ": " + codes + "killed" + state() + "\n";
        EXPECT_EQ(scan_cfg::recover(cfg_file()), 0);
        EXPECT_TRUE(state().starts_with(" old") || state().starts_with(" new")) << outcome;
    }
    // When that operation fails, when all from it on fail, and when the process ends in front of it.
    EXPECT_EQ(outcome, "open: 250 old older - | 250 old older - | killed old older -\n"
                       "permit: 251 old older part | 251 old older part | killed old older part\n"
                       "write: 251 old older part | 251 old older part | killed old older part\n"
                       "write: 251 old older part | 251 old older part | killed old older part\n"
                       "write: 251 old older part | 251 old older part | killed old older part\n"
                       "flush: 251 old older new | 251 old older new | killed old older part\n"
                       "sync: 251 old older new | 251 old older new | killed old older new\n"
                       "close: 251 old older new | 251 old older new | killed old older new\n"
                       "remove: 0 new old - | 261 old - new | killed old older new\n"
                       "rename: 261 old - new | 261 old - new | killed old - new\n"
                       "rename: 261 old - new | 261 - old new | killed - old new\n"
                       ": 0 new old - | 0 new old - | killed new old -\n");
    EXPECT_EQ(errors, "error backing up [directory.%s/brod.cfg] file\n"
                      "error backing up [directory.%s/brod.cfg] file\n"
                      "error replacing [directory.%s/brod.cfg] file; recovery [succeeded]\n"
                      "error replacing [directory.%s/brod.cfg] file; recovery [failed]\n");
}

TEST(ScanCfgFaults, RecoverTellsWhetherItDid) {
    lay_out();
    std::filesystem::remove(path + "cfg");
    EXPECT_EQ(with_fault(fault::from_then_on, 3, [] { return scan_cfg::recover(cfg_file()); }), 261);
    EXPECT_EQ(scan_cfg::recover(cfg_file()), 0);
    EXPECT_EQ(state(), " older - -");
    write_file(path + "bak", "other");
    EXPECT_EQ(scan_cfg::recover(cfg_file()), 0);
    EXPECT_EQ(state(), " older part -");
    for (const char * missing : {"none/brod.cfg", "abc", ""}) EXPECT_EQ(scan_cfg::recover(missing), 250) << missing;
}

} // namespace
