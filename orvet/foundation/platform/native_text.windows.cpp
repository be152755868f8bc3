#include "orvet/foundation/platform/native_text.h"

#include <cerrno>

#include <windows.h>

#include "orvet/foundation/base/memory.h"
#include "orvet/foundation/base/utf8.h"

namespace orvet::platform {

namespace {

static_assert(sizeof(wchar_t) == sizeof(char16_t));

bool is_whole(const ustring & text)
{
    const char16_t * const units = text.data();
    for (unsigned i = 0; i < text.length(); ++i) {
        if (utf8::is_low(units[i]) || (utf8::is_high(units[i]) && !utf8::is_low(units[i + 1])))
            return false;
        i += utf8::is_high(units[i]);
    }
    return true;
}

wchar_t * from_code_page(const ustring & text)
{
    memory_watch watch;
    const char * const bytes = text.mbcs_str();
    const auto room = static_cast<int>(text.mbcs_length() + 1); // a byte becomes one unit at most
    auto * const units = watch.failed() ? nullptr : allocate<wchar_t>(static_cast<std::size_t>(room));
    if (units && MultiByteToWideChar(CP_ACP, 0, bytes, -1, units, room) != 0)
        return units;
    errno = units ? EINVAL : ENOMEM;
    release(units);
    return nullptr;
}

} // namespace

native_text::native_text(const ustring & text)
{
    if (text.find(u'\0') != ustring::npos)
        errno = EINVAL;
    else if (is_whole(text))
        wide = reinterpret_cast<const wchar_t *>(text.data());
    else
        wide = own_ = from_code_page(text);
}

native_text::~native_text()
{
    release(own_);
}

} // namespace orvet::platform
