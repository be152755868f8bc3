#ifndef ORVET_FOUNDATION_BASE_MEMORY_H
#define ORVET_FOUNDATION_BASE_MEMORY_H

#include <cstddef>
#include <new>
#include <utility>

namespace orvet {

/// Counts the allocations that failed in this process. Operations without a result can't report a failure
/// themselves; whoever has a result to give watches this count around them.
inline constinit unsigned memory_failures = 0;

/// Tells whether an allocation has failed since the watch began.
class memory_watch {
public:
    bool failed() const noexcept { return memory_failures != start_; }

private:
    unsigned start_ = memory_failures;
};

/// Around the making of a line: what finds no memory there is missing in the line, and fails nothing else.
class line_memory {
public:
    line_memory() = default;
    line_memory(const line_memory &) = delete;
    line_memory & operator=(const line_memory &) = delete;
    ~line_memory() { memory_failures = failures_; }

private:
    const unsigned failures_ = memory_failures;
};

/// Room for `count` items of a plain type; null, and counted, when there is none.
template <class T>
T * allocate(std::size_t count) noexcept
{
    void * room = ::operator new(count * sizeof(T), std::nothrow);
    if (!room)
        ++memory_failures;
    return static_cast<T *>(room);
}

/// Gives it back; null, which is common, costs no call.
inline void release(void * room) noexcept
{
    if (room)
        ::operator delete(room);
}

/// A new object, whole or not at all: null when the object or any part of it found no memory.
template <class T, class... Args>
T * make(Args &&... args)
{
    memory_watch watch;
    T * object = new (std::nothrow) T(std::forward<Args>(args)...);
    if (object && watch.failed()) {
        delete object;
        return nullptr;
    }
    if (!object)
        ++memory_failures;
    return object;
}

/// Holds what is never destroyed: statics that may still be asked for while others go, at the process's end.
template <class T>
union lasting {
    template <class... Args>
    explicit lasting(Args &&... args) : value(std::forward<Args>(args)...)
    {
    }
    ~lasting() {}

    T value;
};

} // namespace orvet

#endif
