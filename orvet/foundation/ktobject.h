#ifndef ORVET_FOUNDATION_KTOBJECT_H
#define ORVET_FOUNDATION_KTOBJECT_H

#include "orvet/foundation/base/codable.h"

namespace orvet {

/// Base of the records that live in vectors. It has no encoded form, and by itself it can't be cloned.
class ORVET_API ktobject : public codable {
public:
    ktobject() = default;

    /// The name that all records share; a static text.
    static const char * const cod_name;

    /// `cod_name`; what `codable_name` gives for every record.
    static const char * get_cod_name() { return cod_name; }

    const char * codable_name() const override;
    /// 0 for every object.
    unsigned int hash_code() override;
    /// Null; the records override it with a real copy.
    codable * clone() override;

protected:
    using codable::codable;

    codable * decode_object(decoder & from, long version) override;
    void encode_object(encoder & to) const override;
    long codable_version() const override;
};

/// A record whose class the library tells apart at run time; a copy of a whole object keeps its tag.
template <class_tag Tag>
class tagged_ktobject : public ktobject {
protected:
    tagged_ktobject() : ktobject(Tag) {}
    /// Copies `version`.
    tagged_ktobject(const tagged_ktobject & other) : ktobject(other, Tag) {}
    /// Copies `version`.
    tagged_ktobject & operator=(const tagged_ktobject &) = default;
};

} // namespace orvet

#endif
