#include "orvet/foundation/platform/native_text.h"

#include <cerrno>

#include "orvet/foundation/base/memory.h"

namespace orvet::platform {

const char * native_text(const ustring & text)
{
    if (text.find(u'\0') != ustring::npos) {
        errno = EINVAL;
        return nullptr;
    }
    memory_watch watch;
    const char * const bytes = text.mbcs_str();
    if (!watch.failed())
        return bytes;
    errno = ENOMEM;
    return nullptr;
}

} // namespace orvet::platform
