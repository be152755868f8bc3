#include "orvet/files/topology.h"

#include <algorithm>
#include <new>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

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

/// One line of a topology section, "key = kind,name,mode,dependency", in texts that the next one reuses.
struct topology_line {
    /// Takes the line apart; a token that is missing is empty.
    void parse(const ustring & key, const ustring & value)
    {
        head.assign("[").append(key).append("]");
        ustring * const tokens[] = {nullptr, &name, &mode, &dependency};
        unsigned begin = 0;
        for (ustring * const token : tokens) {
            const unsigned end = std::min(value.find(u',', begin), value.length());
            if (token)
                token->assign(value, begin, end - begin);
            begin = end + 1;
        }
    }
    /// The first domain of a section depends on nothing, whatever its line says.
    void make_root()
    {
        dependency.assign("");
        dep_path = "";
    }
    void make_path()
    {
        dep_path = build_server_rr(dependency);
        dep_path += build_server_rr(name);
    }

    ustring head;
    ustring name;
    ustring mode;
    ustring dependency;
    pathname dep_path;
};

/// One domain with its section; null if allocation fails.
top_entry * make_domain(const topology_line & line)
{
    memory_watch watch;
    auto * const domain = make<top_entry>(line.name, line.dep_path, vector());
    if (domain)
        domain->trg_sect_info.push_back(make<sof_entry>(line.head, sof_entry::target_sect));
    if (!watch.failed())
        return domain;
    delete domain;
    return nullptr;
}

/// The domains of a topology section by their names, while some of them are removed.
class domain_index {
public:
    /// Of all `count` domains, which have to outlive the index.
    domain_index(codable * const * domains, int count)
        : domains_(domains), next_(static_cast<std::size_t>(count), none), removed_(next_.size(), false)
    {
        first_.reserve(next_.size());
        for (int i = count - 1; i >= 0; --i) { // so that the first of a name comes first
            const auto [known, is_new] = first_.try_emplace(name_of(i), i);
            if (!is_new)
                next(i) = std::exchange(known->second, i);
        }
    }

    /// The first domain of that name that is not removed; `none` if there is none.
    int find(const ustring & name)
    {
        const auto known = first_.find(view(name));
        if (known == first_.end())
            return none;
        int & i = known->second;
        while (i != none && removed_[static_cast<std::size_t>(i)])
            i = next(i);
        return i;
    }

    void remove(int i) { removed_[static_cast<std::size_t>(i)] = true; }

    static constexpr int none = -1;

private:
    static std::u16string_view view(const ustring & text) { return {text.data(), text.length()}; }
    std::u16string_view name_of(int i) const
    {
        return view(static_cast<const top_entry *>(domains_[i])->domain_name);
    }
    int & next(int i) { return next_[static_cast<std::size_t>(i)]; }

    codable * const * domains_;
    std::unordered_map<std::u16string_view, int> first_;
    std::vector<int> next_; // of the same name
    std::vector<bool> removed_;
};

/// Removes those domains from `topv`, which ends in them, whose dependency does not exist when it is their
/// turn, and adds what they are to `left_out`, if there is one.
void check_dependencies(const call_trace & trace, vector & topv, const std::vector<ustring> & dependencies,
                        vector * left_out)
{
    const auto count = static_cast<int>(dependencies.size());
    const unsigned others = topv.size() - static_cast<unsigned>(count); // none, by the rules of the call
    codable ** const items = topv.items() + others;
    const std::vector<codable *> domains(items, items + count); // in the order of the file
    domain_index index(domains.data(), count);
    std::vector<int> positions(dependencies.size()); // in `topv`, of the domains looked at so far
    int kept = 0; // the position of the domain in hand: removed ones don't count
    for (int number = 0; number < count; ++number) {
        const auto & domain = static_cast<const top_entry &>(*domains[static_cast<std::size_t>(number)]);
        const ustring & dependency = dependencies[static_cast<std::size_t>(number)];
        positions[static_cast<std::size_t>(number)] = kept;
        const int found = dependency.length() != 0 ? index.find(dependency) : number;
        if (found == domain_index::none) {
            trace.error("Invalid domaind dependency found <%d,%s,%s>", kept, domain.domain_name, dependency);
            log_message(messages::MSG0107, number, domain.domain_name, dependency);
            index.remove(number);
            if (left_out)
                left_out->push_back(make<orphan_entry>(number, domain.domain_name, dependency));
            continue;
        }
        if (dependency.length() != 0)
            trace.info("Valid dependency found: <%d,%s> by <%d,%s>", kept, dependency,
                       found <= number ? positions[static_cast<std::size_t>(found)] : found - (number - kept),
                       dependency);
        std::swap(items[kept++], items[number]);
    }
    topv.resize(others + static_cast<unsigned>(kept)); // the removed ones have gathered at the end
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

codable * orphan_entry::clone()
{
    return make<orphan_entry>(*this);
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
        const auto * const domain =
            as<top_entry>(*static_cast<codable * const *>(item), class_tag::top_entry);
        return domain ? domain->dep_path.text().length() : 0;
    };
    return length(a) < length(b) ? -1 : length(a) > length(b) ? 1 : 0;
}

short kt_file::load_top(ustring & server, vector & topv)
{
    return load_topology(server, topv, nullptr);
}

short kt_file::load_top(ustring & server, vector & topv, vector & left_out)
{
    return load_topology(server, topv, &left_out);
}

short kt_file::load_topology(ustring & server, vector & topv, vector * left_out)
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
    int number = 0; // of the line in hand
    try {
        memory_watch watch;
        const ustring expected(expected_mode);
        std::vector<ustring> dependencies;
        dependencies.reserve(static_cast<std::size_t>(std::max(count, 0)));
        topology_line parts;
        ustring key;
        ustring value;
        for (; number < count; ++number) {
            if (const short rc = get_keyval(key, value))
                return refuse(rc, number);
            parts.parse(key, value);
            ustring root;
            if (number == 0) {
                root = build_server_rr(parts.name);
                parts.make_root();
            } else {
                if (parts.mode != expected) {
                    trace.warning("Domain <%d,%s,%s> is not push", number, parts.name, parts.mode);
                    log_message(messages::MSG0108, number, parts.name, parts.mode);
                }
                parts.make_path();
            }
            trace.info("Dep = <%s , %s , %s> ", parts.head, parts.name, parts.dep_path);
            topv.push_back(make_domain(parts));
            dependencies.push_back(parts.dependency);
            if (watch.failed()) {
                topv.resize(static_cast<unsigned>(number));
                return refuse(code::no_keyval, number);
            }
            if (number == 0)
                server = std::move(root);
        }
        print_topv(topv, "load_top_after_loading");
        check_dependencies(trace, topv, dependencies, left_out);
        if (left_out && watch.failed())
            return refuse(code::no_keyval, number);
    } catch (const std::bad_alloc &) { // of the containers: nothing was removed yet
        return refuse(code::no_keyval, number);
    }
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
    const auto shorter = [](codable * a, codable * b) { return sort_on_dep_len(&a, &b) < 0; };
    codable ** const end = topv.items() + topv.size();
    if (!std::is_sorted(topv.items(), end, shorter))
        std::stable_sort(topv.items(), end, shorter);
    print_topv(topv, "load_dom_after_qsort");
    return trace.leave(code::success);
}

} // namespace orvet
