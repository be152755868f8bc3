#ifndef ORVET_FOUNDATION_BASE_ITEMS_H
#define ORVET_FOUNDATION_BASE_ITEMS_H

#include <cstddef>

#include "orvet/foundation/base/pair.h"
#include "orvet/foundation/base/pathname.h"
#include "orvet/foundation/base/ustring.h"
#include "orvet/foundation/base/vector.h"

namespace orvet {

class auth_profile_info;
class orphan_entry;
class sof_entry;
class top_entry;
class user_info;

namespace detail {

template <class Item>
inline constexpr class_tag tag_of = class_tag::other;
template <>
inline constexpr class_tag tag_of<ustring> = class_tag::ustring;
template <>
inline constexpr class_tag tag_of<pathname> = class_tag::pathname;
template <>
inline constexpr class_tag tag_of<pair> = class_tag::pair;
template <>
inline constexpr class_tag tag_of<top_entry> = class_tag::top_entry;
template <>
inline constexpr class_tag tag_of<sof_entry> = class_tag::sof_entry;
template <>
inline constexpr class_tag tag_of<orphan_entry> = class_tag::orphan_entry;
template <>
inline constexpr class_tag tag_of<auth_profile_info> = class_tag::auth_profile_info;
template <>
inline constexpr class_tag tag_of<user_info> = class_tag::user_info;

} // namespace detail

/// The items of a vector that are of class `Item`, or of one derived from it, in their order:
///
///     for (const top_entry & domain : items<top_entry>(domains))
///         std::puts(domain.domain_name.mbcs_str());
///
/// Items of another class are skipped. `Item` is a class of the library; no type information is needed. The
/// vector has to outlive the range, and must not change while it is walked.
template <class Item>
class items {
    static_assert(detail::tag_of<Item> != class_tag::other,
                  "items<> is for ustring, pathname, pair, top_entry, sof_entry, orphan_entry, "
                  "auth_profile_info and user_info; for a class of your own walk the vector itself and "
                  "static_cast its codable * items");

public:
    /// The items of `row`.
    explicit items(const vector & row) noexcept : row_(&row) {}
    explicit items(const vector &&) = delete;

    /// A forward iterator.
    class iterator {
    public:
        ///@{
        /// As the standard algorithms require them.
        using value_type = Item;
        using difference_type = std::ptrdiff_t;

        iterator() = default;
        iterator(codable * const * at, codable * const * end) : at_(at), end_(end) { skip(); }

        Item & operator*() const { return static_cast<Item &>(**at_); }
        Item * operator->() const { return static_cast<Item *>(*at_); }
        iterator & operator++()
        {
            ++at_;
            skip();
            return *this;
        }
        iterator operator++(int)
        {
            const iterator before = *this;
            ++*this;
            return before;
        }
        friend bool operator==(const iterator & a, const iterator & b) { return a.at_ == b.at_; }
        ///@}

    private:
        void skip()
        {
            while (at_ != end_ && !(*at_)->is_a(detail::tag_of<Item>))
                ++at_;
        }

        codable * const * at_ = nullptr;
        codable * const * end_ = nullptr;
    };

    ///@{
    /// The range.
    iterator begin() const { return {row_->begin(), row_->end()}; }
    iterator end() const { return {row_->end(), row_->end()}; }
    ///@}
    /// Whether there is none.
    bool empty() const { return begin() == end(); }

private:
    const vector * row_;
};

} // namespace orvet

#endif
