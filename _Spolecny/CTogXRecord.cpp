// CTogXRecord: values kept in the drawing, one xrecord per key in the dictionary "TOGUTILS".
#include "StdAfx.h"
#include "CTogXRecord.h"
#include "CTogException.h"

namespace {

// Group codes of the scalar kinds.
constexpr int kKodCelehoCisla = 90;
constexpr int kKodPriznaku = 70;
constexpr int kKodRetezce = 1;
constexpr int kKodRealneho = 40;
constexpr int kKodBodu = 10;

AcDbDatabase* PracovniDatabaze() { return acdbHostApplicationServices()->workingDatabase(); }

// Builds the key and stores a chain of one buffer; frees the chain when it isn't taken over.
bool UlozJednu(const ACHAR* nazev, const ACHAR* skupina, resbuf* chain)
{
    if (CTogXRecord::UlozChain(CTogXRecord::Klic(nazev, skupina), chain))
        return true;
    acutRelRb(chain);
    return false;
}

// Reads the chain of the key and checks the group code of its first buffer. Nothing found gives null;
// another code frees the chain and throws. The caller frees what it gets.
resbuf* NactiJednu(const ACHAR* nazev, const ACHAR* skupina, int kod)
{
    resbuf* chain = nullptr;
    if (!CTogXRecord::NactiChain(CTogXRecord::Klic(nazev, skupina), chain))
        return nullptr;
    if (chain->restype != kod) {
        acutRelRb(chain);
        throw CTogException("Očekávaný typ proměnné XRecord neodpovídá", __LINE__, __FILE__);
    }
    return chain;
}

// Opens the dictionary "TOGUTILS" for write; makes it when it is missing or can't be opened for write.
void OtevriSlovnikProZapis(AcDbDictionaryPointer& slovnik)
{
    AcDbDictionaryPointer nod(PracovniDatabaze()->namedObjectsDictionaryId(), AcDb::kForWrite);
    if (nod.openStatus() != Acad::eOk)
        throw CTogException("Nepodařilo se otevřít AcDbDictionary", __LINE__, __FILE__);

    AcDbObjectId id;
    if (nod->getAt(CTogXRecord::kSlovnik, id) == Acad::eOk && slovnik.open(id, AcDb::kForWrite) == Acad::eOk)
        return;
    slovnik.create();
    if (nod->setAt(CTogXRecord::kSlovnik, slovnik, id) != Acad::eOk) {
        slovnik.close();
        throw CTogException("Nepodařilo se vytvořit XRecord v AcDbDictionary", __LINE__, __FILE__);
    }
}

} // namespace

AcString CTogXRecord::Klic(const ACHAR* nazev, const ACHAR* skupina)
{
    if (skupina == nullptr)
        return AcString(nazev);
    AcString klic(skupina);
    klic += L"_";
    klic += nazev;
    return klic;
}

bool CTogXRecord::UlozDoX(const ACHAR* nazev, Adesk::Int32 hodnota, const ACHAR* skupina)
{
    return UlozJednu(nazev, skupina, acutBuildList(kKodCelehoCisla, hodnota, 0));
}

bool CTogXRecord::UlozDoX(const ACHAR* nazev, bool hodnota, const ACHAR* skupina)
{
    return UlozJednu(nazev, skupina, acutBuildList(kKodPriznaku, hodnota ? 1 : 0, 0));
}

bool CTogXRecord::UlozDoX(const ACHAR* nazev, const ACHAR* hodnota, const ACHAR* skupina)
{
    return UlozJednu(nazev, skupina, acutBuildList(kKodRetezce, hodnota ? hodnota : L"", 0));
}

bool CTogXRecord::UlozDoX(const ACHAR* nazev, double hodnota, const ACHAR* skupina)
{
    return UlozJednu(nazev, skupina, acutBuildList(kKodRealneho, hodnota, 0));
}

bool CTogXRecord::UlozDoX(const ACHAR* nazev, const AcGePoint3d& hodnota, const ACHAR* skupina)
{
    ads_point bod = {hodnota.x, hodnota.y, hodnota.z};
    return UlozJednu(nazev, skupina, acutBuildList(kKodBodu, bod, 0));
}

bool CTogXRecord::NactiZX(const ACHAR* nazev, Adesk::Int32& hodnota, const ACHAR* skupina)
{
    resbuf* chain = NactiJednu(nazev, skupina, kKodCelehoCisla);
    if (!chain)
        return false;
    hodnota = chain->resval.rlong;
    acutRelRb(chain);
    return true;
}

