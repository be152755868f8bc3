#include "orvet/utilities/capture_stream.h"

#include <algorithm>
#include <cstring>
#include <iterator>

#include "orvet/foundation/base/memory.h"

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

/// The line behind its time stamp: at the number of a message, else at the bracket of a severity.
const char * behind_time(const char * line)
{
    const char * const bracket = std::strstr(line, " [");
    const char * const message = std::strstr(line, "  MSG");
    if (message && (!bracket || message < bracket))
        return message + 2;
    return bracket ? bracket + 1 : line;
}

} // namespace

int capture_stream::writeline(const char * line)
{
    memory_watch watch;
    auto * const text = make<ustring>(behind_time(line));
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
