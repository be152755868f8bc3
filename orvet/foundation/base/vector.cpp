#include "orvet/foundation/base/vector.h"

#include <algorithm>
#include <utility>

#include "orvet/foundation/base/memory.h"

namespace orvet {

vector::vector(const vector & other) : codable(other)
{
    if (!reserve(other.size_))
        return;
    for (; size_ < other.size_; ++size_) {
        items_[size_] = other.items_[size_];
        ++items_[size_]->holders_;
    }
}

vector & vector::operator=(const vector & other)
{
    memory_watch watch;
    vector copy(other);
    if (watch.failed())
        return *this;
    std::swap(size_, copy.size_);
    std::swap(capacity_, copy.capacity_);
    std::swap(items_, copy.items_);
    std::swap(single_, copy.single_);
    if (items_ == &copy.single_)
        items_ = &single_;
    if (copy.items_ == &single_)
        copy.items_ = &copy.single_;
    return *this;
}

vector::~vector()
{
    resize(0);
    drop();
}

void vector::drop() noexcept
{
    if (items_ != &single_)
        release(items_);
}

void vector::let_go(codable * item)
{
    if (--item->holders_ == 0)
        delete item;
}

bool vector::reserve(unsigned n)
{
    if (n <= capacity_)
        return true;
    const unsigned room = std::max(n, capacity_ * 2);
    auto ** fresh = allocate<codable *>(room);
    if (!fresh)
        return false;
    std::copy(items_, items_ + size_, fresh);
    drop();
    items_ = fresh;
    capacity_ = room;
    return true;
}

void vector::push_back(codable * item)
{
    if (!item)
        return;
    ++item->holders_;
    if (reserve(size_ + 1))
        items_[size_++] = item;
    else
        let_go(item);
}

void vector::remove(int i)
{
    if (i < 0 || static_cast<unsigned>(i) >= size_)
        return;
    codable * const item = items_[i];
    std::copy(items_ + i + 1, items_ + size_, items_ + i);
    --size_;
    let_go(item);
}

void vector::resize(unsigned n)
{
    while (size_ > n)
        let_go(items_[--size_]);
}

const char * vector::codable_name() const
{
    return "vector";
}

codable * vector::clone()
{
    return make<vector>(*this);
}

long vector::codable_version() const
{
    return 1;
}

} // namespace orvet
