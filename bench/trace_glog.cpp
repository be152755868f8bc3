#include "trace_jobs.h"

#include <glog/logging.h>

namespace {

void gate_glog(benchmark::State & state)
{
    bench::meet_gates(state, [](int i) { VLOG(1) << "seeking at offset " << i; });
}
BENCHMARK(gate_glog)->Name("gate/glog");

} // namespace
