#ifndef ORVET_FOUNDATION_ENVIRONMENT_H
#define ORVET_FOUNDATION_ENVIRONMENT_H

#include "orvet/foundation/base/pathname.h"

namespace orvet {

/// Every setting that comes from the process's environment.
///
/// A `get_` form reads the environment at each call; its text belongs to the environment or is static, and
/// the caller neither frees nor changes it. A plain form reads once and returns the same value for the rest
/// of the process. The `get_` form prints what is wrong with a variable to standard output, so the plain form
/// prints it once; the setting is then empty or has its default.
class ORVET_API environment {
public:
    ///@{
    /// `KTXPATH`, where Ketrix is installed, the directory of trace, log and bare file names. Unset:
    /// MSGI0001, empty.
    static const char * get_kt_inst_path();
    static const pathname & kt_inst_path();
    ///@}

    ///@{
    /// `brdcfg`, where Brodan is installed. Unset: MSGI0002, empty.
    static const char * get_brod_inst_path();
    static const pathname & brod_inst_path();
    ///@}

    ///@{
    /// `ktxcfp`; "KTX" when unset.
    static const char * get_cf_prefix();
    static const ustring & cf_prefix();
    ///@}

    ///@{
    /// `ktxrmtf`, "yes" or "no" in any case; "no" when unset. Any other value: MSGI0003, "no".
    static const char * get_remove_temp_files();
    static const ustring & remove_temp_files();
    ///@}

    ///@{
    /// `ktxlsize` and `ktxtsize`, the limits of log and trace in bytes; 500000 when unset, 0 for text that is
    /// not a number.
    static long get_log_size();
    static long log_size();
    static long get_trace_size();
    static long trace_size();
    ///@}

    ///@{
    /// `ktxllev` and `ktxtlev`, the levels of log and trace; 0 and 6 when unset, 0 for text that is not a
    /// number.
    static int get_log_level();
    static int log_level();
    static int get_trace_level();
    static int trace_level();
    ///@}

    ///@{
    /// `KTXWORK`, the working directory of the tools. Unset: MSGI0009, empty.
    static const char * get_kt_work_path();
    static const pathname & kt_work_path();
    ///@}

    /// The directory "bin" below `kt_inst_path()`; it has no variable of its own.
    static const pathname & kt_bin_path();
};

} // namespace orvet

#endif
