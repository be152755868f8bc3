#include "orvet/foundation/ktobject.h"

namespace orvet {

const char * const ktobject::cod_name = "com.corvan.qx.cmObjects.ktobject";

const char * ktobject::codable_name() const
{
    return get_cod_name();
}

unsigned int ktobject::hash_code()
{
    return 0;
}

codable * ktobject::clone()
{
    return nullptr;
}

codable * ktobject::decode_object(decoder &, long)
{
    return this;
}

void ktobject::encode_object(encoder &) const
{
}

long ktobject::codable_version() const
{
    return 1;
}

} // namespace orvet
