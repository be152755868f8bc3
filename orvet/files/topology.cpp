#include "orvet/files/topology.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <string_view>
#include <utility>

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

/// An object as one of class `T`; null if it is of another class.
template <class T>
T * as(codable * item, class_tag tag)
{
    return item && item->is_a(tag) ? static_cast<T *>(item) : nullptr;
}

/// The target section of an item of a topology vector; null for an item that has none.
sof_entry * target_section(codable * item)
{
    auto * const domain = as<top_entry>(item, class_tag::top_entry);
    auto * const section = domain ? as<sof_entry>(domain->trg_sect_info[0], class_tag::sof_entry) : nullptr;
    return section && section->sect_type == sof_entry::target_sect ? section : nullptr;
}

/// One domain with its section, ready for the topology vector; null when memory is short.
top_entry * make_domain(const ustring & name, pathname dep_path, const ustring & head)
{
    memory_watch watch;
    auto * const domain = make<top_entry>(name, pathname(), vector());
    if (domain) {
        domain->dep_path = std::move(dep_path);
        domain->trg_sect_info.push_back(make<sof_entry>(head, sof_entry::target_sect));
    }
    if (!watch.failed())
        return domain;
    delete domain;
    return nullptr;
}

/// The domains of a topology section, to be found by their name while some of them are taken out, in a time
/// that does not grow with their number.
class domain_finder {
public:
    /// Makes room for `count` domains. False when memory is short.
    bool reserve(int count)
    {
        const auto domains = static_cast<std::size_t>(std::max(count, 1));
        while (chain_count_ < domains)
            chain_count_ *= 2;
        domains_.reset(new (std::nothrow) domain[domains]);
        dependencies_.reset(new (std::nothrow) ustring[domains]);
        chains_.reset(new (std::nothrow) int[chain_count_]);
        return domains_ && dependencies_ && chains_;
    }

    /// Takes in the next domain, which has to stay where it is, and the name of the one that it depends on.
    void add(const top_entry & entry, ustring dependency)
    {
        domains_[size_] = {&entry, hash(entry.domain_name), none, false};
        dependencies_[size_++] = std::move(dependency);
    }

    /// Readies what has been added to be found.
    void link()
    {
        std::fill_n(chains_.get(), chain_count_, none);
        for (int i = size_ - 1; i >= 0; --i) { // so that the first of a name comes first in its chain
            int & chain = chain_of(domains_[i].hash);
            domains_[i].next = chain;
            chain = i;
        }
    }

    /// The first domain of that name which is still in; `none` when there is none.
    int find(const ustring & name)
    {
        const unsigned wanted = hash(name);
        for (int * at = &chain_of(wanted); *at != none;) {
            domain & there = domains_[*at];
            if (there.out)
                *at = there.next;
            else if (there.hash == wanted && there.entry->domain_name == name)
                return *at;
            else
                at = &there.next;
        }
        return none;
    }

    void take_out(int i) { domains_[i].out = true; }
    int size() const { return size_; }
    const top_entry & entry(int i) const { return *domains_[i].entry; }
    const ustring & dependency(int i) const { return dependencies_[i]; }

    static constexpr int none = -1;

private:
    struct domain {
        const top_entry * entry;
        unsigned hash;
        int next; // of its chain
        bool out;
    };

    static unsigned hash(const ustring & name)
    {
        return static_cast<unsigned>(std::hash<std::u16string_view>{}({name.data(), name.length()}));
    }
    int & chain_of(unsigned hash) { return chains_[hash & (chain_count_ - 1)]; }

    int size_ = 0;
    std::size_t chain_count_ = 1;
    std::unique_ptr<domain[]> domains_;
    std::unique_ptr<ustring[]> dependencies_;
    std::unique_ptr<int[]> chains_; // the first domain of each
};

/// Takes out of `topv`, which ends in the domains of `finder`, those whose dependency is not there when their
/// turn comes. False when memory is short.
bool check_dependencies(const call_trace & trace, vector & topv, domain_finder & finder)
{
    const auto count = static_cast<unsigned>(finder.size());
    std::unique_ptr<int[]> index(new (std::nothrow) int[count]); // of the domains looked at so far
    if (!index)
        return false;
    finder.link();
    const unsigned others = topv.size() - count; // none, by the rules of the call
    codable ** const items = topv.items() + others;
    int kept = 0; // the index at which the domain in hand stands, those taken out not counted
    for (int number = 0; number < finder.size(); ++number) {
        const ustring & dependency = finder.dependency(number);
        const bool depends = dependency.length() != 0;
        index[number] = kept;
        const int found = depends ? finder.find(dependency) : finder.none;
        if (!depends || found != finder.none) {
            if (depends)
                trace.info("Valid dependency found: <%d,%s> by <%d,%s>", kept, dependency,
                           found <= number ? index[found] : found - (number - kept),
                           finder.entry(found).domain_name);
            std::swap(items[kept++], items[number]);
            continue;
        }
        const ustring & name = finder.entry(number).domain_name;
        trace.error("Invalid domaind dependency found <%d,%s,%s>", kept, name, dependency);
        log_message(messages::MSG0107, number, name, dependency);
        finder.take_out(number);
    }
    topv.resize(others + static_cast<unsigned>(kept)); // those taken out have gathered at the back
    return true;
}

} // namespace

sof_entry::sof_entry(const sof_entry & other)
    : ktobject(other, class_tag::sof_entry), sect_name(other.sect_name), sect_aux(other.sect_aux),
      sect_count(other.sect_count), sect_offset(other.sect_offset), sect_type(other.sect_type)
{
}

top_entry::top_entry(const top_entry & other)
    : ktobject(other, class_tag::top_entry), domain_name(other.domain_name), dep_path(other.dep_path),
      trg_sect_info(other.trg_sect_info)
{
}

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

    const auto refuse = [&](short rc, int i) {
        trace.error("Error %d parsing topology section at offset <%d>", rc, i);
        log_message(messages::MSG0111, i, section_name, file_path_);
        return trace.fail(rc);
    };
    memory_watch watch;
    const ustring expected(expected_mode);
    domain_finder finder;
    if (!finder.reserve(count))
        return refuse(code::no_keyval, 0);
    ustring key;
    ustring value;
    for (int i = 0; i < count; ++i) {
        if (const short rc = get_keyval(key, value))
            return refuse(rc, i);
        const ustring head = ustring("[").append(key).append("]");
        const ustring name = get_token(value, 1);
        ustring dependency;
        pathname dep_path;
        ustring root;
        if (i == 0) {
            root = build_server_rr(name);
        } else {
            const ustring mode = get_token(value, 2);
            if (mode != expected) {
                trace.warning("Domain <%d,%s,%s> is not push", i, name, mode);
                log_message(messages::MSG0108, i, name, mode);
            }
            dependency = get_token(value, 3);
            dep_path = build_server_rr(dependency);
            dep_path += build_server_rr(name);
        }
        trace.info("Dep = <%s , %s , %s> ", head, name, dep_path);
        top_entry * const domain = make_domain(name, std::move(dep_path), head);
        topv.push_back(domain);
        if (!watch.failed())
            finder.add(*domain, std::move(dependency));
        if (watch.failed()) {
            topv.resize(static_cast<unsigned>(i));
            return refuse(code::no_keyval, i);
        }
        if (i == 0)
            server = std::move(root);
    }
    print_topv(topv, "load_top_after_loading");
    if (!check_dependencies(trace, topv, finder))
        return refuse(code::no_keyval, count);
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
