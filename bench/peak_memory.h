#ifndef ORVET_BENCH_PEAK_MEMORY_H
#define ORVET_BENCH_PEAK_MEMORY_H

#include <fstream>
#include <string>

namespace bench {

/// The most memory that this program has held. What `getrusage` tells begins with that of the program's
/// parent.
inline long peak_kb()
{
    std::ifstream status("/proc/self/status");
    std::string line;
    while (std::getline(status, line))
        if (line.starts_with("VmHWM:"))
            return std::stol(line.substr(6));
    return 0;
}

} // namespace bench

#endif
