#include <cstddef>
#include <cstdlib>
#include <new>

#include "faults.h"

using namespace orvet_test;

namespace {

// The library asks for memory without exceptions, the tests with them. Each block says whose it is.
constexpr std::size_t head = alignof(std::max_align_t);

void * new_block(std::size_t size, bool of_library)
{
    void * const block = std::malloc(size + head);
    if (!block)
        return nullptr;
    *static_cast<bool *>(block) = of_library;
    blocks_in_use += of_library;
    return static_cast<char *>(block) + head;
}

} // namespace

void * operator new(std::size_t size)
{
    void * const block = new_block(size, false);
    return block ? block : throw std::bad_alloc();
}

void * operator new(std::size_t size, const std::nothrow_t &) noexcept
{
    return fault::strikes("allocation", fault::allocations) ? nullptr : new_block(size, true);
}

void * operator new[](std::size_t size, const std::nothrow_t & without) noexcept
{
    return ::operator new(size, without);
}

void operator delete(void * block) noexcept
{
    if (!block)
        return;
    bool * const of_library = reinterpret_cast<bool *>(static_cast<char *>(block) - head);
    blocks_in_use -= *of_library;
    std::free(of_library);
}

void operator delete(void * block, std::size_t) noexcept
{
    ::operator delete(block);
}
