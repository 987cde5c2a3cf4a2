// Speed of the DXF module: generates drawings of a realistic mix, and times in one process each of
// the floor (the file split into groups with its numbers converted), a load, a save, and a load with
// a save, printing the seconds and the process's peak memory.
//
//   dxf_bench generate N file.dxf   a drawing of N entities
//   dxf_bench floor file.dxf        read the file and split it into groups
//   dxf_bench load file.dxf         read it into a database
//   dxf_bench save file.dxf out     read it (not timed), then save it
//   dxf_bench loadsave file.dxf out read it and save it
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "dbdict.h"
#include "dbents.h"
#include "dbmtext.h"
#include "dbobjptr.h"
#include "dbpl.h"
#include "dbxrecrd.h"
#include "sim/core/Session.h"
#include "sim/dxf/DxfFile.h"
#include "sim/dxf/TagReader.h"

namespace {

double seconds(std::chrono::steady_clock::time_point since)
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - since).count();
}

long peakKilobytes()
{
    rusage u{};
    getrusage(RUSAGE_SELF, &u);
    return u.ru_maxrss;
}

void report(const char* what, double s)
{
    std::printf("%s %.3f s, peak %.1f MB\n", what, s, peakKilobytes() / 1024.0);
}


AcDbObjectId addLayer(AcDbDatabase& db, int i)
{
    auto* layer = new AcDbLayerTableRecord;
    layer->setName((L"TG_" + std::to_wstring(i) + L"_potrubí").c_str());
    AcCmColor c;
    c.setColorIndex(static_cast<Adesk::UInt16>(1 + i % 254));
    layer->setColor(c);
    AcDbObjectId id;
    AcDbLayerTablePointer(&db, AcDb::kForWrite)->add(id, layer);
    layer->close();
    return id;
}

/// A block with a symbol and two attribute definitions, as a level mark has.
AcDbObjectId addBlock(AcDbDatabase& db)
{
    auto* btr = new AcDbBlockTableRecord;
    btr->setName(L"KACENA");
    AcDbObjectId id;
    AcDbBlockTablePointer(&db, AcDb::kForWrite)->add(id, btr);
    auto* pl = new AcDbPolyline;
    pl->addVertexAt(0, AcGePoint2d(-2, 2));
    pl->addVertexAt(1, AcGePoint2d(0, 0));
    pl->addVertexAt(2, AcGePoint2d(2, 2));
    pl->setClosed(true);
    btr->appendAcDbEntity(pl);
    pl->close();
    for (const wchar_t* tag : {L"VYSKA", L"POPIS"}) {
        auto* def = new AcDbAttributeDefinition(AcGePoint3d(3, 0, 0), L"", tag, tag, db.textstyle());
        def->setHeight(2.5);
        btr->appendAcDbEntity(def);
        def->close();
    }
    btr->close();
    return id;
}

