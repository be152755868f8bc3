#include "orvet/files/topology.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <string_view>

#include "orvet/files/kt_file.h"
#include "orvet/files/sections.h"
#include "orvet/foundation/base/memory.h"
#include "orvet/foundation/call_trace.h"
#include "orvet/foundation/codes.h"
#include "orvet/foundation/messages.h"

namespace orvet {

namespace {

constexpr char section_name[] = "topology";
constexpr int most_domains = 32767;
constexpr char expected_mode[] = "push";

/// The target section of an item of a topology vector; null for an item that has none.
sof_entry * target_section(codable * item)
{
    auto * const domain = dynamic_cast<top_entry *>(item);
    auto * const section = domain ? dynamic_cast<sof_entry *>(domain->trg_sect_info[0]) : nullptr;
    return section && section->sect_type == sof_entry::target_sect ? section : nullptr;
}

/// One domain with its section, ready for the topology vector; null when memory is short.
top_entry * make_domain(const ustring & name, const pathname & dep_path, const ustring & head)
{
    memory_watch watch;
    vector sections;
    sections.push_back(make<sof_entry>(head, sof_entry::target_sect));
    return watch.failed() ? nullptr : make<top_entry>(name, dep_path, sections);
}

/// Domains by their name while some of them are taken out, in a time that does not grow with their number.
class domain_finder {
public:
    /// Takes in the domains, by their order. False when memory is short.
    bool build(const vector & topv)
    {
        count_ = static_cast<int>(topv.size());
        while (slot_count_ < 2U * topv.size())
            slot_count_ *= 2;
        domains_.reset(new (std::nothrow) domain[topv.size()]);
        slots_.reset(new (std::nothrow) slot[slot_count_]);
        if (!domains_ || !slots_)
            return false;
        // From the back, so that each chain of equal names begins with the first of them.
        for (int i = count_ - 1; i >= 0; --i) {
            domains_[i].entry = static_cast<const top_entry *>(topv[static_cast<unsigned>(i)]);
            slot & place = slot_of(domains_[i].entry->domain_name);
            domains_[i].next = place.first;
            place.first = i;
            place.name = &domains_[i].entry->domain_name;
        }
        return true;
    }

    /// The first domain of that name which is still in; -1 when there is none.
    int find(const ustring & name)
    {
        slot & place = slot_of(name);
        while (place.first >= 0 && domains_[place.first].out)
            place.first = domains_[place.first].next;
        return place.first;
    }

    void take_out(int i) { domains_[i].out = true; }
    const top_entry & entry(int i) const { return *domains_[i].entry; }

private:
    struct domain {
        const top_entry * entry;
        int next; // the next one of the same name, or -1
        bool out = false;
    };
    struct slot {
        const ustring * name = nullptr;
        int first = -1;
    };

    slot & slot_of(const ustring & name)
    {
        const std::u16string_view text(name.data(), name.length());
        std::size_t at = std::hash<std::u16string_view>{}(text) & (slot_count_ - 1);
        while (slots_[at].name && *slots_[at].name != name)
            at = (at + 1) & (slot_count_ - 1);
        return slots_[at];
    }

