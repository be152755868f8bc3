#ifndef ORVET_FOUNDATION_BASE_VECTOR_H
#define ORVET_FOUNDATION_BASE_VECTOR_H

#include "orvet/foundation/base/codable.h"

namespace orvet {

/// A row of objects. A copy holds the same objects, and an object is deleted when the last vector that holds
/// it lets go of it; what never entered a vector belongs to whoever made it.
class ORVET_API vector : public codable {
public:
    vector() noexcept = default;
    ///@{
    /// Holds the same objects as `other`, or none of them when memory is short.
    vector(const vector & other);
    vector & operator=(const vector & other);
    ///@}
    ~vector() override;

    /// Number of items.
    unsigned size() const noexcept { return size_; }
    /// The row itself, `size()` pointers; may be sorted in place. Valid until items come or go.
    codable ** items() const noexcept { return items_; }
    /// Item `i`, owned by the vector; null when there is none.
    codable * operator[](unsigned i) const noexcept { return i < size_ ? items_[i] : nullptr; }
    ///@{
    /// The items for a range-for, as `codable *`; items.h has one that knows their class.
    codable * const * begin() const noexcept { return items_; }
    codable * const * end() const noexcept { return items_ + size_; }
    ///@}

    /// Takes over a new object, on the heap, and deletes it at once where there is no room for it; null is
    /// ignored.
    void push_back(codable * item);
    /// Drops item `i`; later items move down by one. Does nothing when there is no such item.
    void remove(int i);
    /// Drops the items from `n` on; a vector never grows by this.
    void resize(unsigned n);

    const char * codable_name() const override;
    codable * clone() override;

protected:
    long codable_version() const override;

private:
    static void let_go(codable * item);
    bool reserve(unsigned n);
    void drop() noexcept;

    unsigned size_ = 0;
    unsigned capacity_ = 1;
    codable ** items_ = &single_;
    codable * single_ = nullptr; // a row of one needs no memory of its own
};

} // namespace orvet

#endif
