#include "orvet/utilities/capture_stream.h"

#include <algorithm>
#include <cstring>
#include <iterator>

#include "orvet/foundation/base/memory.h"
#include "orvet/foundation/trace_internal.h"

namespace orvet {

namespace {

constexpr char letters[] = "CIWEF";

/// The letter in the first bracket of a line. Some messages are printed with another sign for the closing
/// one.
const char * letter_of(const char * line)
{
    const char * const bracket = std::strstr(line, " [");
    return bracket && bracket[2] ? std::strchr(letters, bracket[2]) : nullptr;
}

/// The line without its time stamp and the blanks that a channel puts there: one in the trace, two in the
/// log.
const char * skip_time_stamp(const char * line)
{
    const char * text = find_time_stamp_end(line);
    if (!text)
        return line;
    for (int blanks = 0; blanks < 2 && *text == ' '; ++blanks)
        ++text;
    return text;
}

} // namespace

int capture_stream::writeline(const char * line)
{
    memory_watch watch;
    auto * const text = make<ustring>(skip_time_stamp(line));
    if (text && text->length() != 0 && text->data()[text->length() - 1] == u'\n')
        text->remove(text->length() - 1);
    lines_.push_back(text);
    if (watch.failed())
        return -1;
    if (const char * const letter = letter_of(line))
        ++counts_[letter - letters];
    return static_cast<int>(std::strlen(line));
}

void capture_stream::clear()
{
    lines_.resize(0);
    std::fill(std::begin(counts_), std::end(counts_), 0U);
}

} // namespace orvet
