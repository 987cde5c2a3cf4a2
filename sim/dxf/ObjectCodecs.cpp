// The codecs of the non-graphical objects the database models: dictionaries (also those with a
// default, read as dictionaries and written back under their own record name) and xrecords.
#include <memory>

#include "dbdict.h"
#include "dbxrecrd.h"
#include "sim/core/Session.h"
#include "sim/db/FileAccess.h"
#include "sim/db/ImpObject.h"
#include "sim/dxf/Codec.h"
#include "sim/dxf/Preserved.h"
#include "sim/dxf/XData.h"

namespace sim::dxf {

namespace {

class DictionaryCodec : public Codec {
public:
    explicit DictionaryCodec(std::string_view recordName) : m_record(recordName) {}
    std::string_view recordName() const override { return m_record; }
    AcRxClass* objectClass() const override { return AcDbDictionary::desc(); }

    AcDbObject* read(Fields& f, ReadContext& cx) const override
    {
        auto dict = std::make_unique<AcDbDictionary>();
        if (m_record != "DICTIONARY")
            sim::db::impOf(dict.get())->preservedTags.push_back({kRecordName, std::string(m_record)});
        f.sub("AcDbDictionary");
        bool hard = f.integer(280) != 0;
        if (auto drc = enumValue(f.integer(281, AcDb::kDrcIgnore), AcDb::kDrcNotApplicable, AcDb::kDrcUnmangleName))
            dict->setMergeStyle(*drc);
        // Entries: a name (3), then its object (350 soft, 360 hard).
        int name = -1;
        for (int i = f.begin(); i < f.end(); ++i) {
            if (f.isTaken(i))
                continue;
            const Tag& t = f.at(i);
            if (t.code == 3) {
                name = i;
                continue;
            } else if ((t.code == 350 || t.code == 360) && name >= 0) {
                hard = hard || t.code == 360;
                sim::db::link(dict.get(), cx.id(t.handle()), decodeText(f.at(name).value));
                f.takeAt(name);
                name = -1;
            } else {
                continue;
            }
            f.takeAt(i);
        }
        dict->setTreatElementsAsHard(hard);
        return dict.release();
    }

    void write(const AcDbObject& obj, ObjectWriter& w, WriteContext&) const override
    {
        const auto& dict = static_cast<const AcDbDictionary&>(obj);
        w.begin("DICTIONARY", dict);
        w.subclass("AcDbDictionary");
        if (dict.isTreatElementsAsHard())
            w.out.integer(280, 1);
        w.out.integer(281, dict.mergeStyle());
        const int code = dict.isTreatElementsAsHard() ? 360 : 350;
        for (const auto& [key, id] : sim::db::dictionaryEntries(&dict)) {
            if (AcDbObject* target = sim::db::objectOf(id); target && target->isErased())
                continue;
            w.out.text(3, key);
            w.out.handle(code, id.handle());
        }
        w.end();
    }

private:
    std::string_view m_record;
};

class XrecordCodec : public Codec {
public:
    std::string_view recordName() const override { return "XRECORD"; }
    AcRxClass* objectClass() const override { return AcDbXrecord::desc(); }

    AcDbObject* read(Fields& f, ReadContext& cx) const override
    {
        auto x = std::make_unique<AcDbXrecord>();
        f.sub("AcDbXrecord");
        int first = f.begin();
        if (first < f.end() && f.at(first).code == 280) {
            if (auto drc = enumValue(f.at(first).integer, AcDb::kDrcNotApplicable, AcDb::kDrcUnmangleName))
                x->setMergeStyle(*drc);
            f.takeAt(first++);
        }
        if (first < f.end()) {
            resbuf* chain = tagsToChain(&f.at(first), &f.at(f.end() - 1) + 1, cx.db);
            if (chain)
                x->setFromRbChain(*chain);
            acutRelRb(chain);
            for (int i = first; i < f.end(); ++i)
                f.takeAt(i);
        }
        return x.release();
    }

    void write(const AcDbObject& obj, ObjectWriter& w, WriteContext&) const override
    {
        const auto& x = static_cast<const AcDbXrecord&>(obj);
        w.begin("XRECORD", x);
        w.subclass("AcDbXrecord");
        w.out.integer(280, x.mergeStyle());
        resbuf* chain = nullptr;
        x.rbChain(chain);
        writeChain(chain, w.out);
        acutRelRb(chain);
        w.end();
    }
};

} // namespace

std::vector<const Codec*> objectCodecs()
{
    static const DictionaryCodec dictionary("DICTIONARY");
    static const DictionaryCodec withDefault("ACDBDICTIONARYWDFLT");
    static const XrecordCodec xrecord;
    return {&dictionary, &withDefault, &xrecord};
}

} // namespace sim::dxf
