#ifndef ORVET_FOUNDATION_BASE_PATHNAME_H
#define ORVET_FOUNDATION_BASE_PATHNAME_H

#include <utility>

#include "orvet/foundation/base/ustring.h"

namespace orvet {

/// The name of a file or directory. Keeps the text that it is made from.
class ORVET_API pathname : public codable {
public:
    pathname() : codable(class_tag::pathname) {}
    /// From bytes up to their zero; null gives the empty path.
    pathname(const char * text) : codable(class_tag::pathname), text_(text) {}
    /// Copies the text; `version` is 1.
    pathname(const pathname & other) : codable(class_tag::pathname), text_(other.text_) {}
    /// Leaves `other` empty.
    pathname(pathname && other) noexcept : codable(other, class_tag::pathname), text_(std::move(other.text_))
    {
    }
    ///@{
    /// Replaces the text.
    pathname & operator=(const pathname & other) = default;
    pathname & operator=(pathname && other) noexcept = default;
    pathname & operator=(const ustring & text);
    pathname & operator=(ustring && text) noexcept;
    pathname & operator=(const char * text);
    ///@}

    /// Adds an element with exactly one native separator in front of it. `/` and `\` both count as
    /// separators: those at the front of the element are dropped, and none is added behind a path that ends
    /// in one. An element of separators alone leaves a separator at the end. An empty path stays relative, an
    /// empty element changes nothing, and what the path already holds is never rewritten.
    pathname & operator+=(const ustring & element);

    /// The text; valid as long as the object.
    const ustring & text() const noexcept { return text_; }
    /// Its multi-byte form, by the rules of `ustring::mbcs_str`.
    const char * mbcs_str() const { return text_.mbcs_str(); }

    const char * codable_name() const override;
    unsigned int hash_code() override;
    codable * clone() override;
    /// 1 when `other` is a `pathname` with the same text, case ignored.
    int operator==(const codable & other) const override;

    ///@{
    /// The same rule, also where the class of only one side is known.
    friend bool operator==(const pathname & a, const pathname & b) { return a.equals(b); }
    friend bool operator==(const codable & a, const pathname & b) { return a.operator==(b) != 0; }
    friend bool operator==(const pathname &, const ustring &) { return false; } // another class
    friend bool operator==(const ustring &, const pathname &) { return false; }
    friend bool operator!=(const pathname & a, const pathname & b) { return !a.equals(b); }
    friend bool operator!=(const codable & a, const pathname & b) { return a.operator==(b) == 0; }
    friend bool operator!=(const pathname & a, const codable & b) { return a.operator==(b) == 0; }
    ///@}

protected:
    long codable_version() const override;

private:
    bool equals(const pathname & other) const;

    ustring text_;
};

/// `path` with `element` behind it by the rules above, for a system whose own separator is `separator`.
ORVET_API ustring join_path(const ustring & path, const ustring & element, char16_t separator);

} // namespace orvet

#endif