void generate(long n, const char* path)
{
    AcDbDatabase db;
    AcDbObjectId layers[30];
    for (int i = 0; i < 30; ++i)
        layers[i] = addLayer(db, i);
    AcDbObjectId block = addBlock(db);
    {
        AcDbDictionaryPointer nod(db.namedObjectsDictionaryId(), AcDb::kForWrite);
        auto* store = new AcDbDictionary;
        AcDbObjectId storeId;
        nod->setAt(L"TOGUTILS", store, storeId);
        for (int i = 0; i < 20; ++i) {
            auto* rec = new AcDbXrecord;
            resbuf* data = acutBuildList(1, L"PP-R 20x2,8", 40, 20.0 + i, 70, i, 0);
            rec->setFromRbChain(*data);
            acutRelRb(data);
            AcDbObjectId recId;
            store->setAt((L"Skupina" + std::to_wstring(i)).c_str(), rec, recId);
            rec->close();
        }
        store->close();
    }
    AcDbBlockTableRecordPointer model(ACDB_MODEL_SPACE, &db, AcDb::kForWrite);
    std::srand(7);
    auto coord = [] { return (std::rand() % 2000000) / 10.0 - 100000.0; };
    for (long i = 0; i < n; ++i) {
        AcGePoint3d p(coord(), coord(), 0.0);
        AcDbEntity* e = nullptr;
        switch (i % 10) {
        case 0:
        case 1:
        case 2:
            e = new AcDbLine(p, AcGePoint3d(p.x + 1234.5, p.y - 67.25, 0.0));
            break;
        case 3:
        case 4: {
            auto* pl = new AcDbPolyline;
            for (unsigned v = 0; v < 3 + i % 6; ++v)
                pl->addVertexAt(v, AcGePoint2d(p.x + v * 100.0, p.y + (v % 2) * 50.0), v == 1 ? 0.4142 : 0.0);
            e = pl;
            break;
        }
        case 5:
            e = i % 20 == 5 ? static_cast<AcDbEntity*>(new AcDbCircle(p, AcGeVector3d::kZAxis, 125.0))
                            : new AcDbArc(p, 250.0, 0.25, 2.5);
            break;
        case 6:
            e = new AcDbText(p, L"DN 150 PE100 SDR17", db.textstyle(), 2.5, 0.5);
            break;
        case 7: {
            auto* m = new AcDbMText;
            m->setLocation(p);
            m->setTextHeight(2.5);
            m->setWidth(40.0);
            m->setContents(L"Potrubí {\\fArial|b1;PP-R} 20x2,8\\Pdélka 12,5 m");
            e = m;
            break;
        }
        default:
            e = new AcDbBlockReference(p, block);
            break;
        }
        e->setLayer(layers[i % 30]);
        AcDbObjectId id;
        model->appendAcDbEntity(id, e);
        if (auto* ref = AcDbBlockReference::cast(e)) {
            for (const wchar_t* tag : {L"VYSKA", L"POPIS"}) {
                auto* a = new AcDbAttribute(AcGePoint3d(p.x + 3, p.y, 0), tag[0] == L'V' ? L"+1,250" : L"kanalizace", tag,
                                            db.textstyle());
                a->setHeight(2.5);
                ref->appendAttribute(a);
                a->close();
            }
        }
        e->close();
    }
    model.close();
    auto start = std::chrono::steady_clock::now();
    std::string e = sim::dxf::writeDrawingFile(db, sim::fromUtf8(path), false);
    if (!e.empty())
        std::printf("%s\n", e.c_str());
    report("generate (the save)", seconds(start));
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 3) {
        std::fprintf(stderr, "usage: dxf_bench generate N file | floor file | load file | save file out | loadsave file out\n");
        return 2;
    }
    sim::dxf::installFileFormat();
    std::string mode = argv[1];
    if (mode == "generate" && argc > 3) {
        generate(std::atol(argv[2]), argv[3]);
        return 0;
    }
    const char* file = argv[2];
    if (mode == "floor") {
        // The file mapped as the load maps it, every group split and its number converted.
        auto start = std::chrono::steady_clock::now();
        int fd = ::open(file, O_RDONLY);
        struct stat st {};
        ::fstat(fd, &st);
        auto size = static_cast<size_t>(st.st_size);
        void* p = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, fd, 0);
        ::close(fd);
        ::madvise(p, size, MADV_SEQUENTIAL);
        sim::dxf::TagReader r(std::string_view(static_cast<const char*>(p), size));
        long groups = 0;
        double sum = 0.0;
        while (const sim::dxf::Tag* t = r.peek()) {
            sum += t->real;
            ++groups;
            r.take();
        }
        report("floor", seconds(start));
        std::printf("  %ld groups (%g)\n", groups, sum);
        return 0;
    }
    auto start = std::chrono::steady_clock::now();
    AcDbDatabase db(false, true);
    std::string e = sim::dxf::readDrawingFile(db, sim::fromUtf8(file));
    if (!e.empty()) {
        std::printf("%s\n", e.c_str());
        return 1;
    }
    double load = seconds(start);
    if (mode == "load") {
        report("load", load);
        return 0;
    }
    if ((mode == "save" || mode == "loadsave") && argc > 3) {
        auto saveStart = std::chrono::steady_clock::now();
        e = sim::dxf::writeDrawingFile(db, sim::fromUtf8(argv[3]), false);
        if (!e.empty())
            std::printf("%s\n", e.c_str());
        report(mode == "save" ? "save" : "load + save", mode == "save" ? seconds(saveStart) : seconds(start));
        return 0;
    }
    return 2;
}
