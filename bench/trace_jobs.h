#ifndef ORVET_BENCH_TRACE_JOBS_H
#define ORVET_BENCH_TRACE_JOBS_H

#include "bench.h"

// The jobs of the channels, the same for each contestant. The macros of the peers clash, so each of them has
// a source of its own.
namespace bench {

/// Meets 64 gates in a row, with memory read anew at each, as between the calls of a function.
template <class Gate>
void meet_gates(benchmark::State & state, Gate gate)
{
    for (auto _ : state)
        for (int i = 0; i < 64; ++i) {
            gate(i);
            benchmark::ClobberMemory();
        }
}

/// Writes a line of the same text a round, which is with the system when the round ends.
template <class Write>
void write_lines(benchmark::State & state, Write write)
{
    int i = 0;
    for (auto _ : state)
        write("/var/ketrix/data/scan.res", ++i & 0xFFF);
}

} // namespace bench

#endif
