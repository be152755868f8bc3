#include "orvet/foundation/base/codable.h"

#include <cstdint>

namespace orvet {

codable * codable::decode_object(decoder &, long)
{
    return this;
}

void codable::encode_object(encoder &) const
{
}

long codable::codable_version() const
{
    return version;
}

unsigned int codable::hash_code()
{
    return static_cast<unsigned int>(reinterpret_cast<std::uintptr_t>(this) & 0xffffffffU);
}

int codable::operator==(const codable &) const
{
    return 1;
}

} // namespace orvet
