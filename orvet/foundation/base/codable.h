#ifndef ORVET_FOUNDATION_BASE_CODABLE_H
#define ORVET_FOUNDATION_BASE_CODABLE_H

#include "orvet/export.h"

namespace orvet {

class encoder;
class decoder;

/// The classes that the library tells apart at run time. A tool built without type information may derive
/// from any of them.
enum class class_tag : unsigned char {
    other,
    ustring,
    pathname,
    pair,
    top_entry,
    sof_entry,
    orphan_entry,
    auth_profile_info,
    user_info,
};

/// Root of every class whose objects can live in a `vector`.
class ORVET_API codable {
public:
    /// `version` 1, held by no vector.
    codable() noexcept : version(1) {}
    /// Copies `version` alone: a copy is held by no vector yet.
    codable(const codable & other) noexcept : version(other.version) {}
    /// Copies `version` alone.
    codable & operator=(const codable & other) noexcept
    {
        version = other.version;
        return *this;
    }

    /// The name of the object's class; a static text.
    virtual const char * codable_name() const = 0;

protected:
    /// Neither reads nor writes anything in this library; the object itself comes back.
    virtual codable * decode_object(decoder & from, long version);
    /// Writes nothing.
    virtual void encode_object(encoder & to) const;
    /// The version of the class: `version`, or 1 where a class says no other.
    virtual long codable_version() const;

public:
    /// The low 32 bits of the object's address, where a class has nothing better.
    virtual unsigned int hash_code();
    /// A new copy that the caller owns; null when memory is short.
    virtual codable * clone() = 0;
    /// 1 for equal, 0 for different. Classes without texts of their own are all equal.
    virtual int operator==(const codable & other) const;
    /// The opposite of `==`, by the left object.
    friend bool operator!=(const codable & a, const codable & b) { return a.operator==(b) == 0; }
    virtual ~codable() = default;

    /// Whether the object is of that class or of one derived from it.
    bool is_a(class_tag tag) const noexcept { return tag_ == tag; }

protected:
    /// For the constructors of a class with a tag.
    explicit codable(class_tag tag) noexcept : version(1), tag_(tag) {}
    /// The same with `version` copied.
    codable(const codable & other, class_tag tag) noexcept : version(other.version), tag_(tag) {}

    /// 1 from every constructor but the copying one.
    long version;

private:
    friend class vector;
    unsigned holders_ = 0;             // the vectors that hold this object
    class_tag tag_ = class_tag::other; // never copied: part of an object may be copied to another class
};

} // namespace orvet

#endif
