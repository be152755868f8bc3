#ifndef ORVET_TESTS_FAULTS_H
#define ORVET_TESTS_FAULTS_H

#include <map>
#include <string>

/// Faults of the system, one at a time. While a fault is at work, the calls of the platform layer and the
/// library's allocations are counted, and one of them fails:
///
///     for (fault each(fault::calls); each.next();) {
///         short rc = code::success;
///         each.work([&] { rc = file.open("r"); });
///         SCOPED_TRACE(each.name()); // "open_stream, 1st call, once"
///         ...
///     }
///
/// Each call fails once and in another run from then on, until a run meets no fault.
namespace orvet_test {

class fault {
public:
    enum source { calls, allocations };
    /// A read or write that fails once transfers a byte before. Or the process ends before the call.
    enum way { once, from_then_on, death };

    /// The fault of call `nth`, from 1. With 0 none, until `next`.
    explicit fault(source of, way how = once, int nth = 0);

    /// Goes on to the next fault. False after the last one.
    bool next();
    template <class Action>
    void work(Action action)
    {
        begin();
        action();
        at_work_ = nullptr;
    }
    /// Which call has failed.
    std::string name() const { return name_.empty() ? "no fault" : name_; }
    /// How often a call was made; "allocation" is one.
    int times(const std::string & call) { return times_[call]; }
    bool has_met_calls() const { return times_.size() > times_.count("allocation"); }

    /// Counts a call that is due. True if it has to fail.
    static bool strikes(const char * call, source of = calls);
    /// How much of `size` bytes a failing call transfers.
    static std::size_t part_of(std::size_t size) { return at_work_->way_ == once && size > 1; }

private:
    void begin();

    static inline fault * at_work_ = nullptr;

    source source_;
    way way_;
    int nth_;
    int counted_ = 0;
    std::string name_;
    std::map<std::string, int> times_;
};

/// What the library holds at this moment.
inline int open_streams = 0;
inline long blocks_in_use = 0;
/// The commands that were given to the shell, which ran none.
inline std::string commands_run;

} // namespace orvet_test

#endif
