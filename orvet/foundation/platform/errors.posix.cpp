#include "orvet/foundation/platform/errors.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <limits>
#include <string_view>

#include "orvet/foundation/base/utf8.h"

namespace orvet::platform {

namespace {

/// The runtime's text for a number, which it makes up for one that it does not know; cut to `size` bytes with
/// its zero.
std::string_view text_of(int code, char * room, std::size_t size)
{
    const std::string_view text = std::strerror(code);
    const std::size_t length = text.size() < size ? text.size() : utf8::cut(text.data(), size - 1);
    text.copy(room, length);
    room[length] = 0;
    return {room, length};
}

bool differ_in_digits_alone(std::string_view a, std::string_view b)
{
    constexpr std::string_view number = "-0123456789";
    const auto [at, other] = std::mismatch(a.begin(), a.end(), b.begin(), b.end());
    const auto is_number = [&](auto from, auto end) {
        return std::all_of(from, end, [&](char ch) { return number.find(ch) != number.npos; });
    };
    return is_number(at, a.end()) && is_number(other, b.end());
}

} // namespace

unsigned long native::last_error()
{
    return static_cast<unsigned long>(errno);
}

bool native::error_text(unsigned long code, char * text, std::size_t size)
{
    constexpr int most = std::numeric_limits<int>::max(); // no system has an error of that number
    if (code >= static_cast<unsigned long>(most))
        return false;
    const int error = errno;
    char room[128];
    char unknown_room[128];
    const std::string_view unknown = text_of(most, unknown_room, sizeof unknown_room);
    const std::string_view known = text_of(static_cast<int>(code), room, std::min(size, sizeof room));
    errno = error;
    if (differ_in_digits_alone(known, unknown))
        return false;
    std::memcpy(text, known.data(), known.size() + 1);
    return true;
}

} // namespace orvet::platform
