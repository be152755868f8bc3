#include "operations.h"

#include "orvet/foundation/platform/files.h"

namespace orvet_test {

namespace {

const char * const mandatory[] = {"-trg", nullptr};
const std::string longer = "a text longer than what an object holds itself";

// clang-format off
const values files = {
    {"scan", longer + "\n[topology]\ncount = 2\nhq = any,HQ1," + longer + "\nsouth = any,SOUTHERN DOMAIN,push,HQ1\n"
             "[hq]\ncount = 1\na target\n[south]\ncount = 0\n"},
    {"other", "other"},
    {"agents", "TARGET=first\nOperating_system=WINDOWS_NT\nserver_NAME=" + longer + "\nSERVER_REN_RGN=a\n"
               "GATEWAY_IP_ADDRESS=b\nIMAGES_SERVER_NAME=c\nEXPORTED_DIR=d\nMOUNT_POINT=e\n"},
    {"profiles", "PROFILE NAME=" + longer + "\n  SEND=YES\n"},
    {"users", "USER=" + longer + "\n  authorization profile=" + longer + "\n"},
    {"brod.cfg", "SERVER: one\nSERVER: two\nWORKSTATION NAME:" + longer + "\nkey:" + longer + "\n"},
    {"brod.bak", "older"},
    {"list", "Name:x\nLocal name: $(FILEPATH)/" + longer + "\n"},
};
// clang-format on
} // namespace

/// What the operations work on; each uses a part of it.
struct world {
    kt_file file{pathname("scan")};
    pathname path{"other"};
    ustring text{longer.c_str()};
    ustring topology{"[topology]"};
    ustring south{"[south]"};
    ustring line; // read from a file that is written to
    ustring command{"dummy directory brod lstg -l"};
    ustring tokens{("$(FILEPATH)/" + longer).c_str()};
    vector items;
    vector copies;
    long number = 0;
    int count = 0;
    char buffer[4] = "old";
    char words[3][60] = {"tool", "-trg", "another text, a longer one than an object holds itself"};
    char * arguments[3] = {words[0], words[1], words[2]};
    file_input_parms input;
    auth_profile_info profile;
    input_parms options;
    scan_cfg cfg{"brod.cfg"};
    brod_base_ls listing{"an object"};
    int code = code::success;

