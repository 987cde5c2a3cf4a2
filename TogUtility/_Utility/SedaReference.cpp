// ss: the external reference's drawing rewritten as a grey background, the reference on XRefs at the
// origin, and its dependent layers in the host drawing grey after the reload.
#include "StdAfx.h"
#include "SedaReference.h"
#include <memory>
#include "CTogBaseNastav.h"
#include "CTogException.h"
#include "CTogSet.h"
#include "PrevodyVykresu.h"
#include "acdocman.h"
#include "acedxref.h"

namespace {

constexpr const ACHAR* kNazevAplikace = L"Togovy Utility pro AutoCad";

// A transaction of a manager that is aborted unless it was ended.
class Transakce {
public:
    explicit Transakce(AcTransactionManager* spravce) : m_spravce(spravce), m_transakce(spravce->startTransaction()) {}
    ~Transakce()
    {
        if (m_transakce)
            m_spravce->abortTransaction();
    }
    Transakce(const Transakce&) = delete;
    Transakce& operator=(const Transakce&) = delete;

    AcTransaction* operator->() const { return m_transakce; }
    explicit operator bool() const { return m_transakce != nullptr; }
    void Ukonci()
    {
        m_transakce = nullptr;
        m_spravce->endTransaction();
    }
    void Zrus()
    {
        m_transakce = nullptr;
        m_spravce->abortTransaction();
    }

private:
    AcTransactionManager* m_spravce;
    AcTransaction* m_transakce;
};

template <class T>
T* Ziskej(Transakce& transakce, AcDbObjectId id, AcDb::OpenMode mod)
{
    AcDbObject* objekt = nullptr;
    if (!transakce || transakce->getObject(objekt, id, mod) != Acad::eOk)
        return nullptr;
    return T::cast(objekt);
}

AcTransactionManager* SpravceDokumentu() { return acDocManagerPtr()->curDocument()->transactionManager(); }

std::optional<double> MeritkoAnotace(const AcDbDatabase* db)
{
    std::unique_ptr<AcDbAnnotationScale> meritko(db->cannoscale());
    double hodnota = 0.0;
    if (meritko == nullptr || meritko->getScale(hodnota) != Acad::eOk)
        return std::nullopt;
    return hodnota;
}

// The reference picked by the user; null when the pick gave nothing.
AcDbObjectId VyberReferenci()
{
    acutPrintf(L"\nVyber externí referenci (v externí referenci musí být nastaveno měřítko LTSCALE tak, aby se "
               L"zobrazovaly čáry správně): ");
    resbuf filtr{};
    filtr.restype = 0; // the entity type
    filtr.resval.rstring = const_cast<ACHAR*>(L"INSERT");
    ads_name vyber = {0, 0};
    AcDbObjectId id;
    if (acedSSGet(L"_:N:S", nullptr, nullptr, &filtr, vyber) == RTNORM) {
        ads_name prvni = {0, 0};
        if (acedSSName(vyber, 0, prvni) == RTNORM)
            acdbGetObjectId(id, prvni);
    }
    acedSSFree(vyber);
    if (id.isNull())
        acutPrintf(L"\n***Chyba****Nepodařilo se vybrat !!");
    return id;
}

// The reference's drawing read, its entities' line type scales multiplied by the modifier (`meritkoX`, the
// reference's X scale, before the scales of both drawings count), its layers grey, LTSCALE 1, and saved over
// the file with a backup.
void PrepisSouborReference(const ACHAR* soubor, double meritkoX)
{
    auto reference = std::make_unique<AcDbDatabase>(false, true);
    if (reference->readDwgFile(soubor, 1) != Acad::eOk) {
        reference->closeInput(true);
        throw CTogException("Nelze otevřít XRef (zamčeno, neexistuje, verze, práva)", __LINE__, __FILE__);
    }
    reference->closeInput(true);

    AcDbDatabase* vykres = acdbHostApplicationServices()->workingDatabase();
    vykres->setMsltscale(true);
    const double modifikator = ModifikatorMeritka(meritkoX, reference->ltscale(), reference->msltscale(),
                                                  MeritkoAnotace(reference.get()), MeritkoAnotace(vykres));

    int hladin = 0, entit = 0;
    {
        TogUZmenMeritkoLT zmena(reference.get(), modifikator, g_pNastaveni->Glob_prepinace);
        zmena.Drz(); // one transaction for the walk and the layers
        entit = zmena.ProjdiDwg(CTogCmd::kModelSpace | CTogCmd::kDefiniceBloku, true, 1);
        hladin = SedeHladiny(reference->transactionManager()->topTransaction(), reference.get());
        reference->setLtscale(1.0);
        zmena.Uvolni();
    }
    acutPrintf(L"\nBylo změněno %i hladin a %i entit v referenci", hladin, entit);
    if (reference->saveAs(soubor, true, AcDb::kDHL_1032, nullptr) != Acad::eOk)
        throw CTogException("Nepovedlo se zapsat DWG Xrefu na disk (práva, sdílení...)", __LINE__, __FILE__);
}

} // namespace

