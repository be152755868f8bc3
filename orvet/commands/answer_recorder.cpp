#include "orvet/commands/answer_recorder_internal.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <utility>

#include "orvet/commands/brod_base.h"
#include "orvet/commands/recorded_answer.h"
#include "orvet/foundation/base/memory.h"
#include "orvet/foundation/platform/files.h"
#include "orvet/utilities/usprintf.h"

namespace orvet {

namespace {

// Canned files have other names.
constexpr char temporary_file[] = "recording.tmp";

/// A stream that is closed at the end of its scope.
class scoped_stream {
public:
    scoped_stream(const pathname & path, const char * mode)
        : stream_(platform::open_stream(path.text(), mode))
    {
    }
    scoped_stream(const scoped_stream &) = delete;
    scoped_stream & operator=(const scoped_stream &) = delete;
    ~scoped_stream() { close(); }

    explicit operator bool() const { return stream_ != nullptr; }
    std::FILE * get() const { return stream_; }
    bool close()
    {
        std::FILE * const stream = std::exchange(stream_, nullptr);
        return !stream || platform::close_stream(stream) == 0;
    }

private:
    std::FILE * stream_;
};

/// Copies all bytes and waits until they are on the disk. False, with `errno`, after a failure.
bool copy_bytes(std::FILE * from, std::FILE * to)
{
    char block[8192];
    std::size_t size;
    while ((size = platform::read(from, block, sizeof block)) != 0)
        if (platform::write(to, block, size) != size)
            return false;
    return std::ferror(from) == 0 && platform::flush(to) == 0 && platform::sync_stream(to) == 0;
}

/// Renames a file, and replaces a file of the new name also on a system whose rename does not.
bool replace(const pathname & from, const pathname & to)
{
    if (platform::rename_file(from.text(), to.text()) == 0)
        return true;
    return platform::is_file(to.text()) && platform::remove_file(to.text()) == 0 &&
           platform::rename_file(from.text(), to.text()) == 0;
}

/// False, with `errno`, for a file that must not be replaced.
bool is_replaceable(const pathname & file)
{
    if (!platform::exists(file.text()))
        return true;
    if (platform::is_read_only(file.text())) {
        errno = EACCES;
        return false;
    }
    return static_cast<bool>(scoped_stream(file, "r+b"));
}

/// Copies a file by a temporary one, so that `to` is never half a file. False, with `errno`, after a failure.
bool copy_whole(const pathname & from, const pathname & to, const pathname & temporary)
{
    errno = 0;
    if (!is_replaceable(to))
        return false;
    scoped_stream input(from, "rb");
    if (!input)
        return false;
    if (platform::is_file(temporary.text())) // left by a process that was killed
        platform::remove_file(temporary.text());
    scoped_stream output(temporary, "wxb");
    if (!output)
        return false;
    if (copy_bytes(input.get(), output.get()) && output.close() && replace(temporary, to))
        return true;
    const int error = errno;
    output.close();
    platform::remove_file(temporary.text());
    errno = error;
    return false;
}

/// Whether two names, which may differ in case, are those of one file on this system.
bool is_same(const pathname & a, const pathname & b)
{
    return a == b && (a.text() == b.text() || platform::same_file(a.text(), b.text()));
}

bool holds_any(const ustring & text, const char * signs)
{
    const ustring set(signs);
    return text.find_first_of(set.data(), 0, set.length()) != ustring::npos;
}

/// Whether the shells of all systems read the name as one word, unchanged. Dummy mode does not quote it.
bool is_plain(const ustring & name)
{
    const auto is_plain_unit = [](char16_t unit) {
        return (unit >= u'0' && unit <= u'9') || (unit >= u'A' && unit <= u'Z') ||
               (unit >= u'a' && unit <= u'z') || unit > 0x7f ||
               std::strchr("._-+@#", static_cast<char>(unit)) != nullptr;
    };
    return std::all_of(name.data(), name.data() + name.length(), is_plain_unit);
}

} // namespace

codable * recorded_answer::clone()
{
    return make<recorded_answer>(*this);
}

answer_recorder & answer_recorder::get()
{
    static lasting<answer_recorder> only;
    return only.value;
}

void answer_recorder::record_to(const pathname & directory)
{
    directory_ = directory;
    if (directory_.text().length() != 0)
        answers_.resize(0);
}

/// Why the answer to the command can't be recorded under that name; empty if it can.
ustring answer_recorder::reason_against(const ustring & command, const pathname & file,
                                        const ustring & name) const
{
    if (holds_any(name, "/\\") || name.find(u"..", 0, 2) != ustring::npos)
        return "the name of the file would lead out of the directory";
    if (!is_plain(name))
        return "the shell would not read the name of the file as one word";
    for (unsigned i = 0; i < answers_.size(); ++i) {
        const auto & other = static_cast<const recorded_answer &>(*answers_[i]);
        if (other.is_recorded() && other.command != command && is_same(other.file, file))
            return ustring("the file holds the answer to another command: ").append(other.command);
    }
    return {};
}

void answer_recorder::add(const ustring & command, int result, bool to_output, const pathname & output)
{
    if (directory_.text().length() == 0)
        return;
    const int error = errno;
    const line_memory not_of_the_command;
    memory_watch watch;
    pathname file(directory_);
    const ustring name = brod_base::canned_file(command);
    file += name;
    ustring reason;
    if (result != 0)
        usprintf(reason, "the command failed with %d", result);
    else if (!to_output || !platform::is_file(output.text()))
        reason = "the output did not go to a file";
    else
        reason = reason_against(command, file, name);
    if (recorded_answer * const answer = add_entry(command, file)) {
        if (reason.length() == 0 && !watch.failed() && copy(output, file, reason))
            answer->reason = ustring();
        else if (reason.length() != 0)
            answer->reason = reason;
        drop_repetition();
    }
    errno = error;
}

/// Adds the entry, before the file is made: without it, another command could replace the file. Null if
/// allocation fails.
recorded_answer * answer_recorder::add_entry(const ustring & command, const pathname & file)
{
    auto * const answer = make<recorded_answer>(command, file, "memory ran out");
    const unsigned count = answers_.size();
    answers_.push_back(answer);
    return answers_.size() > count ? answer : nullptr;
}

bool answer_recorder::copy(const pathname & output, const pathname & file, ustring & reason) const
{
    memory_watch watch;
    pathname temporary(directory_);
    temporary += temporary_file;
    if (watch.failed())
        return false;
    if (copy_whole(output, file, temporary))
        return true;
    reason = std::strerror(errno);
    return false;
}

/// Drops the last entry if there is one like it.
void answer_recorder::drop_repetition()
{
    const auto entry = [this](unsigned i) -> const recorded_answer & {
        return static_cast<const recorded_answer &>(*answers_[i]);
    };
    const unsigned last = answers_.size() - 1;
    for (unsigned i = 0; i < last; ++i)
        if (entry(i).command == entry(last).command && entry(i).file.text() == entry(last).file.text() &&
            entry(i).reason == entry(last).reason)
            return answers_.remove(static_cast<int>(last));
}

} // namespace orvet
