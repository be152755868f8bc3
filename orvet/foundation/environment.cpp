#include "orvet/foundation/environment.h"

#include <cstdlib>

#include "orvet/foundation/base/ascii.h"
#include "orvet/foundation/base/memory.h"
#include "orvet/foundation/base/number.h"
#include "orvet/foundation/call_trace.h"
#include "orvet/foundation/messages.h"

namespace orvet {

namespace {

const char * text_of(const char * variable, const char * default_value)
{
    const char * const value = std::getenv(variable);
    return value ? value : default_value;
}

long long_of(const char * variable, long default_value)
{
    const char * const value = std::getenv(variable);
    return value ? std::strtol(value, nullptr, 10) : default_value;
}

int int_of(const char * variable, int default_value)
{
    const char * const value = std::getenv(variable);
    return value ? to_int(value) : default_value;
}

/// Whether a text is that word, in any case.
bool is_word(const char * text, const char * word)
{
    while (*word && to_ascii_lower(*text) == *word)
        ++text, ++word;
    return *text == *word;
}

/// A setting as it was first read. If allocation fails, the next call reads it again.
template <class Value>
class cached_setting {
public:
    template <class Read>
    const Value & get(Read read)
    {
        if (!complete_) {
            memory_watch watch;
            setting_.value = Value(read());
            complete_ = !watch.failed();
        }
        return setting_.value;
    }

private:
    lasting<Value> setting_;
    bool complete_ = false;
};

} // namespace

const char * environment::get_kt_inst_path()
{
    const char * const path = std::getenv("KTXPATH");
    if (!path)
        console_message(messages::MSGI0001, "KTXPATH");
    return path ? path : "";
}

const char * environment::get_brod_inst_path()
{
    const char * const path = std::getenv("brdcfg");
    if (!path)
        console_message(messages::MSGI0002);
    return path ? path : "";
}

const char * environment::get_cf_prefix()
{
    return text_of("ktxcfp", "KTX");
}

const char * environment::get_remove_temp_files()
{
    const char * const choice = std::getenv("ktxrmtf");
    if (!choice)
        return "no";
    if (is_word(choice, "yes"))
        return "yes";
    if (!is_word(choice, "no"))
        console_message(messages::MSGI0003, "ktxrmtf", choice, "no");
    return "no";
}

long environment::get_log_size()
{
    return long_of("ktxlsize", 500000);
}

long environment::get_trace_size()
{
    return long_of("ktxtsize", 500000);
}

int environment::get_log_level()
{
    return int_of("ktxllev", 0);
}

int environment::get_trace_level()
{
    return int_of("ktxtlev", 6);
}

const char * environment::get_kt_work_path()
{
    const char * const path = std::getenv("KTXWORK");
    if (!path)
        console_message(messages::MSGI0009, "KTXWORK");
    return path ? path : "";
}

const pathname & environment::kt_inst_path()
{
    static cached_setting<pathname> path;
    return path.get(get_kt_inst_path);
}

const pathname & environment::brod_inst_path()
{
    static cached_setting<pathname> path;
    return path.get(get_brod_inst_path);
}

const ustring & environment::cf_prefix()
{
    static cached_setting<ustring> prefix;
    return prefix.get(get_cf_prefix);
}

const ustring & environment::remove_temp_files()
{
    static cached_setting<ustring> answer;
    return answer.get(get_remove_temp_files);
}

long environment::log_size()
{
    static const long bytes = get_log_size();
    return bytes;
}

long environment::trace_size()
{
    static const long bytes = get_trace_size();
    return bytes;
}

int environment::log_level()
{
    static const int level = get_log_level();
    return level;
}

int environment::trace_level()
{
    static const int level = get_trace_level();
    return level;
}

const pathname & environment::kt_work_path()
{
    static cached_setting<pathname> path;
    return path.get(get_kt_work_path);
}

const pathname & environment::kt_bin_path()
{
    static cached_setting<pathname> path;
    return path.get([] { return pathname(kt_inst_path()) += "bin"; });
}

} // namespace orvet
