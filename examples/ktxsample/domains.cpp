// The life of a scan result file in a tool: open it, find the topology, load the domains and the place of
// their targets, then read the targets of any domain by seeking.

#include "ktxsample.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace {

/// The log file, and beside it what the operator should see on the screen: the warnings and errors at the
/// end, and on a terminal how far the loading has come, since each loaded domain is logged.
class log_for_screen : public orvet::trace_stream {
public:
    int writeline(const char * line) override
    {
        const char * const message = std::strstr(line, "MSG");
        if (message && (std::strstr(message, " [E] ") || std::strstr(message, " [W] ")))
            notes += std::string("  ") + message;
        if (message && watched_ && std::strncmp(message, "MSG0114", 7) == 0 && ++loaded_ % 100 == 0)
            std::fprintf(stderr, "\r%u domains loaded", loaded_);
        return file_.writeline(line);
    }
    static void end_progress()
    {
        if (loaded_ >= 100 && is_terminal(2))
            std::fprintf(stderr, "\r%24s\r", "");
    }

    static inline std::string notes;

private:
    orvet::stdio_trace_stream file_{"ktx1.log"};
    const bool watched_ = is_terminal(2);
    static inline unsigned loaded_ = 0;
};

/// Prints the domains of a topology as a tree, each with the entries of its target section.
class domain_tree {
public:
    domain_tree(orvet::kt_file & file, const orvet::vector & topv)
        : file_(file), topv_(topv), shown_(topv.size())
    {
        for (unsigned i = 0; i < topv_.size(); ++i)
            below_[parent_of(domain(i))].push_back(i);
    }

    void show()
    {
        // First what depends on nothing, then what two domains that name each other keep from being reached.
        for (const unsigned i : below_[""])
            show_branch(i);
        for (unsigned i = 0; i < topv_.size(); ++i)
            show_branch(i);
    }

private:
    const orvet::top_entry & domain(unsigned i) const
    {
        return static_cast<const orvet::top_entry &>(*topv_[i]);
    }

    /// The path of a domain is the server that it depends on, a separator, and its own; one part may be
    /// missing.
    static std::string parent_of(const orvet::top_entry & domain)
    {
        const std::string path = domain.dep_path.mbcs_str();
        const std::size_t own = orvet::build_server_rr(domain.domain_name).mbcs_length();
        return own == 0 ? path : path.size() > own ? path.substr(0, path.size() - own - 1) : "";
    }

    /// Shows a domain and all that depends on it. A chain may be as long as the file, so it is walked with a
    /// list.
    void show_branch(unsigned root)
    {
        std::vector<std::pair<unsigned, unsigned>> waiting{{root, 0}};
        while (!waiting.empty()) {
            const auto [index, depth] = waiting.back();
            waiting.pop_back();
            if (shown_[index])
                continue;
            shown_[index] = true;
            show_domain(domain(index), depth);
            const auto children = below_.find(orvet::build_server_rr(domain(index).domain_name).mbcs_str());
            if (children != below_.end() && !children->first.empty())
                for (auto child = children->second.rbegin(); child != children->second.rend(); ++child)
                    waiting.push_back({*child, depth + 1});
        }
    }

    void show_domain(const orvet::top_entry & domain, unsigned depth)
    {
        const auto & section = static_cast<const orvet::sof_entry &>(*domain.trg_sect_info[0]);
        const std::string margin(2U * std::min(depth, 20U), ' ');
        const std::string name = margin + domain.domain_name.mbcs_str();
        std::printf("%s%-24s %3d targets  %s%s\n", bold_, name.c_str(), section.sect_count,
                    domain.dep_path.mbcs_str(), plain_);
        show_targets(section, margin + "   ");
    }

    void show_targets(const orvet::sof_entry & section, const std::string & margin)
    {
        const std::size_t width = terminal_width();
        if (file_.seek(section.sect_offset, SEEK_SET) != 0)
            return;
        std::string row = margin;
        orvet::ustring entry;
        for (int i = 0; i < section.sect_count && file_.get_line(entry); ++i) {
            if (row.size() > margin.size() && row.size() + entry.mbcs_length() > width) {
                std::printf("%s\n", row.c_str());
                row = margin;
            }
            row += std::string(" ") + entry.mbcs_str() + ";";
        }
        if (row.size() > margin.size())
            std::printf("%s\n", row.c_str());
    }

    orvet::kt_file & file_;
    const orvet::vector & topv_;
    std::vector<bool> shown_;
    std::map<std::string, std::vector<unsigned>> below_; // by the server that they depend on
    const char * bold_ = is_terminal(1) ? "\033[1m" : "";
    const char * plain_ = is_terminal(1) ? "\033[0m" : "";
};

} // namespace

int show_domains(const orvet::input_parms & ip)
{
    orvet::trace::set_stream(orvet::log::wa(), new log_for_screen);
    orvet::kt_file file(ip.ip_input_file());
    const orvet::close_at_end closing(file);
    orvet::vector topv;
    orvet::ustring server;
    short rc = file.open("r");
    if (rc == 0)
        rc = file.find_section("[topology]");
    if (rc == 0)
        rc = file.load_top(server, topv);
    if (rc == 0)
        rc = file.load_offsets(topv);
    log_for_screen::end_progress();

    if (rc == 0 && topv.size() != 0) {
        std::printf("%s: server %s, %u domains\n\n", ip.ip_input_file().mbcs_str(), server.mbcs_str(),
                    topv.size());
        domain_tree(file, topv).show();
    } else {
        std::printf("%s: no domains could be read, code %d\n", ip.ip_input_file().mbcs_str(), rc);
    }
    if (!log_for_screen::notes.empty())
        std::printf("\nTold to the operator:\n%s", log_for_screen::notes.c_str());
    std::printf("\nTrace and log went to %s\n", orvet::environment::kt_inst_path().mbcs_str());
    return rc == 0 && log_for_screen::notes.empty() ? 0 : 1;
}