double ModifikatorMeritka(double meritkoX, double ltscaleReference, bool msltscaleReference,
                          std::optional<double> anotaceReference, std::optional<double> anotaceVykresu)
{
    double f = meritkoX * ltscaleReference;
    if (msltscaleReference && anotaceReference && *anotaceReference != 0.0)
        f /= *anotaceReference;
    if (anotaceVykresu)
        f *= *anotaceVykresu;
    return f;
}

int SedeHladiny(AcTransaction* transakce, AcDbDatabase* db)
{
    AcDbObject* objekt = nullptr;
    AcDbLayerTable* tabulka = nullptr;
    if (transakce && transakce->getObject(objekt, db->layerTableId(), AcDb::kForRead) == Acad::eOk)
        tabulka = AcDbLayerTable::cast(objekt);
    if (tabulka == nullptr)
        throw CTogException("Nelze otevřít LayerSymbolTable", __LINE__, __FILE__);
    AcDbLayerTableIterator* pIterator = nullptr;
    if (tabulka->newIterator(pIterator) != Acad::eOk || pIterator == nullptr)
        throw CTogException("Nelze vytvořit iterator LayerTable", __LINE__, __FILE__);
    std::unique_ptr<AcDbLayerTableIterator> iterator(pIterator);
    int zmeneno = 0;
    for (; !iterator->done(); iterator->step()) {
        AcDbObjectId id;
        AcDbLayerTableRecord* hladina = nullptr;
        if (iterator->getRecordId(id) == Acad::eOk && transakce->getObject(objekt, id, AcDb::kForWrite) == Acad::eOk)
            hladina = AcDbLayerTableRecord::cast(objekt);
        if (hladina == nullptr)
            continue;
        AcCmColor seda;
        seda.setColorIndex(8);
        hladina->setColor(seda);
        hladina->setLineWeight(AcDb::kLnWtByLwDefault);
        ++zmeneno;
    }
    return zmeneno;
}

Acad::ErrorStatus SedeZavisleHladiny(AcDbObjectId idReference)
{
    AcDbDatabase* db = nullptr;
    AcString predpona;
    {
        Transakce transakce(SpravceDokumentu());
        auto* definice = Ziskej<AcDbBlockTableRecord>(transakce, idReference, AcDb::kForRead);
        if (definice == nullptr || !(definice->isFromExternalReference() || definice->isFromOverlayReference()))
            return Acad::eNotApplicable;
        db = definice->database();
        definice->getName(predpona);
        transakce.Ukonci();
    }
    predpona += L"|";

    Transakce transakce(db->transactionManager());
    auto* tabulka = Ziskej<AcDbLayerTable>(transakce, db->layerTableId(), AcDb::kForRead);
    AcDbLayerTableIterator* pIterator = nullptr;
    if (tabulka == nullptr || tabulka->newIterator(pIterator) != Acad::eOk || pIterator == nullptr)
        return Acad::eInvalidInput; // the guard aborts
    std::unique_ptr<AcDbLayerTableIterator> iterator(pIterator);
    for (; !iterator->done(); iterator->step()) {
        AcDbObjectId id;
        if (iterator->getRecordId(id) != Acad::eOk)
            continue;
        auto* hladina = Ziskej<AcDbLayerTableRecord>(transakce, id, AcDb::kForWrite);
        AcString nazev;
        if (hladina == nullptr || !hladina->isDependent() || hladina->getName(nazev) != Acad::eOk)
            continue;
        if (_wcsnicmp(nazev, predpona, predpona.length()) == 0) {
            AcCmColor seda;
            seda.setColorIndex(8);
            hladina->setColor(seda);
        }
    }
    transakce.Ukonci();
    return Acad::eOk;
}

