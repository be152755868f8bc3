// The dependency check alone, beside a search through all domains for each dependency.

#include <random>
#include <vector>

// The check is no function of its own in the library's interface.
#include "orvet/files/topology.cpp"

#include "bench.h"
#include "silence.h"

namespace {

constexpr unsigned domain_count = 32767;

struct topology {
    orvet::vector domains;
    std::vector<orvet::ustring> dependencies;

    /// `parent_of` gives the domain that a domain depends on; the first one depends on none.
    template <class Parent>
    explicit topology(Parent parent_of)
    {
        bench::shut_gates();
        for (unsigned i = 0; i < domain_count; ++i) {
            orvet::topology_line line;
            line.name = name_of(i);
            line.head = "[" + line.name + "]";
            domains.push_back(orvet::make_domain(line));
            dependencies.push_back(i == 0 ? orvet::ustring() : name_of(parent_of()));
        }
    }

    static orvet::ustring name_of(unsigned i) { return ("DOMAIN" + std::to_string(10000 + i)).c_str(); }
    const orvet::top_entry & domain(unsigned i) const
    {
        return static_cast<const orvet::top_entry &>(*domains[i]);
    }
};

void check(benchmark::State & state, topology data)
{
    const orvet::call_trace trace("check");
    for (auto _ : state) {
        orvet::check_dependencies(trace, data.domains, data.dependencies, nullptr);
        if (data.domains.size() != domain_count)
            state.SkipWithError("a domain was lost");
    }
}

void search(benchmark::State & state, topology data)
{
    for (auto _ : state)
        for (unsigned i = 1; i < domain_count; ++i) {
            unsigned at = 0;
            while (at < domain_count && data.domain(at).domain_name != data.dependencies[i])
                ++at;
            if (at == domain_count)
                state.SkipWithError("a domain was lost");
        }
}

topology parents_last()
{
    return topology([] { return domain_count - 1; });
}

topology parents_random()
{
    std::minstd_rand random;
    return topology([&] { return static_cast<unsigned>(random()) % domain_count; });
}

void check_last(benchmark::State & state)
{
    check(state, parents_last());
}
void check_random(benchmark::State & state)
{
    check(state, parents_random());
}
void search_last(benchmark::State & state)
{
    search(state, parents_last());
}
void search_random(benchmark::State & state)
{
    search(state, parents_random());
}
BENCHMARK(check_last)->Name("dependencies/orvet_last")->Unit(benchmark::kMillisecond);
BENCHMARK(check_random)->Name("dependencies/orvet_random")->Unit(benchmark::kMillisecond);
BENCHMARK(search_last)->Name("dependencies/search_last")->Unit(benchmark::kMillisecond);
BENCHMARK(search_random)->Name("dependencies/search_random")->Unit(benchmark::kMillisecond);

} // namespace
