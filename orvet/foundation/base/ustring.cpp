#include "orvet/foundation/base/ustring.h"

#include <algorithm>
#include <cstring>
#include <functional>
#include <limits>
#include <string_view>
#include <utility>

#include "orvet/foundation/base/ascii.h"
#include "orvet/foundation/base/memory.h"
#include "orvet/foundation/base/ustring_internal.h"
#include "orvet/foundation/base/utf8.h"

namespace orvet {

namespace {

// Far below what an unsigned holds, so that sums of two lengths never wrap.
constexpr std::size_t longest = std::numeric_limits<unsigned>::max() / 4;

// Rooms, with their closing zero, are multiples of this many units.
constexpr std::size_t room_step = 16;

void copy_units(char16_t * to, const char16_t * from, std::size_t n)
{
    if (n != 0)
        std::memmove(to, from, n * sizeof(char16_t));
}

} // namespace

ustring::ustring() noexcept : codable(class_tag::ustring)
{
    inline_units_[0] = 0;
}

ustring::ustring(const char * text) : ustring()
{
    assign(text);
}

ustring::ustring(const ustring & other) : codable(other, class_tag::ustring)
{
    inline_units_[0] = 0;
    assign(other, 0, npos);
}

ustring::ustring(ustring && other) noexcept : codable(other, class_tag::ustring)
{
    move_from(other);
}

ustring::ustring(const ustring & other, unsigned pos, unsigned n) : ustring()
{
    assign(other, pos, n);
}

ustring::~ustring()
{
    drop();
}

ustring & ustring::operator=(ustring && other) noexcept
{
    if (this != &other) {
        drop();
        move_from(other);
    }
    return *this;
}

/// Moves the other's text into this object, which holds nothing to be released, and leaves the other empty.
void ustring::move_from(ustring & other) noexcept
{
    length_ = other.length_;
    capacity_ = other.capacity_;
    if (other.is_inline()) {
        units_ = inline_units_;
        copy_units(inline_units_, other.inline_units_, length_ + 1);
    } else {
        units_ = other.units_;
    }
    bytes_ = other.bytes_;
    bytes_capacity_ = other.bytes_capacity_;
    bytes_length_ = other.bytes_length_;

    other.units_ = other.inline_units_;
    other.capacity_ = inline_capacity;
    other.bytes_ = nullptr;
    other.bytes_capacity_ = 0;
    other.set_length(0);
}

void ustring::drop() noexcept
{
    if (!is_inline())
        release(units_);
    release(bytes_);
}

/// Makes room for `units`; the text that stood there is gone where the room is new.
inline bool ustring::reserve(std::size_t units)
{
    return units <= capacity_ || grow(units);
}

bool ustring::grow(std::size_t units)
{
    if (units > longest) {
        ++memory_failures;
        return false;
    }
    const std::size_t room = std::max<std::size_t>(units, capacity_ + capacity_ / 2) | (room_step - 1);
    auto * const fresh = allocate<char16_t>(room + 1);
    if (!fresh)
        return false;
    if (!is_inline())
        release(units_);
    units_ = fresh;
    capacity_ = static_cast<unsigned>(room);
    return true;
}

bool ustring::reserve_bytes(std::size_t bytes, std::size_t keep) const
{
    if (bytes <= bytes_capacity_)
        return true;
    if (bytes > 3 * longest) {
        ++memory_failures;
        return false;
    }
    const std::size_t room = std::max<std::size_t>(bytes, bytes_capacity_ + bytes_capacity_ / 2);
    char * fresh = allocate<char>(room);
    if (!fresh)
        return false;
    if (keep != 0)
        std::memcpy(fresh, bytes_, keep);
    release(bytes_);
    bytes_ = fresh;
    bytes_capacity_ = static_cast<unsigned>(room);
    return true;
}

/// Replaces the text by what `count` bytes mean, which may be the object's own multi-byte form.
bool ustring::decode(const char * bytes, std::size_t count)
{
    if (!reserve(count))
        return false;
    set_length(static_cast<unsigned>(utf8::decode(bytes, count, units_)));
    return true;
}

/// The one way to edit: replaces `removed` units at `pos` by `n` units of `text`, which may be one's own.
ustring & ustring::splice(unsigned pos, unsigned removed, const char16_t * text, unsigned n)
{
    const unsigned tail = length_ - pos - removed;
    const std::size_t total = std::size_t{pos} + n + tail;
    const bool own = !std::less<>{}(text, units_) && std::less<>{}(text, units_ + length_ + 1);
    if (total <= capacity_ && (!own || n == 0)) {
        copy_units(units_ + pos + n, units_ + pos + removed, tail);
        copy_units(units_ + pos, text, n);
        set_length(static_cast<unsigned>(total));
        return *this;
    }
    ustring result;
    const bool grows = n < total; // a text that is added to is added to again
    const std::size_t doubled = std::min<std::size_t>(std::size_t{capacity_} * 2, longest);
    const std::size_t room = grows && total > capacity_ ? std::max(total, doubled) : total;
    if (!result.reserve(room))
        return *this;
    copy_units(result.units_, units_, pos);
    copy_units(result.units_ + pos, text, n);
    copy_units(result.units_ + pos + n, units_ + pos + removed, tail);
    result.set_length(static_cast<unsigned>(total));
    return *this = std::move(result);
}

ustring & ustring::assign(const char * text)
{
    return assign(text, text ? std::strlen(text) : 0);
}

ustring & ustring::assign(const char * bytes, std::size_t count)
{
    decode(bytes, count);
    return *this;
}

ustring & ustring::assign(const ustring & other, unsigned pos, unsigned n)
{
    const unsigned count = clip(other.length_, pos, n);
    return splice(0, length_, other.units_ + (count != 0 ? pos : 0), count);
}

ustring & ustring::append(const ustring & other)
{
    return splice(length_, 0, other.units_, other.length_);
}

ustring & ustring::append(const char * text)
{
    // No byte makes more than a unit; one's own multi-byte form stays where it is.
    const std::size_t count = text ? std::strlen(text) : 0;
    if (length_ + count > capacity_)
        return append(ustring(text));
    set_length(length_ + static_cast<unsigned>(utf8::decode(text, count, units_ + length_)));
    return *this;
}

ustring & ustring::insert(unsigned pos, const ustring & text, unsigned spos, unsigned n)
{
    const unsigned count = clip(text.length_, spos, n);
    return splice(std::min(pos, length_), 0, text.units_ + (count != 0 ? spos : 0), count);
}

ustring & ustring::remove(unsigned pos, unsigned n)
{
    const unsigned count = clip(length_, pos, n);
    return count != 0 ? splice(pos, count, nullptr, 0) : *this;
}

template <class Change>
ustring & ustring::change_case(unsigned pos, unsigned n, Change change)
{
    const unsigned count = clip(length_, pos, n);
    if (count != 0) {
        std::transform(units_ + pos, units_ + pos + count, units_ + pos, change);
        bytes_length_ = no_cache;
    }
    return *this;
}

ustring & ustring::to_upper(unsigned pos, unsigned n)
{
    return change_case(pos, n, to_ascii_upper<char16_t>);
}

ustring & ustring::to_lower(unsigned pos, unsigned n)
{
    return change_case(pos, n, to_ascii_lower<char16_t>);
}

ustring & ustring::strip(int type, char16_t ch)
{
    unsigned begin = 0;
    unsigned end = length_;
    while ((type & strip_back) && end > begin && units_[end - 1] == ch)
        --end;
    while ((type & strip_front) && begin < end && units_[begin] == ch)
        ++begin;
    if (end != length_)
        set_length(end);
    return remove(0, begin);
}

bool ustring::equals(const ustring & as_long) const noexcept
{
    return std::memcmp(units_, as_long.units_, length_ * sizeof(char16_t)) == 0;
}

const char * ustring::mbcs_str() const
{
    if (bytes_length_ == no_cache) {
        if (!reserve_bytes(std::size_t{length_} * 3 + 1, 0))
            return "";
        bytes_length_ = static_cast<unsigned>(utf8::encode(units_, length_, bytes_));
        bytes_[bytes_length_] = 0;
    }
    return bytes_;
}

unsigned ustring::mbcs_length() const
{
    mbcs_str();
    return bytes_length_ == no_cache ? 0 : bytes_length_;
}

const char * ustring::codable_name() const
{
    return "ustring";
}

unsigned int ustring::hash_code()
{
    return static_cast<unsigned int>(std::hash<std::u16string_view>{}({units_, length_}));
}

codable * ustring::clone()
{
    return make<ustring>(*this);
}

int ustring::operator==(const codable & other) const
{
    return other.is_a(class_tag::ustring) && *this == static_cast<const ustring &>(other) ? 1 : 0;
}

long ustring::codable_version() const
{
    return 1;
}

} // namespace orvet
