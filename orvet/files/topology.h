#ifndef ORVET_FILES_TOPOLOGY_H
#define ORVET_FILES_TOPOLOGY_H

#include "orvet/foundation/base/pathname.h"
#include "orvet/foundation/base/vector.h"
#include "orvet/foundation/ktobject.h"

namespace orvet {

/// The place of one section in a scan result file.
class ORVET_API sof_entry : public ktobject {
public:
    /// The kinds of section.
    enum sectype {
        target_sect = 0, ///< a domain's targets; the only kind that the library makes
    };

    /// Stores copies; nothing counted yet.
    sof_entry(const ustring & name, sectype type)
        : ktobject(class_tag::sof_entry), sect_name(name), sect_type(type)
    {
    }
    /// Copies every field.
    sof_entry(const sof_entry & other);
    /// Copies every field.
    sof_entry & operator=(const sof_entry & other) = default;
    codable * clone() override;

    ustring sect_name;    ///< the section's head, brackets included
    ustring sect_aux;     ///< a second text, for the tools
    int sect_count = 0;   ///< entries in the section; 0 until `load_offsets` has run
    long sect_offset = 0; ///< position of the first entry's line in bytes; 0 until `load_offsets` has run
    sectype sect_type;    ///< entries of another kind than `target_sect` are passed over
};

/// One domain of a scan result file.
class ORVET_API top_entry : public ktobject {
public:
    /// Stores copies; a copied vector holds the same objects.
    top_entry(const ustring & name, const pathname & path, const vector & sections)
        : ktobject(class_tag::top_entry), domain_name(name), dep_path(path), trg_sect_info(sections)
    {
    }
    /// Copies every field; the copied vector holds the same objects.
    top_entry(const top_entry & other);
    /// Copies every field; the copied vector holds the same objects.
    top_entry & operator=(const top_entry & other) = default;
    codable * clone() override;

    ustring domain_name;  ///< called RGN in the messages
    pathname dep_path;    ///< the server forms of the domain it depends on and of its own; empty for the root
    vector trg_sect_info; ///< its first item is the `sof_entry` of the domain's target section
};

/// A domain that `load_top` has left out, since the one that it depends on is not there.
class ORVET_API orphan_entry : public ktobject {
public:
    /// Stores copies.
    orphan_entry(int line, const ustring & name, const ustring & missing)
        : ktobject(class_tag::orphan_entry), number(line), domain_name(name), dependency(missing)
    {
    }
    /// Copies every field.
    orphan_entry(const orphan_entry & other)
        : ktobject(other, class_tag::orphan_entry), number(other.number), domain_name(other.domain_name),
          dependency(other.dependency)
    {
    }
    /// Copies every field.
    orphan_entry & operator=(const orphan_entry & other) = default;
    codable * clone() override;

    int number;          ///< of its line in the topology section, from 0, as in MSG0107
    ustring domain_name; ///< its name
    ustring dependency;  ///< the missing domain's name; that one may have been left out itself
};

/// Traces each domain of `topv` with its target section, at [I]; entries without one are passed over.
ORVET_API short print_topv(const vector & topv, const char * label);

/// For `qsort` over the items of a topology vector: orders by the length of `dep_path`, and by nothing else.
ORVET_API int sort_on_dep_len(const void * a, const void * b);

} // namespace orvet

#endif
