// Text, dimension and multileader styles of the standard, created in the working database from the
// catalogue, and the setters that give a style the catalogue's values.
#include "StdAfx.h"
#include "CTogAnno.h"
#include "CTogException.h"
#include "CTogSet.h"

namespace {

AcDbDatabase* PracovniDatabaze() { return acdbHostApplicationServices()->workingDatabase(); }

} // namespace

// ---------------------------------------------------------------------------------------------------
// Text styles
// ---------------------------------------------------------------------------------------------------

AcDbObjectId ZiskejTextStyl(const ACHAR* nazev)
{
    AcDbObjectId id = IdTextStylu(nazev);
    if (id.isNull())
        if (const StdTextStyl* styl = NajdiStdTextStyl(nazev))
            id = ZalozTextStyl(*styl);
    return id;
}

AcDbObjectId ZiskejMLeaderStyl(const ACHAR* nazev)
{
    AcDbObjectId id = IdMLeaderStylu(nazev);
    if (id.isNull())
        if (const StdMLeaderStyl* styl = NajdiStdMLeaderStyl(nazev))
            id = ZalozMLeaderStyl(*styl);
    return id;
}

int NastavTextStyl(const StdTextStyl& styl, AcDbTextStyleTableRecord* zaznam)
{
    using namespace Autodesk::AutoCAD::PAL::FontUtils;
    int soucet = zaznam->setFileName(styl.souborFontu);
    zaznam->setIsShapeFile(false);
    soucet += zaznam->setFont(styl.pismo, styl.tucne, styl.kurziva, kDefaultCharset,
                              static_cast<FontPitch>(styl.roztec), static_cast<FontFamily>(styl.rodina), true);
    zaznam->setIsVertical(false);
    soucet += zaznam->setObliquingAngle(0.0);
    soucet += zaznam->setPriorSize(2.0);
    soucet += zaznam->setTextSize(styl.vyska);
    soucet += zaznam->setXScale(styl.sirkovyFaktor);
    zaznam->setFlagBits(0);
    return soucet;
}

AcDbObjectId ZalozTextStyl(const StdTextStyl& styl)
{
    AcDbObjectPointer<AcDbTextStyleTableRecord> zaznam;
    zaznam.create();
    int soucet = zaznam->setName(styl.nazev) + NastavTextStyl(styl, zaznam);
    if (soucet != 0)
        throw CTogException("Přiřazení hodnot do TextStyleRecord neproběhlo v pořádku", __LINE__, __FILE__, soucet);

    AcDbSymbolTablePointer<AcDbTextStyleTable> tabulka(PracovniDatabaze(), AcDb::kForWrite);
    Acad::ErrorStatus es = tabulka.openStatus();
    if (es != Acad::eOk)
        throw CTogException("Nelze otevřít TexTStyleTable", __LINE__, __FILE__, es);
    AcDbObjectId id;
    es = tabulka->add(id, zaznam);
    tabulka.close();
    if (es != Acad::eOk)
        throw CTogException("Nelze přidat TexTStyleTableRecord do databáze", __LINE__, __FILE__, es);
    CTogAnno::NastavAnnotative(zaznam);
    return id;
}

// ---------------------------------------------------------------------------------------------------
// Dimension styles
// ---------------------------------------------------------------------------------------------------

int NastavKotaStyl(const StdKotaStyl& styl, AcDbDimStyleTableRecord* zaznam)
{
    AcCmColor poBloku;
    poBloku.setColorIndex(0);
    int soucet = zaznam->setDimclrt(poBloku);
    soucet += zaznam->setDimclrd(poBloku);
    soucet += zaznam->setDimclre(poBloku);
    soucet += zaznam->setDimfxlenOn(false);
    soucet += zaznam->setDimasz(2.5);
    soucet += zaznam->setDimdle(1.25);
    soucet += zaznam->setDimexo(2.5);
    soucet += zaznam->setDimexe(1.25);
    soucet += zaznam->setDimgap(0.63);
    soucet += zaznam->setDimdsep(L'.');
    soucet += zaznam->setDimlunit(2);
    soucet += zaznam->setDimsah(false);
    soucet += zaznam->setDimsoxd(false);
    soucet += zaznam->setDimtofl(true);
    soucet += zaznam->setDimtih(false);
    soucet += zaznam->setDimtoh(false);
    soucet += zaznam->setDimtxt(2.0);
    soucet += zaznam->setDimtxsty(ZiskejTextStyl(styl.textStyl));
    soucet += zaznam->setDimblk(styl.sipka);
    soucet += zaznam->setDimlfac(styl.dimlfac);
    soucet += zaznam->setDimpost(styl.dimpost);
    soucet += zaznam->setDimrnd(styl.dimrnd);
    soucet += zaznam->setDimdec(styl.dimdec);
    soucet += zaznam->setDimsd1(styl.dimsd1);
    soucet += zaznam->setDimsd2(styl.dimsd2);
    soucet += zaznam->setDimse1(styl.dimse);
    soucet += zaznam->setDimse2(styl.dimse);
    soucet += zaznam->setDimatfit(styl.dimatfit);
    soucet += zaznam->setDimtad(styl.dimtad);
    soucet += zaznam->setDimtvp(styl.dimtvp);
    soucet += zaznam->setDimtmove(styl.dimtmove);
    soucet += zaznam->setDimupt(styl.dimupt);
    soucet += zaznam->setDimjust(styl.dimjust);
    soucet += zaznam->setDimzin(styl.dimzin);
    return soucet;
}

