#include "orvet/legacycfg/scan_cfg.h"

#include <utility>

#include "orvet/files/line_reader_internal.h"
#include "orvet/files/sections.h"
#include "orvet/foundation/base/memory.h"
#include "orvet/foundation/base/pair.h"
#include "orvet/foundation/codes.h"
#include "orvet/foundation/platform/files.h"
#include "orvet/foundation/platform/rewrite.h"
#include "orvet/utilities/usprintf.h"

namespace orvet {

namespace {

constexpr char server_key[] = "SERVER:";
constexpr char workstation_key[] = "WORKSTATION NAME:";
constexpr char protocol_key[] = "PROTOCOL:";

const ustring & line_at(const vector & lines, unsigned i)
{
    return static_cast<const ustring &>(*lines[i]);
}

/// Whether a line begins with a key, in any case.
bool has_key(const ustring & line, const ustring & key)
{
    return line.compare(0, key.length(), key, 0, key.length(), 1) == 0;
}

/// Ends a line of a listing, whatever its length and the bytes in it.
void print_text(const ustring & text)
{
    memory_watch watch;
    const char * const bytes = text.mbcs_str();
    std::fwrite(bytes, 1, watch.failed() ? 0 : text.mbcs_length(), stdout);
    std::putchar('\n');
}

} // namespace

scan_cfg::scan_cfg(const ustring & cfg_file) : cfg_file_(cfg_file)
{
}

bool scan_cfg::close_stream()
{
    return platform::close_stream(std::exchange(cfg_stream_, nullptr)) == 0;
}

int scan_cfg::load()
{
    error_text_.assign("");
    cfg_stream_ = platform::open_shared(cfg_file_);
    const bool whole = cfg_stream_ && read_lines();
    if (cfg_stream_)
        close_stream();
    if (whole)
        return code::success;
    std::printf("unable to open file [%s]\n", cfg_file_.mbcs_str());
    usprintf(error_text_, "unable to open file [%s]", cfg_file_);
    return code::open_failed;
}

/// Adds the lines of the stream, all or none.
bool scan_cfg::read_lines()
{
    memory_watch watch;
    const unsigned generic_before = generic_lines_.size();
    const unsigned servers_before = server_lines_.size();
    ustring name(target_name_);
    ustring protocol(target_protocol_);
    const ustring server(server_key);
    const struct {
        ustring key;
        ustring & value;
    } targets[] = {{workstation_key, name}, {protocol_key, protocol}};

    line_reader reader;
    reader.attach(cfg_stream_);
    ustring line;
    while (!watch.failed() && reader.get_line(line)) {
        line.strip(ustring::strip_both, u' ');
        if (line.length() == 0)
            continue;
        const bool is_server = has_key(line, server);
        for (const auto & target : targets)
            if (!is_server && has_key(line, target.key)) {
                keyval rest(line);
                rest.getval(target.key);
                target.value.assign(rest);
                break;
            }
        (is_server ? server_lines_ : generic_lines_).push_back(make<ustring>(line));
    }
    // What ended too early must never be taken for the whole file and written back.
    if (watch.failed() || !reader.at_end()) {
        generic_lines_.resize(generic_before);
        server_lines_.resize(servers_before);
        return false;
    }
    target_name_ = std::move(name);
    target_protocol_ = std::move(protocol);
    server_count_ = static_cast<int>(server_lines_.size());
    return true;
}

void scan_cfg::show() const
{
    std::printf("Target_Name \t:");
    print_text(target_name_);
    std::printf("Target_Prot \t:");
    print_text(target_protocol_);
    const ustring key(server_key);
    for (int i = 1; i <= server_count_; ++i) {
        keyval server(line_at(server_lines_, static_cast<unsigned>(i - 1)));
        server.getval(key);
        std::printf("Server%d \t:", i);
        print_text(server);
    }
}

void scan_cfg::show_all() const
{
    const auto print = [](const char * label, const vector & lines) {
        for (unsigned i = 0; i < lines.size(); ++i) {
            std::printf("%s (%2u) :", label, i + 1);
            print_text(line_at(lines, i));
        }
    };
    std::printf("\n\n** Full Brod_cfg listing **\n");
    print("Serverline", server_lines_);
    print("Generic line", generic_lines_);
}

void scan_cfg::fill_vector(vector & out) const
{
    memory_watch watch;
    const unsigned before = out.size();
    const ustring workstation(workstation_key);
    for (unsigned i = 0; i < generic_lines_.size(); ++i) {
        const ustring & line = line_at(generic_lines_, i);
        if (has_key(line, workstation))
            continue;
        const unsigned colon = line.find(u':');
        ustring key(line, 0, colon);
        ustring value(line, colon == ustring::npos ? 0 : colon + 1);
        out.push_back(
            make<pair>(key.strip(ustring::strip_both, u' '), value.strip(ustring::strip_both, u' ')));
    }
    if (watch.failed())
        out.resize(before);
}

} // namespace orvet
