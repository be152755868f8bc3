#ifndef ORVET_FOUNDATION_BASE_PATHNAME_H
#define ORVET_FOUNDATION_BASE_PATHNAME_H

#include <compare>
#include <concepts>
#include <iosfwd>
#include <string_view>
#include <utility>

#include "orvet/foundation/base/ustring.h"

namespace orvet {

namespace detail {

/// `std::filesystem::path`, which is not named here: its header costs more than the whole library's.
template <class T>
concept filesystem_path = requires(const T & path)
{
    T::preferred_separator;
    {
        path.native()
        } -> std::same_as<const typename T::string_type &>;
};

/// A text that is not a `ustring`.
template <class T>
concept plain_text = !std::derived_from<T, codable> && std::convertible_to<const T &, ustring>;

} // namespace detail

/// The name of a file or directory. Keeps the text that it is made from.
///
/// Wherever a text is asked for, a path stands for its text, and the other way round. Paths compare with
/// texts by the path's rule: case ignored.
class ORVET_API pathname : public codable {
public:
    pathname() : codable(class_tag::pathname) {}
    /// From bytes up to their zero; null gives the empty path.
    pathname(const char * text) : codable(class_tag::pathname), text_(text) {}
    /// Stores the text as it is.
    pathname(ustring text) noexcept : codable(class_tag::pathname), text_(std::move(text)) {}
    /// From `std::string`, `std::string_view` or UTF-16, by the rules of `ustring`.
    template <class Text>
    requires(detail::byte_text<Text> || detail::unit_text<Text>) pathname(const Text & text)
        : codable(class_tag::pathname), text_(text)
    {
    }
    /// From `std::filesystem::path`, in the system's own form: bytes, or UTF-16 on Windows.
    template <detail::filesystem_path Path>
    pathname(const Path & path) : codable(class_tag::pathname)
    {
        const auto & native = path.native();
        if constexpr (sizeof(typename Path::value_type) == 1)
            text_ = ustring(native);
        else
            for (const char16_t unit : native)
                text_.append(std::u16string_view(&unit, 1));
    }
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
    template <detail::plain_text Text>
    requires(!std::convertible_to<const Text &, const char *>) pathname & operator=(const Text & text)
    {
        return *this = ustring(text);
    }
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
    /// The text, for what takes a `ustring`; valid as long as the object.
    operator const ustring &() const noexcept { return text_; }
    /// `std::string(path)`: a copy of the multi-byte form.
    template <detail::byte_string String>
    explicit operator String() const
    {
        return String(text_);
    }
    /// `std::filesystem::path`, in the system's own form.
    template <detail::filesystem_path Path>
    operator Path() const
    {
        using text = typename Path::string_type;
        if constexpr (sizeof(typename Path::value_type) == 1)
            return Path(text(text_.mbcs_str(), text_.mbcs_length()));
        else
            return Path(text(text_.data(), text_.data() + text_.length()));
    }

    const char * codable_name() const override;
    unsigned int hash_code() override;
    codable * clone() override;
    /// 1 when `other` is a `pathname` with the same text, case ignored.
    int operator==(const codable & other) const override;

    ///@{
    /// The same rule, also where the class of only one side is known.
    friend bool operator==(const pathname & a, const pathname & b) { return a.equals(b); }
    friend bool operator==(const codable & a, const pathname & b) { return a.operator==(b) != 0; }
    friend bool operator==(const pathname & a, const ustring & b) { return compare(a, b) == 0; }
    friend bool operator==(const ustring & a, const pathname & b) { return compare(a, b) == 0; }
    template <detail::plain_text Text>
    friend bool operator==(const pathname & a, const Text & b)
    {
        return compare(a, ustring(b)) == 0;
    }
    friend bool operator!=(const pathname & a, const pathname & b) { return !a.equals(b); }
    friend bool operator!=(const codable & a, const pathname & b) { return a.operator==(b) == 0; }
    friend bool operator!=(const pathname & a, const codable & b) { return a.operator==(b) == 0; }
    ///@}
    /// Orders by the text, case ignored: for sorting and for the key of a map.
    friend std::weak_ordering operator<=>(const pathname & a, const pathname & b)
    {
        return compare(a, b) <=> 0;
    }

    // Templates, so that an operator of the tool's own is preferred.

    ///@{
    /// `+=` adds an element to a path; for text after a path's text write `path.text() + text`.
    template <std::same_as<pathname> Path>
    friend void operator+(const Path &, const ustring &) = delete;
    template <std::same_as<pathname> Path>
    friend void operator+(const ustring &, const Path &) = delete;
    ///@}
    /// Writes the multi-byte form; include the header `ostream` for it.
    template <class Traits>
    friend std::basic_ostream<char, Traits> & operator<<(std::basic_ostream<char, Traits> & out,
                                                         const pathname & path)
    {
        return out << path.text_;
    }

protected:
    long codable_version() const override;

private:
    bool equals(const pathname & other) const;
    static int compare(const ustring & a, const ustring & b)
    {
        return a.compare(0, ustring::npos, b, 0, ustring::npos, 1);
    }

    ustring text_;
};

/// `path` with `element` behind it by the rules above, for a system whose own separator is `separator`.
ORVET_API ustring join_path(const ustring & path, const ustring & element, char16_t separator);

} // namespace orvet

/// Equal paths have equal hashes: case is ignored.
template <>
struct std::hash<orvet::pathname> {
    /// The hash of the path in small letters.
    std::size_t operator()(const orvet::pathname & path) const
    {
        return std::hash<orvet::ustring>{}(orvet::ustring(path.text()).to_lower());
    }
};

#endif
