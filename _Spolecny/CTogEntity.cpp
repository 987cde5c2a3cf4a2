// Block references with attributes and dynamic properties, new blocks and single-line texts.
#include "StdAfx.h"
#include "CTogEntity.h"

#include <memory>
#include <set>

#include "CTogAnno.h"
#include "CTogException.h"
#include "CTogFunkce.h"
#include "CTogFunkceDWG.h"
#include "CTogRegistry.h"
#include "dbdynblk.h"

namespace {

/// The erased-or-not walk over a record's entities, freed when it goes.
using IteratorBloku = std::unique_ptr<AcDbBlockTableRecordIterator>;
using IteratorTabulky = std::unique_ptr<AcDbBlockTableIterator>;

AcString VelkymiPismeny(const ACHAR* text)
{
    AcString kopie(text);
    CTogFunkce::NaVelka(kopie);
    return kopie;
}

/// An attribute of a new reference gets the reference's layer and ByBlock colour, line type and
/// weight: it follows the reference.
void NastavByBlock(AcDbAttribute* atribut, AcDbObjectId hladina, AcDbDatabase* db)
{
    atribut->setLayer(hladina, true);
    AcCmColor barva;
    barva.setColorMethod(AcCmEntityColor::kByBlock);
    atribut->setColor(barva, true);
    atribut->setLinetype(db->byBlockLinetype(), true);
    atribut->setLineWeight(AcDb::kLnWtByBlock, true);
}

} // namespace

CTogDynProp CTogDynProp::Realne(double hodnota)
{
    CTogDynProp p;
    p.druh = kRealne;
    p.realne = hodnota;
    return p;
}

CTogDynProp CTogDynProp::Kratke(Adesk::UInt8 hodnota)
{
    CTogDynProp p;
    p.druh = kKratke;
    p.kratke = hodnota;
    return p;
}

CTogDynProp CTogDynProp::Text(const ACHAR* hodnota)
{
    CTogDynProp p;
    p.druh = kText;
    p.text = hodnota;
    return p;
}

AcString NazevBloku::Nazev() const
{
    ACHAR cislo[16];
    swprintf(cislo, sizeof(cislo) / sizeof(cislo[0]), L"%x", citac);
    AcString nazev = zaklad;
    nazev += L"_";
    nazev += cislo;
    return nazev;
}

int CTogEntity::NastavByLayer(AcDbEntity* entita, AcDbDatabase* db)
{
    AcCmColor barva;
    barva.setColorMethod(AcCmEntityColor::kByLayer);
    int soucet = entita->setColor(barva, true);
    soucet += entita->setLinetype(db->byLayerLinetype(), true);
    soucet += entita->setLineWeight(AcDb::kLnWtByLayer, true);
    return soucet;
}

void CTogEntity::VlozBlok(AcDbObjectId& idEntity, AcDbBlockReference*& reference, const PopisBloku& popis,
                          AcDbBlockTableRecord* prostor, bool nechatOtevrene, bool anotativni)
{
    idEntity = AcDbObjectId::kNull;
    reference = nullptr;
    if (!CTogFunkceDWG::JeUcs2d())
        throw CTogException("\nNastavené Ucs je ve 3d prostoru (není 2d), nelze vyttvořit entitu", __LINE__, __FILE__);
    if (prostor == nullptr || !prostor->isWriteEnabled())
        throw CTogException("AcDbBlockTableRecord není otevřen pro zápis", __LINE__, __FILE__);

    AcDbObjectPointer<AcDbBlockReference> novy;
    novy.create();
    if (novy->setBlockTableRecord(popis.blok) != Acad::eOk)
        throw CTogException("Nelze vytvořit referenci bloku", __LINE__, __FILE__);
    AcDbDatabase* db = prostor->database();
    int soucet = novy->setPosition(popis.pozice);
    soucet += novy->setRotation(popis.rotace);
    soucet += novy->setNormal(AcGeVector3d(0, 0, 1));
    soucet += novy->setLayer(popis.hladina, true);
    soucet += NastavByLayer(novy, db);
    soucet += novy->setScaleFactors(AcGeScale3d(popis.meritkoXZ, popis.meritkoY, popis.meritkoXZ));
    if (soucet != 0)
        throw CTogException("Nelze správně nastavit parametry Block Reference", __LINE__, __FILE__, soucet);
    if (Acad::ErrorStatus es = prostor->appendAcDbEntity(idEntity, novy); es != Acad::eOk)
        throw CTogException("Nelze přidat entitu acdbBlockeference", __LINE__, __FILE__, es);
    if (anotativni)
        CTogAnno::PridejAktualniMeritko(novy, db);
    PridejAtributy(novy, popis, anotativni);
    if (nechatOtevrene)
        novy.release(reference);
}