    int count_ = 0;
    std::size_t slot_count_ = 2;
    std::unique_ptr<domain[]> domains_;
    std::unique_ptr<slot[]> slots_;
};

/// Takes out of `topv` the domains whose dependency, the item of the same index in `dependencies`, is not
/// there when their turn comes. False when memory is short.
bool check_dependencies(const call_trace & trace, vector & topv, const vector & dependencies)
{
    domain_finder finder;
    std::unique_ptr<int[]> index(new (std::nothrow) int[topv.size()]); // of the domains looked at so far
    if (!index || !finder.build(topv))
        return false;
    const int count = static_cast<int>(topv.size());
    codable ** const items = topv.items();
    int kept = 0; // the index at which the domain in hand stands, those taken out not counted
    for (int number = 0; number < count; ++number) {
        const auto * const dependency =
            static_cast<const ustring *>(dependencies[static_cast<unsigned>(number)]);
        const bool depends = dependency && dependency->length() != 0;
        index[number] = kept;
        const int found = depends ? finder.find(*dependency) : -1;
        if (!depends || found >= 0) {
            if (depends)
                trace.info("Valid dependency found: <%d,%s> by <%d,%s>", kept, *dependency,
                           found <= number ? index[found] : found - (number - kept),
                           finder.entry(found).domain_name);
            std::swap(items[kept++], items[number]);
            continue;
        }
        const ustring & name = finder.entry(number).domain_name;
        trace.error("Invalid domaind dependency found <%d,%s,%s>", kept, name, *dependency);
        log_message(messages::MSG0107, number, name, *dependency);
        finder.take_out(number);
    }
    topv.resize(static_cast<unsigned>(kept)); // those taken out have gathered at the back
    return true;
}

} // namespace

codable * sof_entry::clone()
{
    return make<sof_entry>(*this);
}

codable * top_entry::clone()
{
    return make<top_entry>(*this);
}

short print_topv(const vector & topv, const char * label)
{
    const call_trace trace("print_topv");
    for (unsigned i = 0; i < topv.size() && system_trace::passes(severity::info); ++i) {
        const sof_entry * const section = target_section(topv[i]);
        if (!section)
            continue;
        const auto & domain = static_cast<const top_entry &>(*topv[i]);
        trace.info("%s-topv[%d] = <%s,%s> trg_sect_info = <%s,%d,%d>", label, i, domain.domain_name,
                   domain.dep_path, section->sect_name, section->sect_count, section->sect_offset);
    }
    return trace.leave(code::success);
}

int sort_on_dep_len(const void * a, const void * b)
{
    const auto length = [](const void * item) {
        return static_cast<const top_entry *>(*static_cast<codable * const *>(item))
            ->dep_path.text()
            .length();
    };
    return length(a) < length(b) ? -1 : length(a) > length(b) ? 1 : 0;
}

short kt_file::load_top(ustring & server, vector & topv)
{
    const call_trace trace("kt_file::load_top");
    ustring line;
    int count = 0;
    if (!get_line(line) || get_count(line, &count) != 0 || count > most_domains) {
        trace.error("Error %d parsing count line", code::no_count);
        log_message(messages::MSG0112, section_name, file_path_);
        return trace.fail(code::no_count);
    }
    trace.info("count = <%d>", count);

    memory_watch watch;
    vector dependencies;
    ustring key;
    ustring value;
    for (int i = 0; i < count; ++i) {
        if (const short rc = get_keyval(key, value)) {
            trace.error("Error %d parsing topology section at offset <%d>", rc, i);
            log_message(messages::MSG0111, i, section_name, file_path_);
            return trace.fail(rc);
        }
        const ustring head = ustring("[").append(key).append("]");
        const ustring name = get_token(value, 1);
        ustring dependency;
        pathname dep_path;
        if (i == 0) {
            server = build_server_rr(name);
        } else {
            const ustring mode = get_token(value, 2);
            if (mode != expected_mode) {
                trace.warning("Domain <%d,%s,%s> is not push", i, name, mode);
                log_message(messages::MSG0108, i, name, mode);
            }
            dependency = get_token(value, 3);
            dep_path = build_server_rr(dependency);
            dep_path += build_server_rr(name);
        }
        trace.info("Dep = <%s , %s , %s> ", head, name, dep_path);
        topv.push_back(make_domain(name, dep_path, head));
        dependencies.push_back(make<ustring>(dependency));
        if (watch.failed()) {
            topv.resize(static_cast<unsigned>(i));
            return trace.fail(code::no_keyval);
        }
    }
    print_topv(topv, "load_top_after_loading");
    if (!check_dependencies(trace, topv, dependencies))
        return trace.fail(code::no_keyval);
    print_topv(topv, "load_top_after_depcheck");
    return trace.leave(code::success);
}

short kt_file::load_offsets(vector & topv)
{
    const call_trace trace("kt_file::load_offsets");
    for (unsigned i = 0; i < topv.size(); ++i) {
        sof_entry * const section = target_section(topv[i]);
        if (!section)
            continue;
        if (const short rc = seek_section(section->sect_name, &section->sect_count, 1)) {
            trace.fatal("Error locating section <%s> in kt_file", section->sect_name);
            log_message(messages::MSG0113, section->sect_name, file_path_);
            return trace.fail(rc);
        }
        if (const short rc = get_pos(&section->sect_offset)) {
            trace.fatal("Error reading section offset -->%s<--", section->sect_name);
            log_message(messages::MSG0113, section->sect_name, file_path_);
            return trace.fail(rc);
        }
        trace.info("Loaded offset (%d) for section (%s) with (%d) entries", section->sect_offset,
                   section->sect_name, section->sect_count);
        log_message(messages::MSG0114, section->sect_count, section->sect_name);
    }
    print_topv(topv, "load_dom_after_loading");
    std::stable_sort(topv.items(), topv.items() + topv.size(),
                     [](codable * a, codable * b) { return sort_on_dep_len(&a, &b) < 0; });
    print_topv(topv, "load_dom_after_qsort");
    return trace.leave(code::success);
}

} // namespace orvet
