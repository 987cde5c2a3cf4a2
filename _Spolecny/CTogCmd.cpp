// The whole-drawing walker: the transaction with its holds, the pass over the chosen block table
// records and their entities, the totals; and the operations on layers, styles and block references.
#include "StdAfx.h"
#include "CTogCmd.h"
#include <cwchar>
#include <memory>
#include "CTogException.h"
#include "CTogFunkce.h"

namespace CTogCmd {

namespace {

constexpr const ACHAR* kNazevAplikace = L"Togovy Utility pro AutoCad";
constexpr const ACHAR* kChybaPruchodu = L"\nChyba při procházení výkresu....doporučujeme restaurovat výkres!!!!";

AcDbDatabase* PracovniDatabaze()
{
    AcDbHostApplicationServices* sluzby = acdbHostApplicationServices();
    return sluzby ? sluzby->workingDatabase() : nullptr;
}

// The block table record of the active layout: model space on the model tab, the layout's own
// record on a paper tab.
AcDbObjectId AktivniLayout(AcDbDatabase* db)
{
    AcDbLayoutManager* spravce = acdbHostApplicationServices()->layoutManager();
    return spravce ? spravce->getActiveLayoutBTRId(db) : AcDbObjectId::kNull;
}

// Aborts the walker's transaction and those started inside it and left open.
void ZrusTransakci(AcDbDatabase* db, AcTransaction* transakce)
{
    if (db == nullptr || transakce == nullptr)
        return;
    AcDbTransactionManager* spravce = db->transactionManager();
    while (spravce->topTransaction() != nullptr && spravce->topTransaction() != transakce)
        if (spravce->abortTransaction() != Acad::eOk)
            break;
    if (spravce->topTransaction() == transakce)
        spravce->abortTransaction();
}

} // namespace

AcDbObjectId NoveId(const ParyId& pary, AcDbObjectId stare)
{
    for (const auto& [puvodni, nove] : pary)
        if (puvodni == stare && !nove.isNull())
            return nove;
    return AcDbObjectId::kNull;
}

ProjdiDwgFce::ProjdiDwgFce(AcDbDatabase* db) : m_pDb(db) {}

ProjdiDwgFce::~ProjdiDwgFce()
{
    ZrusTransakci(m_pDb, m_pTransakce);
}

AcDbObject* ProjdiDwgFce::Otevri(AcDbObjectId id, AcDb::OpenMode mod)
{
    AcDbObject* objekt = nullptr;
    if (id.isNull() || m_pTransakce->getObject(objekt, id, mod) != Acad::eOk)
        return nullptr;
    return objekt;
}

void ProjdiDwgFce::Drz()
{
    if (m_pTransakce == nullptr && m_pDb != nullptr)
        m_pTransakce = m_pDb->transactionManager()->startTransaction();
    ++m_hloubka;
    if (m_pTransakce == nullptr)
        throw CTogException("Transkace není zahájena", __LINE__, __FILE__);
}

void ProjdiDwgFce::Uvolni()
{
    --m_hloubka;
    if (m_hloubka <= 0 && m_pTransakce != nullptr) {
        m_pDb->transactionManager()->endTransaction();
        m_pTransakce = nullptr;
        m_hloubka = 0;
    }
}

int ProjdiDwgFce::ProjdiDwg(int maska, bool hlasit, int pruchodu)
{
    acutPrintf(L"\n");
    int zmeneno = 0, nezmeneno = 0, otevreno = 0;

    // Aborts what the walk started and leaves the walker without a transaction.
    auto zrus = [this] {
        ZrusTransakci(m_pDb, m_pTransakce);
        m_pTransakce = nullptr;
        m_hloubka = 0;
    };

    try {
        Drz();
        AcDbObject* objekt = nullptr;
        AcDbBlockTable* tabulka = nullptr;
        if (m_pTransakce->getObject(objekt, m_pDb->blockTableId(), AcDb::kForRead) == Acad::eOk)
            tabulka = AcDbBlockTable::cast(objekt);
        if (tabulka == nullptr)
            throw CTogException("Nelze otevřít BlockTable pro čtení", __LINE__, __FILE__);

        AcDbBlockTableIterator* pIterator = nullptr;
        if (tabulka->newIterator(pIterator, true, true) != Acad::eOk || pIterator == nullptr)
            throw CTogException("Nelze získat BlockTableIterator", __LINE__, __FILE__);
        std::unique_ptr<AcDbBlockTableIterator> iterator(pIterator);

        AcDbObjectId modelSpace;
        tabulka->getAt(ACDB_MODEL_SPACE, modelSpace);
        const bool pracovni = m_pDb == PracovniDatabaze();
        const AcDbObjectId aktivni = (maska & kAktivniLayout) && pracovni ? AktivniLayout(m_pDb) : AcDbObjectId::kNull;

        for (int pruchod = 0; pruchod < pruchodu; ++pruchod) {
            for (iterator->start(true, true); !iterator->done(); iterator->step(true, true)) {
                AcDbObjectId idZaznamu;
                AcDbBlockTableRecord* zaznam = nullptr;
                if (iterator->getRecordId(idZaznamu) == Acad::eOk &&
                    m_pTransakce->getObject(objekt, idZaznamu, AcDb::kForRead) == Acad::eOk)
                    zaznam = AcDbBlockTableRecord::cast(objekt);
                if (zaznam == nullptr) {
                    if (hlasit)
                        acutPrintf(L"\nNelze získat BlockRecord....doporučujeme restaurovat výkres!!!!");
                    continue;
                }

                const bool jeModel = idZaznamu == modelSpace;
                bool vybrat = false;
                if ((maska & kModelSpace) && jeModel)
                    vybrat = true;
                else if ((maska & kLayouty) && !jeModel && zaznam->isLayout())
                    vybrat = true;
                else if ((maska & kDefiniceBloku) && !zaznam->isLayout())
                    vybrat = true;
                else if ((maska & kAktivniLayout) && pracovni && idZaznamu == aktivni)
                    vybrat = true;
                if (!vybrat)
                    continue;

                Drz();
                AcDbBlockTableRecordIterator* pEntity = nullptr;
                if (zaznam->newIterator(pEntity, true, true) != Acad::eOk || pEntity == nullptr) {
                    Uvolni();
                    if (hlasit)
                        acutPrintf(L"\nNelze získat BlockRecordIterátor....doporučujeme restaurovat výkres!!!!");
                    continue;
                }
                std::unique_ptr<AcDbBlockTableRecordIterator> entity(pEntity);
                for (entity->start(true, true); !entity->done(); entity->step(true, true)) {
                    ++otevreno;
                    AcDbObjectId idEntity;
                    if (entity->getEntityId(idEntity) != Acad::eOk) {
                        ++nezmeneno;
                        continue;
                    }
                    Adesk::Int32 vysledek = Zpracuj(idEntity);
                    if (vysledek == -1)
                        ++nezmeneno;
                    else
                        zmeneno += vysledek;
                }
                entity.reset();
                Uvolni();
            }
        }
        Uvolni();
    } catch (const CTogException& e) {
        zrus();
        ZobrazVyjimku(e, GetActiveWindow());
        acutPrintf(kChybaPruchodu);
        throw CTogException(e);
    } catch (...) {
        zrus();
        MessageBoxW(GetActiveWindow(), L"\nNeočekávaná chyba při procházení výkresu....doporučujeme restaurovat výkres!!!!",
                    kNazevAplikace, MB_OK | MB_ICONERROR);
        acutPrintf(kChybaPruchodu);
        return 0;
    }

    if (hlasit)
        acutPrintf(L"\nZměněno %i entit, nešlo změnit %i entit (celkem otevřeno %i entit)", zmeneno, nezmeneno, otevreno);
    return zmeneno;
}

ZmenHladinu::ZmenHladinu(AcDbDatabase* db, ParyId pary) : ProjdiDwgFce(db), pary(std::move(pary)) {}

Adesk::Int32 ZmenHladinu::Zpracuj(AcDbObjectId id)
{
    AcDbEntity* entita = AcDbEntity::cast(Otevri(id, AcDb::kForWrite));
    if (entita == nullptr)
        return -1;
    AcDbObjectId nova = NoveId(pary, entita->layerId());
    if (nova.isNull())
        return 0;
    return entita->setLayer(nova, true, true) == Acad::eOk ? 1 : 0;
}

ZmenTS_DS_MLS::ZmenTS_DS_MLS(AcDbDatabase* db) : ProjdiDwgFce(db) {}

Adesk::Int32 ZmenTS_DS_MLS::Zpracuj(AcDbObjectId id)
{
    AcDbEntity* entita = AcDbEntity::cast(Otevri(id, AcDb::kForWrite));
    if (entita == nullptr)
        return -1;

    // The answer follows the last change that was tried.
    Adesk::Int32 vysledek = 0;
    auto zmena = [&vysledek](Acad::ErrorStatus es) { vysledek = es == Acad::eOk ? 1 : 0; };

    if (AcDbMLeader* odkaz = AcDbMLeader::cast(entita)) {
        if (AcDbObjectId styl = NoveId(textStyly, odkaz->textStyleId()); !styl.isNull())
            zmena(odkaz->setTextStyleId(styl));
        if (AcDbObjectId styl = NoveId(mleaderStyly, odkaz->MLeaderStyle()); !styl.isNull())
            zmena(odkaz->setMLeaderStyle(styl));
    } else if (AcDbText* text = AcDbText::cast(entita)) { // texts, attributes and their definitions
        if (AcDbObjectId styl = NoveId(textStyly, text->textStyle()); !styl.isNull())
            zmena(text->setTextStyle(styl));
    } else if (AcDbMText* mtext = AcDbMText::cast(entita)) {
        if (AcDbObjectId styl = NoveId(textStyly, mtext->textStyle()); !styl.isNull())
            zmena(mtext->setTextStyle(styl));
    } else if (AcDbDimension* kota = AcDbDimension::cast(entita)) {
        if (AcDbObjectId styl = NoveId(textStyly, kota->dimtxsty()); !styl.isNull())
            zmena(kota->setDimtxsty(styl));
        if (AcDbObjectId styl = NoveId(kotaStyly, kota->dimensionStyle()); !styl.isNull())
            zmena(kota->setDimensionStyle(styl));
    } else if (AcDbLeader* odkaz = AcDbLeader::cast(entita)) {
        if (AcDbObjectId styl = NoveId(kotaStyly, odkaz->dimensionStyle()); !styl.isNull()) {
            odkaz->setDimensionStyle(styl);
            zmena(Acad::eOk);
        }
    }

    if (AcDbObjectId typ = NoveId(typyCar, entita->linetypeId()); !typ.isNull())
        zmena(entita->setLinetype(typ, true));
    return vysledek;
}

CNajdiBlokRefs::CNajdiBlokRefs(AcDbDatabase* db, const ACHAR* nazev, bool castNazvu, AcDbObjectId blok)
    : ProjdiDwgFce(db), nazev(nazev), castNazvu(castNazvu), blok(blok)
{
    CTogFunkce::NaVelka(this->nazev);
}

Adesk::Int32 CNajdiBlokRefs::Zpracuj(AcDbObjectId id)
{
    AcDbObject* objekt = Otevri(id, AcDb::kForRead);
    if (objekt == nullptr)
        return -1;
    AcDbBlockReference* reference = AcDbBlockReference::cast(objekt);
    if (reference == nullptr)
        return 0;
    if (!blok.isNull()) {
        if (reference->blockTableRecord() != blok)
            return 0;
        nalezene.push_back(id);
        return 1;
    }

    AcDbBlockTableRecordPointer definice(reference->blockTableRecord());
    if (definice.openStatus() != Acad::eOk)
        throw CTogException("Nelze otevřít definici bloku pro čtení", __LINE__, __FILE__);
    AcString jmeno;
    definice->getName(jmeno);
    CTogFunkce::NaVelka(jmeno);

    bool shoda = castNazvu ? std::wcsstr(jmeno.kwszPtr(), nazev.kwszPtr()) != nullptr : jmeno.compare(nazev) == 0;
    if (!shoda)
        return 0;
    nalezene.push_back(id);
    return 1;
}

} // namespace CTogCmd
