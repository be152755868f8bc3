#ifndef ORVET_FOUNDATION_BASE_USTRING_H
#define ORVET_FOUNDATION_BASE_USTRING_H

#include <compare>
#include <concepts>
#include <cstddef>
#include <cstdio>
#include <iosfwd>
#include <string_view>

#include "orvet/foundation/base/codable.h"

namespace orvet {

namespace detail {

/// Bytes with a length of their own: `std::string`, `std::string_view` and what converts to the latter. A
/// `const char *` ends at its zero and is not among them.
template <class T>
concept byte_text = !std::derived_from<T, codable> && std::convertible_to<const T &, std::string_view> &&
                    !std::convertible_to<const T &, const char *>;

/// UTF-16 with a length of its own.
template <class T>
concept unit_text =
    !std::derived_from<T, codable> && std::convertible_to<const T &, std::u16string_view> && !byte_text<T>;

/// `std::string`, which is not named here: <string> would cost more than this header.
template <class T>
concept byte_string = std::same_as<typename T::value_type, char> &&
    requires(const char * bytes, std::size_t count)
{
    typename T::allocator_type;
    T(bytes, count);
};

} // namespace detail

/// Text of UTF-16 units, with a multi-byte form in UTF-8 for the runtime's functions.
///
/// Any bytes that go in through `const char *` or `getline` come out of `mbcs_str` byte for byte, also those
/// that are no UTF-8. Positions and counts are in units; out of range they are clipped, and a count of `npos`
/// means up to the end. Editing works in place, returns the object, and takes the object's own text as well.
/// An edit that cuts a pair of units in two leaves halves, whose bytes are not defined. Case means the ASCII
/// letters, whatever the locale. Where memory is short the object stays as it was.
class ORVET_API ustring : public codable {
public:
    /// `npos` as a count means up to the end; as a result, nothing found.
    enum : unsigned { npos = 0xffffffffU };

    /// The ends that `strip` works on.
    enum strip_type { strip_front = 1, strip_back = 2, strip_both = 3 };

    /// The empty text.
    ustring() noexcept;
    /// From bytes up to their zero; null gives the empty text.
    ustring(const char * text);
    /// From `std::string`, `std::string_view` and what converts to the latter; zero bytes are kept.
    template <detail::byte_text Text>
    ustring(const Text & text) : ustring()
    {
        const std::string_view bytes = text;
        assign(bytes.data(), bytes.size());
    }
    /// From UTF-16: `u"text"`, `std::u16string`, `std::u16string_view`.
    template <detail::unit_text Text>
    ustring(const Text & text) : ustring()
    {
        const std::u16string_view units = text;
        const bool fits = units.size() < npos; // else the allocation fails
        splice(0, 0, units.data(), fits ? static_cast<unsigned>(units.size()) : npos - 1);
    }
    /// A copy; empty when memory is short.
    ustring(const ustring & other);
    /// Takes the text over and leaves `other` empty.
    ustring(ustring && other) noexcept;
    /// The `n` units of `other` from `pos` on; empty when `pos` lies outside.
    ustring(const ustring & other, unsigned pos, unsigned n = npos);
    ~ustring() override;

    /// Replaces the text.
    ustring & operator=(const ustring & other) { return assign(other); }
    /// Takes the text over.
    ustring & operator=(ustring && other) noexcept;

    /// Units of the text, the closing zero not counted.
    unsigned length() const noexcept { return length_; }
    /// The units, closed by a zero; valid while the object is unchanged.
    const char16_t * data() const noexcept { return units_; }

    ///@{
    /// Replaces the text, by a part of `other` where one is named.
    ustring & assign(const ustring & other) { return assign(other, 0, npos); }
    ustring & assign(const char * text);
    ustring & assign(const char * bytes, std::size_t count); ///< zero bytes are kept
    ustring & assign(const ustring & other, unsigned pos, unsigned n);
    ///@}
    ///@{
    /// Adds at the end.
    ustring & append(const ustring & other);
    ustring & append(const char * text);
    ustring & operator+=(const ustring & other) { return append(other); }
    ustring & operator+=(const char * text) { return append(text); }
    ///@}
    /// Puts the `n` units of `text` from `spos` on before `pos`, or at the end where `pos` lies behind it.
    ustring & insert(unsigned pos, const ustring & text, unsigned spos = 0, unsigned n = npos);
    /// Cuts `n` units out, from `pos` on.
    ustring & remove(unsigned pos, unsigned n = npos);
    /// Turns the ASCII letters of that range into capitals, or into small ones.
    ustring & to_upper(unsigned pos = 0, unsigned n = npos);
    /// @copydoc to_upper
    ustring & to_lower(unsigned pos = 0, unsigned n = npos);
    /// Removes every `ch` at the ends that `type` names, a value of `strip_type`.
    ustring & strip(int type, char16_t ch);