void CTogEntity::PridejAtributy(AcDbBlockReference* reference, const PopisBloku& popis, bool anotativni)
{
    AcDbBlockTableRecordPointer blok(popis.blok, AcDb::kForRead);
    if (blok.openStatus() != Acad::eOk)
        return;
    AcDbBlockTableRecordIterator* surovy = nullptr;
    if (blok->newIterator(surovy, true, true) != Acad::eOk)
        return;
    IteratorBloku it(surovy);
    AcDbDatabase* db = reference->database();
    for (; !it->done(); it->step(true, true)) {
        AcDbObjectId id;
        it->getEntityId(id);
        AcDbObjectPointer<AcDbAttributeDefinition> definice(id, AcDb::kForRead);
        if (definice.openStatus() != Acad::eOk || definice->isConstant())
            continue;
        // A setter that fails leaves the attribute as it is: the walk goes on and says nothing.
        AcDbObjectPointer<AcDbAttribute> atribut;
        atribut.create();
        atribut->setAttributeFromBlock(definice, reference->blockTransform());
        NastavByBlock(atribut, reference->layerId(), db);
        auto popisAtributu = popis.atributy.find(definice->tagConst());
        const PopisAtributu* zadany = popisAtributu == popis.atributy.end() ? nullptr : &popisAtributu->second;
        if (zadany) {
            atribut->setTextString(zadany->text);
            if (zadany->horizontalni != -1)
                atribut->setHorizontalMode(static_cast<AcDb::TextHorzMode>(zadany->horizontalni));
            if (zadany->vertikalni != -1)
                atribut->setVerticalMode(static_cast<AcDb::TextVertMode>(zadany->vertikalni));
        }
        if (reference->appendAttribute(atribut) != Acad::eOk)
            continue;
        try {
            if (anotativni)
                CTogAnno::PridejAktualniMeritko(atribut, db);
            if (zadany && zadany->viceradkovy && atribut->convertIntoMTextAttribute() == Acad::eOk && anotativni) {
                std::unique_ptr<AcDbMText> mtext(atribut->getMTextAttribute());
                if (mtext) {
                    CTogAnno::PridejAktualniMeritko(mtext.get(), db);
                    atribut->setMTextAttribute(mtext.get());
                }
            }
        } catch (const CTogException&) {
            // Annotation scales of an attribute are a nicety: a failure here isn't shown.
        }
    }
}

void CTogEntity::NastavDynVlastnosti(AcDbBlockReference* reference, const PopisBloku& popis)
{
    if (popis.dynVlastnosti.empty())
        return;
    AcDbDynBlockReference dynamicky(reference);
    if (!dynamicky.isDynamicBlock())
        throw CTogException("\nStandardní blok utilit není dynamický blok - porušená instalace utilit", __LINE__, __FILE__);
    AcDbDynBlockReferencePropertyArray vlastnosti;
    dynamicky.getBlockProperties(vlastnosti);
    for (int i = 0; i < vlastnosti.length(); ++i) {
        AcDbDynBlockReferenceProperty& vlastnost = vlastnosti[i];
        auto nalezena = popis.dynVlastnosti.find(VelkymiPismeny(vlastnost.propertyName()));
        if (nalezena == popis.dynVlastnosti.end())
            continue;
        const CTogDynProp& hodnota = nalezena->second;
        switch (hodnota.druh) {
        case CTogDynProp::kRealne:
            vlastnost.setValue(AcDbEvalVariant(hodnota.realne));
            break;
        case CTogDynProp::kKratke:
            vlastnost.setValue(AcDbEvalVariant(static_cast<short>(hodnota.kratke)));
            break;
        case CTogDynProp::kText:
            vlastnost.setValue(AcDbEvalVariant(hodnota.text.kwszPtr()));
            break;
        default:
            throw CTogException("Špatné nastavení třídy CTogDynProp", __LINE__, __FILE__);
        }
    }
}

bool CTogEntity::NajdiAtribut(AcDbBlockReference* reference, AcDbAttribute*& atribut, const ACHAR* tag,
                              AcDb::OpenMode rezim)
{
    atribut = nullptr;
    std::unique_ptr<AcDbObjectIterator> it(reference->attributeIterator());
    AcString hledany = VelkymiPismeny(tag);
    for (; it && !it->done(); it->step()) {
        AcDbObjectPointer<AcDbAttribute> kandidat(it->objectId(), AcDb::kForRead);
        if (kandidat.openStatus() != Acad::eOk || kandidat->isA() != AcDbAttribute::desc())
            continue;
        if (!(VelkymiPismeny(kandidat->tagConst()) == hledany))
            continue;
        if (rezim == AcDb::kForWrite && kandidat->upgradeOpen() != Acad::eOk)
            continue;
        kandidat.release(atribut);
        return true;
    }
    return false;
}

