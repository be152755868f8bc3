#include "orvet/foundation/base/pair.h"

#include "orvet/foundation/base/memory.h"

namespace orvet {

const char * pair::codable_name() const
{
    return "pair";
}

codable * pair::clone()
{
    return make<pair>(*this);
}

int pair::operator==(const codable & other) const
{
    return other.is_a(class_tag::pair) && equals(static_cast<const pair &>(other)) ? 1 : 0;
}

long pair::codable_version() const
{
    return 1;
}

} // namespace orvet