AcDbObjectId ZalozKotaStyl(const StdKotaStyl& styl)
{
    AcDbObjectPointer<AcDbDimStyleTableRecord> zaznam;
    zaznam.create();
    int soucet = zaznam->setName(styl.nazev) + NastavKotaStyl(styl, zaznam);
    if (soucet != 0)
        throw CTogException("Přiřazení hodnot do DimStyleRecord neproběhlo v pořádku", __LINE__, __FILE__, soucet);

    AcDbSymbolTablePointer<AcDbDimStyleTable> tabulka(PracovniDatabaze(), AcDb::kForWrite);
    Acad::ErrorStatus es = tabulka.openStatus();
    if (es != Acad::eOk)
        throw CTogException("Nelze otevřít DimStyleTable pro zápis", __LINE__, __FILE__, es);
    AcDbObjectId id;
    es = tabulka->add(id, zaznam);
    tabulka.close();
    if (es != Acad::eOk)
        throw CTogException("Nelze přidat DimStyleRecord do databáze", __LINE__, __FILE__, es);
    CTogAnno::NastavAnnotative(zaznam);
    return id;
}

// ---------------------------------------------------------------------------------------------------
// Multileader styles
// ---------------------------------------------------------------------------------------------------

namespace {

// The block of the dot arrow; the host makes it when DIMBLK first names it. The variable keeps the
// value afterwards.
AcDbObjectId BlokTecky()
{
    auto najdi = [] {
        AcDbBlockTablePointer tabulka(PracovniDatabaze());
        if (tabulka.openStatus() != Acad::eOk)
            throw CTogException("Nelze otevřít Block table for reading", __LINE__, __FILE__, tabulka.openStatus());
        AcDbObjectId id;
        if (tabulka->getAt(L"_DOT", id) != Acad::eOk)
            id = AcDbObjectId::kNull;
        return id;
    };
    AcDbObjectId id = najdi();
    if (id.isNull()) {
        ACHAR tecka[] = L"_DOT";
        resbuf hodnota{};
        hodnota.restype = RTSTR;
        hodnota.resval.rstring = tecka;
        if (acedSetVar(L"DIMBLK", &hodnota) != RTNORM)
            throw CTogException("Nelze nastavit proměnnou DIMBLK", __LINE__, __FILE__);
        id = najdi();
    }
    return id;
}

} // namespace

int NastavMLeaderStyl(const StdMLeaderStyl& styl, AcDbMLeaderStyle* zaznam)
{
    int soucet = zaznam->setTextStyleId(ZiskejTextStyl(styl.textStyl));
    soucet += zaznam->setTextHeight(styl.vyskaTextu);
    soucet += zaznam->setLeaderLineType(AcDbMLeaderStyle::kStraightLeader);
    const auto pripojeni = static_cast<AcDbMLeaderStyle::TextAttachmentType>(2);
    soucet += zaznam->setTextAttachmentType(pripojeni, AcDbMLeaderStyle::kLeftLeader);
    soucet += zaznam->setTextAttachmentType(pripojeni, AcDbMLeaderStyle::kRightLeader);
    soucet += zaznam->setArrowSize(styl.velikostSipky);
    soucet += zaznam->setContentType(AcDbMLeaderStyle::kMTextContent);
    soucet += zaznam->setDoglegLength(1.0);
    soucet += zaznam->setLandingGap(styl.vyskaTextu * 0.5);
    soucet += zaznam->setTextAlignAlwaysLeft(false);
    soucet += zaznam->setAlignSpace(4.0);
    soucet += zaznam->setLeaderLineTypeId(zaznam->databaseToUse()->continuousLinetype());
    soucet += zaznam->setEnableLanding(true);
    soucet += zaznam->setEnableDogleg(true);
    return soucet;
}

AcDbObjectId ZalozMLeaderStyl(const StdMLeaderStyl& styl)
{
    AcDbObjectPointer<AcDbMLeaderStyle> zaznam;
    zaznam.create();
    int soucet = zaznam->setName(styl.nazev) + NastavMLeaderStyl(styl, zaznam);
    if (soucet != 0)
        throw CTogException("Nepodařilo se nastavit některou z hodnot pro AcDbMLeaderStyle", __LINE__, __FILE__,
                            soucet);
    if (styl.druhSipky == 1)
        zaznam->setArrowSymbolId(BlokTecky());

    AcDbObjectId idStylu;
    Acad::ErrorStatus es;
    {
        AcDbDictionaryPointer slovnik(PracovniDatabaze()->namedObjectsDictionaryId());
        es = slovnik.openStatus();
        if (es != Acad::eOk)
            throw CTogException("Nelze otevřít AcDbNamedObjectDictionary for read", __LINE__, __FILE__, es);
        es = slovnik->getAt(L"ACAD_MLEADERSTYLE", idStylu);
    }
    AcDbDictionaryPointer styly(idStylu, AcDb::kForWrite);
    if (es == Acad::eOk)
        es = styly.openStatus();
    if (es != Acad::eOk)
        throw CTogException("Nelze otevřít AcDbMLeaderDictionary for write", __LINE__, __FILE__, es);
    AcDbObjectId id;
    es = styly->setAt(styl.nazev, zaznam, id);
    styly.close();
    if (es != Acad::eOk)
        throw CTogException("Nelze vytvořit otevřít AcDbMLeaderDictionary for write", __LINE__, __FILE__, es);
    CTogAnno::NastavAnnotative(zaznam);
    return id;
}