void CTogEntity::NovyBlok(AcDbObjectId& idBloku, AcDbBlockTableRecord*& zaznam, NazevBloku& nazev)
{
    idBloku = AcDbObjectId::kNull;
    zaznam = nullptr;
    AcDbDatabase* db = acdbHostApplicationServices()->workingDatabase();
    AcDbBlockTablePointer tabulka(db, AcDb::kForWrite);
    if (tabulka.openStatus() != Acad::eOk)
        throw CTogException("Nelze otevřít pBlockTable pro zápis", __LINE__, __FILE__, tabulka.openStatus());

    // Names in use, erased records too: a name that comes back by undo must stay free.
    std::set<AcString> obsazene;
    AcString zaklad = VelkymiPismeny(nazev.zaklad);
    AcDbBlockTableIterator* surovy = nullptr;
    if (tabulka->newIterator(surovy, true, false) != Acad::eOk)
        throw CTogException("Nelze otevřít pBlockIterator", __LINE__, __FILE__);
    IteratorTabulky it(surovy);
    for (; !it->done(); it->step(true, false)) {
        AcDbObjectId id;
        it->getRecordId(id);
        AcDbBlockTableRecordPointer blok(id, AcDb::kForRead, true);
        if (blok.openStatus() != Acad::eOk)
            throw CTogException("Nelze otevřít pBlockRecord", __LINE__, __FILE__);
        const ACHAR* jmeno = nullptr;
        if (blok->getName(jmeno) != Acad::eOk)
            throw CTogException("Nelze načíst jméno bloku", __LINE__, __FILE__);
        AcString velke = VelkymiPismeny(jmeno);
        if (velke.find(zaklad) >= 0)
            obsazene.insert(velke);
    }
    while (obsazene.count(VelkymiPismeny(nazev.Nazev()))) {
        if (++nazev.citac == 0xFFFFFFFFu)
            nazev.citac = 1;
    }

    AcDbObjectPointer<AcDbBlockTableRecord> novy;
    novy.create();
    novy->setName(nazev.Nazev());
    novy->setOrigin(AcGePoint3d(0, 0, 0));
    if (Acad::ErrorStatus es = tabulka->add(idBloku, novy); es != Acad::eOk)
        throw CTogException("Nelze vytvořit pBlockRecord", __LINE__, __FILE__, es);
    novy.release(zaznam);
}

void CTogEntity::VytvorText(AcDbObjectId& idEntity, AcDbText*& text, const PopisTextu& popis, AcDbBlockTableRecord* prostor,
                            bool zavrit)
{
    idEntity = AcDbObjectId::kNull;
    text = nullptr;
    if (prostor == nullptr || !prostor->isWriteEnabled())
        throw CTogException("AcDbBlockTableRecord není otevřen pro zápis", __LINE__, __FILE__);
    AcDbObjectPointer<AcDbText> novy;
    AcDbText* surovy = new AcDbText(popis.pozice, popis.text, popis.styl, popis.vyska, popis.rotace);
    novy.acquire(surovy);
    if (Acad::ErrorStatus es = prostor->appendAcDbEntity(idEntity, novy); es != Acad::eOk)
        throw CTogException("Nelze přidat entitu AcDbText", __LINE__, __FILE__, es);
    novy->setHorizontalMode(popis.horizontalni);
    novy->setVerticalMode(popis.vertikalni);
    novy->setWidthFactor(popis.sirkovyFaktor);
    novy->setLayer(popis.hladina);
    NastavByLayer(novy, prostor->database());
    const bool vychozi = (popis.horizontalni == AcDb::kTextLeft || popis.horizontalni == AcDb::kTextAlign ||
                          popis.horizontalni == AcDb::kTextFit) &&
                         popis.vertikalni == AcDb::kTextBase;
    if (vychozi)
        novy->setPosition(popis.pozice);
    else
        novy->setAlignmentPoint(popis.pozice);
    if (!zavrit)
        novy.release(text);
}

void CTogEntity::NajdiNeboNactiKacenu(AcDbObjectId& idBloku)
{
    idBloku = AcDbObjectId::kNull;
    AcDbDatabase* db = acdbHostApplicationServices()->workingDatabase();
    {
        AcDbBlockTablePointer tabulka(db, AcDb::kForRead);
        if (tabulka.openStatus() != Acad::eOk)
            throw CTogException("Nelze otevřít AcDbBlockTable pro čtení", __LINE__, __FILE__);
        if (tabulka->getAt(kKacena, idBloku) != Acad::eOk)
            idBloku = AcDbObjectId::kNull;
    }
    if (idBloku.isNull()) {
        AcString cesta = CTogRegistry::NactiCestu(CTogRegistry::kKlicProduktu, TypCesty::Install);
        cesta += L"BLOKY\\";
        cesta += kKacena;
        cesta += L".dwg";
        auto soubor = std::make_unique<AcDbDatabase>(false, true);
        if (soubor->readDwgFile(cesta) == Acad::eOk && db->insert(idBloku, kKacena, soubor.get()) != Acad::eOk)
            idBloku = AcDbObjectId::kNull;
    }
    if (idBloku.isNull())
        return;
    AcDbBlockTableRecordPointer blok(idBloku, AcDb::kForWrite);
    if (blok.openStatus() != Acad::eOk)
        throw CTogException("Objekt nelze otevřít pro zápis (nastavení annotative)", __LINE__, __FILE__);
    CTogAnno::NastavAnnotative(blok);
}
