// Linked from the library's objects: the linker leads their file operations through here.
#include "support.h"

#include <cstdlib>

#include "orvet/foundation/platform/platform.h"
using namespace orvet;
using namespace orvet_test;
namespace {
enum class fault { none, once, from_then_on, death } armed = fault::none;
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
const std::string old_text = "SERVER: a\nSERVER: b\n" + generic, new_text = generic + "SERVER: b\nSERVER: a\n";

ustring lay_out() {
    std::filesystem::create_directory("directory.%s");
    std::filesystem::remove(path + "tmp");
    write_file(path + "cfg", old_text);
    write_file(path + "bak", "older");
    return (path + "cfg").c_str();
}

/// What brod.cfg, brod.bak and brod.tmp hold.
std::string state() {
    std::string all;
    for (const char * name : {"cfg", "bak", "tmp"}) {
        const std::string text = read_text(path + name);
        all += text == old_text      ? " old"
               : text == new_text    ? " new"
               : text == "older"     ? " older"
               : text == "(no file)" ? " -"
                                     : " part";
    }
    return all;
}

const scenario killed("set_server", [] {
    scan_cfg cfg((path + "cfg").c_str());
    cfg.load();
    with_fault(fault::death, std::atoi(std::getenv("n")), [&] { return cfg.set_server(2); });
});

TEST(ScanCfgFaults, EachFileOperationFailsInTurn) {
    std::string outcome, errors, operation = "first";
    for (int n = 1; operation != ""; ++n) {
        std::string codes;
        for (const fault kind : {fault::once, fault::from_then_on}) {
            scan_cfg cfg(lay_out());
            ASSERT_EQ(cfg.load(), 0);
            const int rc = with_fault(kind, n, [&] { return cfg.set_server(2); });
            codes += std::to_string(rc) + state() + " | ";
            operation = struck;
            errors += operation == "rename" ? text_of(cfg.error_text()) + "\n" : "";
            EXPECT_EQ(cfg.cfg_stream(), nullptr);
        }
        const ustring cfg_file = lay_out();
        set_variable("n", std::to_string(n).c_str());
        run_scenario("set_server");
        outcome += operation + ": " + codes + "killed" + state() + "\n";
        EXPECT_EQ(scan_cfg::recover(cfg_file), 0);
        EXPECT_TRUE(state().starts_with(" old") || state().starts_with(" new")) << outcome;
    }
    // When that operation fails, when all from it on fail, and when the process ends in front of it.
    const std::string write = "write: 251 old older part | 251 old older part | killed old older part\n";
    EXPECT_EQ(outcome, "open: 250 old older - | 250 old older - | killed old older -\n"
                       "permit: 251 old older part | 251 old older part | killed old older part\n" +
                           write + write + write +
                           "flush: 251 old older new | 251 old older new | killed old older part\n"
                           "sync: 251 old older new | 251 old older new | killed old older new\n"
                           "close: 251 old older new | 251 old older new | killed old older new\n"
                           "remove: 0 new old - | 261 old - new | killed old older new\n"
                           "rename: 261 old - new | 261 old - new | killed old - new\n"
                           "rename: 261 old - new | 261 - old new | killed - old new\n"
                           ": 0 new old - | 0 new old - | killed new old -\n");
    EXPECT_EQ(errors, "error backing up [directory.%s/brod.cfg] file\nerror backing up [directory.%s/brod.cfg] file\n"
                      "error replacing [directory.%s/brod.cfg] file; recovery [succeeded]\n"
                      "error replacing [directory.%s/brod.cfg] file; recovery [failed]\n");
}

TEST(ScanCfgFaults, RecoverTellsWhetherItDid) {
    const ustring cfg_file = lay_out();
    std::filesystem::remove(path + "cfg");
    EXPECT_EQ(with_fault(fault::from_then_on, 1, [&] { return scan_cfg::recover(cfg_file); }), 261);
    for (const char * backup : {"older", "other"}) { // the second stays, for by now there is a file
        write_file(path + "bak", backup);
        EXPECT_EQ(scan_cfg::recover(cfg_file), 0);
        EXPECT_EQ(state(), backup == std::string("older") ? " older - -" : " older part -");
    }
    for (const char * missing : {"none/brod.cfg", "abc", ""}) EXPECT_EQ(scan_cfg::recover(missing), 250) << missing;
}
} // namespace
