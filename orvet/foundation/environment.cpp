#include "orvet/foundation/environment.h"

#include <cstdlib>

#include "orvet/foundation/base/ascii.h"
#include "orvet/foundation/base/memory.h"
#include "orvet/foundation/base/number.h"
#include "orvet/foundation/call_trace.h"
#include "orvet/foundation/messages.h"

namespace orvet {

namespace {

const char * text_of(const char * variable, const char * otherwise)
{
    const char * const value = std::getenv(variable);
    return value ? value : otherwise;
}

long long_of(const char * variable, long otherwise)
{
    const char * const value = std::getenv(variable);
    return value ? std::strtol(value, nullptr, 10) : otherwise;
}

int int_of(const char * variable, int otherwise)
{
    const char * const value = std::getenv(variable);
    return value ? to_int(value) : otherwise;
}

/// Whether a text is that word, in any case.
bool is_word(const char * text, const char * word)
{
    while (*word && to_ascii_lower(*text) == *word)
        ++text, ++word;
    return *text == *word;
}

/// A setting as it was first read: read again where there was no memory for it.
template <class Value>
class kept {
public:
    template <class Read>
    const Value & get(Read read)
    {
        if (!whole_) {
            memory_watch watch;
            lasting_.value = Value(read());
            whole_ = !watch.failed();
        }
        return lasting_.value;
    }

private:
    lasting<Value> lasting_;
    bool whole_ = false;
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
    const char * const wish = std::getenv("ktxrmtf");
    if (!wish)
        return "no";
    if (is_word(wish, "yes"))
        return "yes";
    if (!is_word(wish, "no"))
        console_message(messages::MSGI0003, "ktxrmtf", wish, "no");
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
    static kept<pathname> path;
    return path.get(get_kt_inst_path);
}

const pathname & environment::brod_inst_path()
{
    static kept<pathname> path;
    return path.get(get_brod_inst_path);
}

const ustring & environment::cf_prefix()
{
    static kept<ustring> prefix;
    return prefix.get(get_cf_prefix);
}

const ustring & environment::remove_temp_files()
{
    static kept<ustring> answer;
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
    static kept<pathname> path;
    return path.get(get_kt_work_path);
}

const pathname & environment::kt_bin_path()
{
    static kept<pathname> path;
    return path.get([] { return pathname(kt_inst_path()) += "bin"; });
}

} // namespace orvet