bool CTogXRecord::NactiZX(const ACHAR* nazev, bool& hodnota, const ACHAR* skupina)
{
    resbuf* chain = NactiJednu(nazev, skupina, kKodPriznaku);
    if (!chain)
        return false;
    hodnota = chain->resval.rint != 0;
    acutRelRb(chain);
    return true;
}

bool CTogXRecord::NactiZX(const ACHAR* nazev, AcString& hodnota, const ACHAR* skupina)
{
    resbuf* chain = NactiJednu(nazev, skupina, kKodRetezce);
    if (!chain)
        return false;
    hodnota = chain->resval.rstring ? chain->resval.rstring : L"";
    acutRelRb(chain);
    return true;
}

bool CTogXRecord::NactiZX(const ACHAR* nazev, double& hodnota, const ACHAR* skupina)
{
    resbuf* chain = NactiJednu(nazev, skupina, kKodRealneho);
    if (!chain)
        return false;
    hodnota = chain->resval.rreal;
    acutRelRb(chain);
    return true;
}

bool CTogXRecord::NactiZX(const ACHAR* nazev, AcGePoint3d& hodnota, const ACHAR* skupina)
{
    resbuf* chain = NactiJednu(nazev, skupina, kKodBodu);
    if (!chain)
        return false;
    hodnota.set(chain->resval.rpoint[X], chain->resval.rpoint[Y], chain->resval.rpoint[Z]);
    acutRelRb(chain);
    return true;
}

bool CTogXRecord::UlozChain(const ACHAR* klic, resbuf* chain)
{
    if (chain == nullptr)
        return false;
    try {
        // The record is filled before it goes in: a chain it refuses leaves the older entry as it was.
        AcDbObjectPointer<AcDbXrecord> zaznam;
        zaznam.create();
        if (zaznam->setFromRbChain(*chain) != Acad::eOk)
            return false;
        AcDbDictionaryPointer slovnik;
        OtevriSlovnikProZapis(slovnik);
        AcDbObjectId id;
        // setAt replaces an older entry of the same key.
        if (slovnik->setAt(klic, zaznam, id) != Acad::eOk)
            throw CTogException("Nepodařilo se vytvořit záznam XRecord v AcDbDictionary", __LINE__, __FILE__);
        acutRelRb(chain);
        return true;
    } catch (const std::exception& e) {
        ZobrazVyjimku(e);
        return false;
    }
}

bool CTogXRecord::NactiChain(const ACHAR* klic, resbuf*& chain)
{
    chain = nullptr;
    AcDbObjectId idSlovniku, idZaznamu;
    {
        AcDbDictionaryPointer nod(PracovniDatabaze()->namedObjectsDictionaryId());
        if (nod.openStatus() != Acad::eOk || nod->getAt(kSlovnik, idSlovniku) != Acad::eOk)
            return false;
    }
    {
        AcDbDictionaryPointer slovnik(idSlovniku);
        if (slovnik.openStatus() != Acad::eOk || slovnik->getAt(klic, idZaznamu) != Acad::eOk)
            return false;
    }
    AcDbObjectPointer<AcDbXrecord> zaznam(idZaznamu);
    if (zaznam.openStatus() != Acad::eOk)
        return false;
    resbuf* precteny = nullptr;
    if (zaznam->rbChain(precteny) != Acad::eOk || precteny == nullptr) {
        acutRelRb(precteny);
        return false;
    }
    chain = precteny;
    return true;
}

bool CTogXRecord::SmazZaznam(const ACHAR* nazev)
{
    try {
        AcDbDictionaryPointer nod(PracovniDatabaze()->namedObjectsDictionaryId(), AcDb::kForWrite);
        if (nod.openStatus() != Acad::eOk)
            throw CTogException("Nepodařilo se otevřít AcDbDictionary", __LINE__, __FILE__);
        AcDbObjectPointer<AcDbObject> zaznam;
        AcDbObjectId id;
        if (nod->getAt(nazev, id) != Acad::eOk || zaznam.open(id, AcDb::kForWrite) != Acad::eOk) {
            // Nothing to open: an empty dictionary takes the name, so that the erase below finds one.
            AcDbDictionaryPointer novy;
            novy.create();
            if (nod->setAt(nazev, novy, id) != Acad::eOk)
                throw CTogException("Nepodařilo se vytvořit XRecord v AcDbDictionary", __LINE__, __FILE__);
            novy.close();
            if (zaznam.open(id, AcDb::kForWrite) != Acad::eOk)
                return false;
        }
        nod.close();
        return zaznam->erase() == Acad::eOk;
    } catch (const std::exception& e) {
        ZobrazVyjimku(e);
        return false;
    }
}