void SedaReference()
{
    AcDbObjectId idReference = VyberReferenci();
    if (idReference.isNull())
        return;

    AcDbObjectId idDefinice;
    AcString cesta;
    double modifikator = 1.0;
    {
        Transakce transakce(SpravceDokumentu());
        auto* reference = Ziskej<AcDbBlockReference>(transakce, idReference, AcDb::kForWrite);
        if (reference == nullptr)
            throw CTogException("Nepodařilo se otevřít vybranou externí referenci pro zápis", __LINE__, __FILE__);
        auto* definice = Ziskej<AcDbBlockTableRecord>(transakce, reference->blockTableRecord(), AcDb::kForRead);
        if (definice == nullptr)
            throw CTogException("***Chyba****Nepodařilo se otevřít definici (BTR) vybrané externí reference pro čtení",
                                __LINE__, __FILE__);
        if (!definice->isFromExternalReference() && !definice->isFromOverlayReference()) {
            acutPrintf(L"\n***Chyba****!!!To nebyla externí reference, ale prachvobyčejnej blok");
            transakce.Zrus();
            return;
        }

        AcString hladina = L"XRefs";
        if (AcDbObjectId idHladiny = ZiskejHladinu(hladina, false); !idHladiny.isNull())
            reference->setLayer(idHladiny, true);
        else
            acutPrintf(L"\n***Chyba****Nepodařilo se vytvořit hladinu pro XRefy");

        if (!reference->position().isEqualTo(AcGePoint3d::kOrigin) || reference->rotation() != 0.0) {
            if (MessageBoxW(nullptr, L"Reference není umístěna v 0,0 nebo rotace není 0, opravit ?", L"Togovy Utility",
                            MB_YESNO | MB_ICONQUESTION) == IDYES) {
                reference->setPosition(AcGePoint3d::kOrigin);
                reference->setRotation(0.0);
            }
        }
        modifikator = reference->scaleFactors().sx;
        idDefinice = definice->objectId();
        const ACHAR* soubor = nullptr;
        if (definice->pathName(soubor) == Acad::eOk && soubor)
            cesta = soubor;
        transakce.Ukonci();
    }
    if (cesta.isEmpty())
        return;

    ACHAR nalezeny[MAX_PATH * 4] = {};
    if (acdbHostApplicationServices()->findFile(nalezeny, _countof(nalezeny), cesta,
                                                acdbHostApplicationServices()->workingDatabase()) != Acad::eOk ||
        nalezeny[0] == L'\0')
        throw CTogException("Nelze vyřešit cestu k Xrefu (findFile selhalo)", __LINE__, __FILE__);

    try {
        PrepisSouborReference(nalezeny, modifikator);
    } catch (const std::exception& e) {
        ZobrazVyjimku(e);
        return;
    } catch (...) {
        MessageBoxW(nullptr, L"Chyba při editaci souboru XRefu, příkaz nelze provést", kNazevAplikace,
                    MB_OK | MB_ICONERROR);
        return;
    }

    AcDbObjectIdArray ids;
    ids.append(idDefinice);
    if (acedXrefReload(ids, true, acdbHostApplicationServices()->workingDatabase()) != Acad::eOk)
        acutPrintf(L"Nepodařilo ze znovu načíst XRef");
    SedeZavisleHladiny(idDefinice);
}
