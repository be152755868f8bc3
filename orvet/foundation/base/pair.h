#ifndef ORVET_FOUNDATION_BASE_PAIR_H
#define ORVET_FOUNDATION_BASE_PAIR_H

#include "orvet/foundation/base/ustring.h"

namespace orvet {

class pathname;

/// Two texts that belong together, a key and its value for one.
class ORVET_API pair : public codable {
public:
    /// Two empty texts.
    pair() : codable(class_tag::pair) {}
    /// Stores copies.
    pair(const ustring & first_text, const ustring & second_text)
        : codable(class_tag::pair), first(first_text), second(second_text)
    {
    }
    /// Copies both texts.
    pair(const pair & other) : codable(other, class_tag::pair), first(other.first), second(other.second) {}
    /// Copies both texts.
    pair & operator=(const pair & other) = default;

    const char * codable_name() const override;
    codable * clone() override;
    /// 1 when `other` is a `pair` of the same two texts, case respected.
    int operator==(const codable & other) const override;

    ///@{
    /// The same rule, also where the class of only one side is known.
    friend bool operator==(const pair & a, const pair & b) { return a.equals(b); }
    friend bool operator==(const codable & a, const pair & b) { return a.operator==(b) != 0; }
    friend bool operator==(const pair &, const ustring &) { return false; } // another class
    friend bool operator==(const ustring &, const pair &) { return false; }
    friend bool operator==(const pair &, const pathname &) { return false; }
    friend bool operator==(const pathname &, const pair &) { return false; }
    friend bool operator!=(const pair & a, const pair & b) { return !a.equals(b); }
    friend bool operator!=(const codable & a, const pair & b) { return a.operator==(b) == 0; }
    friend bool operator!=(const pair & a, const codable & b) { return a.operator==(b) == 0; }
    ///@}

    ustring first;  ///< the key
    ustring second; ///< its value

protected:
    long codable_version() const override;

private:
    bool equals(const pair & other) const { return first == other.first && second == other.second; }
};

} // namespace orvet

#endif
