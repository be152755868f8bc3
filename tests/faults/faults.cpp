#include "faults.h"

#include <cerrno>
#include <cstdlib>
#include <functional>
#include <type_traits>

#include "orvet/foundation/platform/channels.h"
#include "orvet/foundation/platform/entries.h"
#include "orvet/foundation/platform/files.h"
#include "orvet/foundation/platform/processes.h"
#include "orvet/foundation/platform/rewrite.h"

using namespace orvet;
using namespace orvet_test;

namespace {

/// Is put in the place of a platform call.
template <auto & Call, class Signature = std::remove_pointer_t<std::remove_reference_t<decltype(Call)>>>
struct stand_in;
template <auto & Call, class Result, class... Args>
struct stand_in<Call, Result(Args...)> {
    using function = std::function<Result(Args...)>;

    static void put(const char * name, function fails = fail, function works = Call)
    {
        static const std::tuple call(name, fails, works);
        Call = [](Args... args) {
            return (fault::strikes(std::get<0>(call)) ? std::get<1>(call) : std::get<2>(call))(args...);
        };
    }
    static Result fail(Args...)
    {
        errno = EACCES;
        if constexpr (std::is_signed_v<Result>)
            return -1;
        return Result();
    }
};

std::FILE * open_stream(const ustring & path, const char * mode)
{
    std::FILE * const stream = platform::native::open_stream(path, mode);
    open_streams += stream != nullptr;
    return stream;
}

template <auto Open, class Argument>
std::FILE * open_counted(Argument argument)
{
    std::FILE * const stream = Open(argument);
    open_streams += stream != nullptr;
    return stream;
}

int close_stream(std::FILE * stream)
{
    --open_streams;
    return platform::native::close_stream(stream);
}

int fail_to_close(std::FILE * stream)
{
    close_stream(stream); // it is gone even then
    errno = EIO;
    return EOF;
}

std::size_t read_part(std::FILE * stream, void * bytes, std::size_t size)
{
    errno = EIO;
    return platform::native::read(stream, bytes, fault::part_of(size));
}

std::size_t write_part(std::FILE * stream, const void * bytes, std::size_t size)
{
    errno = ENOSPC;
    return platform::native::write(stream, bytes, fault::part_of(size));
}

std::size_t append_part(std::FILE * stream, const char * line, std::size_t size)
{
    errno = ENOSPC;
    return platform::native::append_line(stream, line, fault::part_of(size));
}

// What would take its time, or leave the test's directory.
int sync_nothing(std::FILE *)
{
    return 0;
}

int sync_no_directory(const ustring &)
{
    return 0;
}

int run_nothing(const ustring & line)
{
    const std::string text(line.mbcs_str(), line.mbcs_length());
    commands_run += text + "\n";
    return text.empty() ? -1 : 0;
}

bool put_stand_ins()
{
    stand_in<platform::open_stream>::put("open_stream", stand_in<platform::open_stream>::fail, open_stream);
    stand_in<platform::close_stream>::put("close_stream", fail_to_close, close_stream);
    stand_in<platform::read>::put("read", read_part);
    stand_in<platform::write>::put("write", write_part);
    stand_in<platform::flush>::put("flush");
    stand_in<platform::seek>::put("seek");
    stand_in<platform::tell>::put("tell");
    stand_in<platform::is_seekable>::put("is_seekable");
    stand_in<platform::remove_file>::put("remove_file");
    stand_in<platform::rename_file>::put("rename_file");
    stand_in<platform::sync_stream>::put("sync_stream", stand_in<platform::sync_stream>::fail, sync_nothing);
    stand_in<platform::open_channel>::put("open_channel", stand_in<platform::open_channel>::fail,
                                          open_counted<platform::native::open_channel, const ustring &>);
    stand_in<platform::append_line>::put("append_line", append_part);
    stand_in<platform::kind_of>::put("kind_of");
    stand_in<platform::compare_entries>::put("compare_entries");
    stand_in<platform::is_link_to>::put("is_link_to");
    stand_in<platform::change_case>::put("change_case");
    // A hold always ends: no system keeps that from happening.
    stand_in<platform::create_held>::put("create_held");
    stand_in<platform::hold>::put("hold");
    stand_in<platform::is_held_at>::put("is_held_at");
    stand_in<platform::remove_held>::put("remove_held");
    stand_in<platform::rename_held>::put("rename_held");
    stand_in<platform::open_held>::put("open_held", stand_in<platform::open_held>::fail,
                                       open_counted<platform::native::open_held, platform::held_entry>);
    stand_in<platform::open_shared>::put("open_shared", stand_in<platform::open_shared>::fail,
                                         open_counted<platform::native::open_shared, const ustring &>);
    stand_in<platform::copy_owner>::put("copy_owner");
    stand_in<platform::copy_permissions>::put("copy_permissions");
    stand_in<platform::sync_directory>::put("sync_directory", stand_in<platform::sync_directory>::fail,
                                            sync_no_directory);
    stand_in<platform::exists>::put("exists");
    stand_in<platform::is_file>::put("is_file");
    stand_in<platform::same_file>::put("same_file");
    stand_in<platform::run_command>::put("run_command", stand_in<platform::run_command>::fail, run_nothing);
    return true;
}

} // namespace

fault::fault(source of, way how, int nth) : source_(of), way_(how), nth_(nth)
{
    [[maybe_unused]] static const bool ready = put_stand_ins();
}

bool fault::next()
{
    if (nth_ > 0 && name_.empty()) {
        if (way_ == from_then_on)
            return false;
        way_ = from_then_on;
        nth_ = 0;
    }
    ++nth_;
    return true;
}

void fault::begin()
{
    counted_ = 0;
    name_.clear();
    times_.clear();
    commands_run.clear();
    at_work_ = this;
}

bool fault::strikes(const char * call, source of)
{
    if (!at_work_)
        return false;
    fault & f = *at_work_;
    const int times = ++f.times_[call];
    if (of != f.source_ || ++f.counted_ < f.nth_ || f.nth_ == 0)
        return false;
    if (f.counted_ > f.nth_)
        return f.way_ == from_then_on;
    if (f.way_ == death)
        std::_Exit(EXIT_FAILURE);
    const char * const endings[] = {"th", "st", "nd", "rd"};
    f.name_ = call + (", " + std::to_string(times)) + endings[times < 4 ? times : 0] + " call, " +
              (f.way_ == once ? "once" : "from then on");
    return true;
}