    ///@{
    /// Index of the first match, of a unit or of the `n` units of `chars`, at or behind `pos`, or `npos`. A
    /// `flag` other than 0 ignores case.
    unsigned find(char16_t ch, unsigned pos = 0, int flag = 0) const;
    unsigned find(const char16_t * chars, unsigned pos, unsigned n, int flag = 0) const;
    ///@}
    ///@{
    /// The same for the first unit that is, or is not, one of the `n` units of `chars`.
    unsigned find_first_of(const char16_t * chars, unsigned pos, unsigned n, int flag = 0) const;
    unsigned find_first_not_of(const char16_t * chars, unsigned pos, unsigned n, int flag = 0) const;
    ///@}

    /// 0 when the two ranges are equal, else below or above 0. A `flag` other than 0 ignores case.
    int compare(unsigned pos1, unsigned n1, const ustring & other, unsigned pos2, unsigned n2,
                int flag) const;
    /// True when the text begins with these ASCII characters, case respected.
    bool begins_with(const char * ascii) const noexcept;

    /// Replaces the text by the next line of `stream` without its line end, which is LF, CR LF or the end of
    /// the file. Not 0 if a line was read. 0 at the end of the file, after a read error, which `ferror` tells
    /// apart, and if allocation fails; the text is then unchanged. Reads no further than the line end.
    int getline(std::FILE * stream);

    /// The multi-byte form, closed by a zero; built when asked for and valid while the object is unchanged.
    const char * mbcs_str() const;
    /// Bytes of the multi-byte form, zero bytes inside the text counted.
    unsigned mbcs_length() const;
    /// Both in one, zero bytes included; valid while the object is unchanged.
    std::string_view mbcs_view() const { return {mbcs_str(), mbcs_length()}; }
    /// `std::string(text)`: a copy of the multi-byte form.
    template <detail::byte_string String>
    explicit operator String() const
    {
        return String(mbcs_str(), mbcs_length());
    }

    const char * codable_name() const override;
    unsigned int hash_code() override;
    codable * clone() override;
    /// 1 when `other` is a `ustring` with the same text, case respected.
    int operator==(const codable & other) const override;

    ///@{
    /// The same rule, also where the class of only one side is known.
    friend bool operator==(const ustring & a, const ustring & b) noexcept
    {
        return a.length_ == b.length_ && a.equals(b);
    }
    friend bool operator==(const codable & a, const ustring & b) { return a.operator==(b) != 0; }
    friend bool operator!=(const codable & a, const ustring & b) { return a.operator==(b) == 0; }
    friend bool operator!=(const ustring & a, const codable & b) { return a.operator==(b) == 0; }
    friend bool operator!=(const ustring & a, const ustring & b) noexcept { return !(a == b); }
    ///@}
    /// Orders by the units, case respected: for sorting and for the key of a map.
    friend std::strong_ordering operator<=>(const ustring & a, const ustring & b)
    {
        return a.compare(0, npos, b, 0, npos, 0) <=> 0;
    }

    // Templates, so that an operator of the tool's own is preferred.

    /// Both texts in a new one; empty if allocation fails.
    template <class = void>
    friend ustring operator+(const ustring & a, const ustring & b)
    {
        ustring sum(a);
        sum.append(b);
        return sum.length_ - b.length_ == a.length_ ? sum : ustring();
    }
    /// Writes the multi-byte form; include the header `ostream` for it.
    template <class Traits>
    friend std::basic_ostream<char, Traits> & operator<<(std::basic_ostream<char, Traits> & out,
                                                         const ustring & text)
    {
        return out << std::basic_string_view<char, Traits>(text.mbcs_str(), text.mbcs_length());
    }

protected:
    long codable_version() const override;

private:
    friend class line_reader;

    enum : unsigned { inline_capacity = 15 }; // units kept in the object itself
    enum : unsigned { no_cache = npos };      // a length: the multi-byte form is not that of the text

    bool equals(const ustring & as_long) const noexcept;
    bool is_inline() const noexcept { return units_ == inline_units_; }
    void move_from(ustring & other) noexcept;
    void drop() noexcept;
    bool reserve(std::size_t units);
    bool grow(std::size_t units);
    bool reserve_bytes(std::size_t bytes, std::size_t keep) const;
    void set_length(unsigned units) noexcept
    {
        length_ = units;
        units_[units] = 0;
        bytes_length_ = no_cache;
    }
    bool decode(const char * bytes, std::size_t count);
    ustring & splice(unsigned pos, unsigned removed, const char16_t * text, unsigned n);
    template <class Change>
    ustring & change_case(unsigned pos, unsigned n, Change change);

    unsigned length_ = 0;
    unsigned capacity_ = inline_capacity; // units, the closing zero not counted
    char16_t * units_ = inline_units_;
    // The multi-byte form, made when asked for.
    mutable unsigned bytes_length_ = no_cache;
    mutable unsigned bytes_capacity_ = 0;
    mutable char * bytes_ = nullptr;
    char16_t inline_units_[inline_capacity + 1];
};

} // namespace orvet

/// Equal texts have equal hashes.
template <>
struct std::hash<orvet::ustring> {
    /// The hash of the units.
    std::size_t operator()(const orvet::ustring & text) const noexcept
    {
        return std::hash<std::u16string_view>{}({text.data(), text.length()});
    }
};

#endif
