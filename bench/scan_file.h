#ifndef ORVET_BENCH_SCAN_FILE_H
#define ORVET_BENCH_SCAN_FILE_H

#include <cstdio>

namespace bench {

/// A scan result file: the domains form a tree, and `entries` are shared out among them.
inline void write_scan(std::FILE * file, long domains, long entries)
{
    std::fprintf(file, "# scan\n[topology]\ncount = %ld\n", domains);
    for (long i = 0; i < domains; ++i)
        if (i == 0)
            std::fprintf(file, "d%05ld = root,DOM%05ld\n", i, i);
        else
            std::fprintf(file, "d%05ld = branch,DOM%05ld,push,DOM%05ld\n", i, i, i / 3);
    for (long i = 0; i < domains; ++i) {
        const long count = entries / domains + (i < entries % domains);
        std::fprintf(file, "[d%05ld]\ncount = %ld\n", i, count);
        for (long j = 0; j < count; ++j)
            std::fprintf(file, "target%03ld = agent,host%03ld.d%05ld\n", j, j, i);
    }
}

} // namespace bench

#endif
