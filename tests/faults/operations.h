#ifndef ORVET_TESTS_FAULTS_OPERATIONS_H
#define ORVET_TESTS_FAULTS_OPERATIONS_H

#include "faults.h"
#include "support.h"

/// What the library does with the system and with memory, to be run under each fault.
namespace orvet_test {

using values = std::map<std::string, std::string>;

/// The code of operations that don't report: what they change is as before or whole.
inline constexpr int no_report = -100;

struct world;

using operation_run = bool (*)(world & w);

struct fault_target {
    fault_target(const char * own_name, const char * given_up, operation_run action)
        : name(own_name), gives_up(given_up), run(action)
    {
    }

    const char * name;
    /// Values whose names begin so may be lost, or half done, after a failure.
    const char * gives_up;
    /// True, with the code in the world, if a step failed.
    operation_run run;
};
extern const std::vector<fault_target> operations;

/// One run of an operation. The lines are those of both channels, and the error text of the configuration.
struct outcome {
    std::string fault;
    int code;
    values before;
    values after;
    std::string lines;
    int streams;
    long blocks;
};

/// All runs of an operation, first one without a fault.
const std::vector<outcome> & runs_of(const fault_target & o, bool traced);

} // namespace orvet_test

#endif
