// Writing one object's record: its frame (record name, handle, application groups, reactors,
// extension dictionary, owner), its subclasses with the groups kept for each, and its extended
// data. The writers of the kinds call subclass() and write their fields in between.
#pragma once
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include <string>
#include <utility>

#include "dbmain.h"
#include "sim/db/Chain.h"
#include "sim/dxf/TagWriter.h"

class AcDbImpObject;

namespace sim::dxf {

class ObjectWriter {
    /// Passes on what the kinds write and puts kept groups back after the group they followed.
    class Tap : public TagWriter {
    public:
        Tap(ObjectWriter& owner, TagWriter& target) : owner(owner), target(target) {}
        void write(int code, std::string_view value) override
        {
            target.write(code, value);
            if (!owner.m_anchors.empty())
                owner.wrote(code);
        }
        ObjectWriter& owner;
        TagWriter& target;
    };
    Tap m_tap;

public:
    explicit ObjectWriter(TagWriter& target) : m_tap(*this, target), out(m_tap) {}

    /// Starts the record of obj: 0 with its record name (the kept one, when the object was read
    /// under another), its handle under handleCode, application groups, reactors, extension
    /// dictionary and owner. A table's name (2) comes before its handle.
    void begin(std::string_view recordName, const AcDbObject& obj, int handleCode = 5,
               std::string_view tableName = std::string_view());
    /// Ends the subclass before (the groups kept for it) and writes the marker (100 name).
    void subclass(std::string_view name);
    /// Ends the subclass before and starts the embedded object (101 "Embedded Object").
    void embedded();
    /// Ends the subclass being written (its kept groups) before groups that follow it verbatim.
    void closeSubclass();
    /// Ends the last subclass, writes what else was kept and the extended data (extra data that
    /// the kind keeps in fields of its own first), and the records kept to follow this one.
    void end(const std::vector<std::pair<std::wstring, sim::db::Chain>>* extraXData = nullptr);
    /// The value kept for a group the writer computes (see Preserved.h); empty for none.
    std::optional<std::string_view> keptValue(int code) const;
    /// The bits kept for a flags group (0 for none).
    std::int64_t keptBits(int code) const;

    TagWriter& out;

private:
    struct Run {
        int kind;
        std::string_view name;
        size_t begin, end; ///< groups after the marker
        bool written;
    };
    void writeRun(Run& run);
    /// The index of the run kept for the subclass being written; npos when none.
    size_t currentRun() const;
    /// Takes the anchored runs of the subclass just opened; writes those anchored at its marker.
    void openAnchors();
    void wrote(int code);

    struct Anchor {
        size_t run;
        int code, occurrence;
    };
    std::vector<Anchor> m_anchors;
    std::vector<std::pair<int, int>> m_counts; ///< groups written in the subclass: code, how many

    const AcDbImpObject* m_imp = nullptr;
    std::vector<Run> m_runs;
    /// The subclass being written and how many subclasses of its name came before it.
    std::string_view m_current;
    int m_occurrence = 0;
    bool m_open = false;
    std::vector<std::pair<std::string_view, int>> m_seen;
};

} // namespace sim::dxf
