#ifndef ORVET_FOUNDATION_BASE_BOUNDED_WRITER_H
#define ORVET_FOUNDATION_BASE_BOUNDED_WRITER_H

#include <string_view>

#include "orvet/foundation/base/utf8.h"

namespace orvet {

/// Puts texts behind each other into an array. The first that does not fit is cut at a character's end, and
/// nothing comes behind it.
class bounded_writer {
public:
    /// Writes from `begin` on, and never at or behind `end`.
    bounded_writer(char * begin, char * end) : at_(begin), end_(end) {}

    void add(std::string_view text)
    {
        const auto room = static_cast<std::size_t>(end_ - at_);
        std::size_t taken = text.size();
        if (taken > room) [[unlikely]] {
            taken = utf8::cut(text.data(), room);
            end_ = at_ + taken;
        }
        at_ += text.copy(at_, taken);
    }
    /// The place behind what was added.
    char * position() const { return at_; }

private:
    char * at_;
    char * end_;
};

} // namespace orvet

#endif