    world() { copies.push_back(new ustring); }
    bool fails(int result) { return (code = result) != code::success; }
    /// Through a stream without a buffer, so that the result is that of the write.
    int write_line()
    {
        int result = 0;
        printed_as_error_by([&] {
            std::FILE * const log = platform::open_stream("log", "a");
            if (log)
                std::setvbuf(log, nullptr, _IONBF, 0);
            result = stdio_trace_stream(log).writeline("x\n");
        });
        return result;
    }
    /// Ends an operation that doesn't report: what it changes is as before or whole.
    bool is_quiet() { return fails(no_report); }
};

namespace {

/// Stores the result of a function that returns an empty text for a failure.
void keep(ustring & result, ustring returned)
{
    if (returned.length() != 0)
        result = std::move(returned);
}

int read_to_the_end(world & w)
{
    int lines = 0;
    for (ustring line; w.file.get_line(line);)
        ++lines;
    w.count = w.file.at_end() ? lines : 0;
    return w.file.at_end() ? code::success : code::read_failed;
}

bool clone_each(world & w)
{
    codable * const kinds[] = {&w.text, &w.path, &w.items, &w.profile};
    for (codable * each : kinds)
        if (w.fails(std::unique_ptr<codable>(each->clone()) == nullptr))
            return true;
    return false;
}

} // namespace

const std::vector<fault_target> operations = {
    fault_target("read", "buffer",
                 [](world & w) {
                     return w.fails(w.file.open("r")) || w.fails(w.file.read(w.buffer, 1, 3)) ||
                            w.fails(!w.file.get_line(w.south)) || w.fails(w.file.get_pos(&w.number)) ||
                            w.fails(w.file.close());
                 }),
    fault_target("read_to_the_end", "-",
                 [](world & w) { return w.fails(w.file.open("r")) || w.fails(read_to_the_end(w)); }),
    fault_target("update", "file",
                 [](world & w) {
                     return w.fails(w.file.open("r+b")) || w.fails(!w.file.get_line(w.topology)) ||
                            w.fails(w.file.write("new", 3)) || w.fails(w.file.seek(0, SEEK_SET)) ||
                            w.fails(w.file.write("new", 3)) || w.fails(!w.file.get_line(w.line)) ||
                            w.fails(w.file.close());
                 }),
    fault_target("write", "file scan",
                 [](world & w) {
                     return w.fails(w.file.open("w")) || w.fails(w.file.write(w.text)) ||
                            w.fails(w.file.close());
                 }),
    fault_target("move", "file other", [](world & w) { return w.fails(w.file.copy_to(w.path)); }),
    fault_target("remove", "-", [](world & w) { return w.fails(w.file.removef()); }),
    fault_target("sections", "-",
                 [](world & w) {
                     return w.fails(w.file.open("r")) || w.fails(w.file.find_section(w.topology)) ||
                            w.fails(!w.file.get_line(w.text)) ||
                            w.fails(w.file.get_keyval(w.tokens, w.command)) ||
                            w.fails(w.file.seek_section(w.south, &w.count, 1));
                 }),
    fault_target("topology", "item",
                 [](world & w) {
                     return w.fails(w.file.open("r")) || w.fails(w.file.find_section(w.topology)) ||
                            w.fails(w.file.load_top(w.text, w.items)) ||
                            w.fails(w.file.load_offsets(w.items));
                 }),
    fault_target("agents", "-",
                 [](world & w) { return w.fails(w.input.get_fips("agents", 1, "TARGET=", 1)); }),
    fault_target("profiles", "-",
                 [](world & w) { return w.fails(w.input.get_fips("profiles", 1, "PROFILE NAME=", 2)); }),
    fault_target("users", "-", [](world & w) { return w.fails(w.input.get_fips("users", 1, "USER=", 3)); }),
    fault_target("line", "-", [](world & w) { return w.fails(w.profile.set(w.text.insert(0, "send="))); }),
    fault_target("options", "-", [](world & w) { return w.fails(w.options.get_ips(3, w.arguments)); }),
    fault_target("commands", "ran",
                 [](world & w) {
                     w.listing.set_brod_cmd(w.command, 1);
                     return w.fails(brod_base_lscm(w.text, w.south).exec_brod_cmd(0, 0)) ||
                            w.fails(brod_base_ls(w.text).exec_brod_cmd(1, 1)) ||
                            w.fails(w.listing.exec_brod_cmd(0, 1));
                 }),
    fault_target("listing", "-",
                 [](world & w) {
                     w.listing.set_output_file(w.text);
                     w.listing.build_final_out_file(w.text);
                     w.listing.out_file().set_file_name("list");
                     w.listing.set_local_name();
                     return w.is_quiet();
                 }),
    fault_target("configure", "file brod",
                 [](world & w) { return w.fails(w.cfg.load()) || w.fails(w.cfg.set_server(2)); }),
    fault_target("recover", "file brod",
                 [](world & w) {
                     fs::rename("brod.cfg", "brod.bak");
                     write_file("brod.tmp", "left by a dead process");
                     return w.fails(scan_cfg::recover("brod.cfg"));
                 }),
    fault_target("lists", "-",
                 [](world & w) {
                     w.cfg.load();
                     w.cfg.fill_vector(w.items);
                     w.cfg.show_all();
                     return w.is_quiet();
                 }),
    fault_target("texts", "-",
                 [](world & w) {
                     resolve_tokens(w.tokens);
                     usprintf(w.topology, "%s, %d", w.text, 5);
                     w.south.append(w.text);
                     w.path += w.text;
                     w.profile.set_usSend(w.text);
                     return w.is_quiet();
                 }),
    fault_target("returned_texts", "-",
                 [](world & w) {
                     keep(w.text, w.options.usage({ip_names, ip_names}, "tool"));
                     keep(w.topology, brod_base::canned_file(w.command));
                     keep(w.command, get_token(w.tokens, 0));
                     keep(w.south, build_server_rr(w.tokens));
                     return w.is_quiet();
                 }),
    fault_target("objects", "count",
                 [](world & w) {
                     w.items.push_back(new (std::nothrow) ustring(w.text));
                     w.items.push_back(new (std::nothrow) ustring(w.text));
                     if (w.items.size() == 2)
                         w.copies = w.items;
                     w.count = static_cast<int>(vector(w.items).size() + w.options.missing(mandatory).size());
                     return w.is_quiet();
                 }),
    fault_target("clones", "-", clone_each),
    fault_target("kt_chkfile", "-", [](world & w) { return w.fails(!kt_chkfile(w.path)); }),
    fault_target("log_line", "file log",
                 [](world & w) {
                     return w.fails(w.write_line() != 2) ||
                            w.fails(capture_stream().writeline("line\n") != 5);
                 }),
};

namespace {

/// The files that are there, as the last look found them.
values on_disk;

void look_at_files()
{
    on_disk.clear();
    for (const auto & entry : fs::directory_iterator(test_directory()))
        if (entry.is_regular_file())
            on_disk[entry.path().filename().string()] = read_text(entry.path().string());
}

void lay_out_files()
{
    for (const auto & [name, text] : on_disk)
        if (!files.contains(name))
            fs::remove(name);
    for (const auto & [name, text] : files)
        if (const auto old = on_disk.find(name); old == on_disk.end() || old->second != text)
            write_file(name, text);
    on_disk = files;
}

/// What an operation may change, by names.
values look(world & w)
{
    values all = {{"path", text_of(w.path.text())},
                  {"text", text_of(w.text)},
                  {"topology", text_of(w.topology)},
                  {"south", text_of(w.south)},
                  {"file line", text_of(w.line)},
                  {"tokens", text_of(w.tokens)},
                  {"command", text_of(w.command)},
                  {"ran", commands_run},
                  {"copies", std::to_string(w.copies.size())},
                  {"number", std::to_string(std::max(0L, w.number))},
                  {"count", std::to_string(w.count)},
                  {"buffer", w.buffer},
                  {"agent", text_of(w.input.input_info(1).server_name())},
                  {"sections", std::to_string(w.input.arSections().size())},
                  {"profile", text_of(w.profile.usSend()) + std::to_string(w.profile.fip("SEND="))},
                  {"option", text_of(w.options.ip_trg_name()) + std::to_string(w.options.ip("-trg"))},
                  {"lines", std::to_string(w.cfg.generic_lines().size() + w.cfg.server_lines().size())},
                  {"output", text_of(w.listing.output_file().text())},
                  {"final", text_of(w.listing.final_out_file().file_name().text())},
                  {"local name", text_of(w.listing.get_local_name().text())}};
    for (unsigned i = 0; i < w.items.size(); ++i)
        all["item " + std::to_string(i)] = w.items[i]->codable_name();
    for (const auto & [name, text] : on_disk)
        all["file " + name] = "<" + text + ">";
    return all;
}

outcome run(const fault_target & o, fault & f, transcript & recorded)
{
    outcome result{};
    const int streams = open_streams;
    const long blocks = blocks_in_use;
    {
        world w;
        lay_out_files();
        result.before = look(w);
        recorded.take();
        f.work([&] { o.run(w); });
        result.lines = portable(recorded.take() + text_of(w.cfg.error_text()));
        if (w.file.close() != code::success) // of what was written before
            static_cast<void>(w.file.close());
        result.code = w.code;
        if (f.has_met_calls())
            look_at_files();
        result.after = look(w);
    }
    result.fault = f.name();
    result.streams = open_streams - streams;
    result.blocks = blocks_in_use - blocks;
    return result;
}

} // namespace

const std::vector<outcome> & runs_of(const fault_target & o, bool traced)
{
    static std::map<std::string, std::vector<outcome>> known;
    std::vector<outcome> & all = known[o.name + std::to_string(traced)];
    if (!all.empty())
        return all;
    transcript recorded(traced ? 0 : 5);
    look_at_files();
    printed_by([&] {
        fault none(fault::calls);
        run(o, none, recorded); // makes what a process makes once
        all.push_back(run(o, none, recorded));
        for (const auto source : {fault::calls, fault::allocations})
            for (fault each(source); each.next();)
                all.push_back(run(o, each, recorded));
    });
    return all;
}

} // namespace orvet_test
