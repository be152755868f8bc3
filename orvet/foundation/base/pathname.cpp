#include "orvet/foundation/base/pathname.h"

#include <filesystem>
#include <utility>

#include "orvet/foundation/base/memory.h"

namespace orvet {

namespace {

constexpr char16_t native_separator = std::filesystem::path::preferred_separator;
constexpr char16_t separators[] = {u'/', u'\\'};

bool ends_in_separator(const ustring & path)
{
    // In an empty path that place lies outside, where nothing is found.
    return path.find_first_of(separators, path.length() - 1, 2) != ustring::npos;
}

/// Adds to `path`, which does not hold `element` itself.
void join(ustring & path, const ustring & element, char16_t separator)
{
    if (element.length() == 0)
        return;
    const unsigned name = element.find_first_not_of(separators, 0, 2);
    if (path.length() != 0 && !ends_in_separator(path)) {
        const char native[] = {static_cast<char>(separator), 0};
        path.append(native);
    }
    if (name != ustring::npos)
        path.insert(path.length(), element, name);
}

} // namespace

ustring join_path(const ustring & path, const ustring & element, char16_t separator)
{
    ustring result(path);
    join(result, element, separator);
    return result;
}

pathname & pathname::operator=(const ustring & text)
{
    text_ = text;
    return *this;
}

pathname & pathname::operator=(ustring && text) noexcept
{
    text_ = std::move(text);
    return *this;
}

pathname & pathname::operator=(const char * text)
{
    text_.assign(text);
    return *this;
}

pathname & pathname::operator+=(const ustring & element)
{
    if (&element == &text_)
        return *this += ustring(element);
    memory_watch watch;
    const unsigned before = text_.length();
    join(text_, element, native_separator);
    if (watch.failed())
        text_.remove(before);
    return *this;
}

const char * pathname::codable_name() const
{
    return "pathname";
}

unsigned int pathname::hash_code()
{
    return text_.hash_code();
}

codable * pathname::clone()
{
    return make<pathname>(*this);
}

bool pathname::equals(const pathname & other) const
{
    return text_.compare(0, ustring::npos, other.text_, 0, ustring::npos, 1) == 0;
}

int pathname::operator==(const codable & other) const
{
    return other.is_a(class_tag::pathname) && equals(static_cast<const pathname &>(other)) ? 1 : 0;
}

long pathname::codable_version() const
{
    return 1;
}

} // namespace orvet
