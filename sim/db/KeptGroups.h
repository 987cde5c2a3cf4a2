// The groups of one subclass of an object kept as the drawing file has them (a run of the object's
// preserved groups, see ImpObject.h), read and changed in place. Objects whose records are long and
// nested (multileaders, multileader styles) are modelled this way so that every group the platform
// does not understand stays where it was.
#pragma once
#include <optional>
#include <string>
#include <string_view>

#include "dbmain.h"
#include "sim/db/RawTag.h"

namespace sim::db {

/// The marker that opens the run of a subclass's groups in preservedTags (the DXF module writes the
/// run at the end of the subclass of that name).
constexpr int kSubclassRun = -3;

class KeptGroups {
public:
    /// The run of the subclass in the object's preserved groups; made (empty) when the object has
    /// none.
    KeptGroups(const AcDbObject* obj, std::string_view subclass);

    /// Range [begin, end) of the run's groups within tags().
    size_t begin() const { return m_begin; }
    size_t end() const;
    RawTags& tags() const;
    /// Replaces the run's groups.
    void assign(const RawTags& groups);

    /// The first group of the code in [from, to) (to 0: the run's end); npos when none.
    size_t find(int code, size_t from = 0, size_t to = 0) const;
    std::optional<double> real(size_t at) const;
    std::optional<long long> integer(size_t at) const;
    /// A handle group's object in the object's database (else the working one); null for none.
    AcDbObjectId id(size_t at) const;

    /// Sets the group at the index, or inserts it before `before` (npos: at the run's end).
    void set(size_t at, int code, std::string value, size_t before = std::string::npos);
    static std::string realText(double v);
    static std::string handleText(AcDbObjectId id);

    static constexpr size_t npos = std::string::npos;

private:
    const AcDbObject* m_obj;
    size_t m_begin = 0;
};

} // namespace sim::db
