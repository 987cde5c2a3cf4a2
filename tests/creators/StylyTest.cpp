// Text, dimension and multileader styles created from the catalogue, the standard line types loaded
// from the installation's files, and the answers of the task dialog.
#include "CTogException.h"
#include "CTogSet.h"
#include "StandardniObjekty.h"

using Styly = StandardniObjekty;

TEST_F(Styly, TextStyleTakesTheTrueTypeFontAndIsAnnotative)
{
    Start();
    AcDbObjectId id = ZiskejTextStyl(L"tg_txt_maly");
    ASSERT_FALSE(id.isNull());
    EXPECT_EQ(IdTextStylu(L"TG_TXT_MALY"), id);
    EXPECT_EQ(ZiskejTextStyl(L"TG_TXT_MALY"), id);
    EXPECT_TRUE(ZiskejTextStyl(L"NENI_V_KATALOGU").isNull());

    auto* styl = Otevri<AcDbTextStyleTableRecord>(id);
    ASSERT_NE(styl, nullptr);
    const ACHAR* soubor = nullptr;
    styl->fileName(soubor);
    EXPECT_STREQ(soubor, L"ArialN.ttf");
    ACHAR* pismo = nullptr;
    bool tucne = true, kurziva = true;
    Charset znaky;
    Autodesk::AutoCAD::PAL::FontUtils::FontPitch roztec;
    Autodesk::AutoCAD::PAL::FontUtils::FontFamily rodina;
    ASSERT_EQ(styl->font(pismo, tucne, kurziva, znaky, roztec, rodina), Acad::eOk);
    EXPECT_STREQ(pismo, L"Arial Narrow");
    delete[] pismo;
    EXPECT_FALSE(tucne);
    EXPECT_FALSE(kurziva);
    EXPECT_DOUBLE_EQ(styl->textSize(), 0.0);
    EXPECT_DOUBLE_EQ(styl->priorSize(), 2.0);
    auto* pe = AcDbAnnotativeObjectPE::cast(styl->queryX(AcDbAnnotativeObjectPE::desc()));
    ASSERT_NE(pe, nullptr);
    EXPECT_TRUE(pe->annotative(styl));
    styl->close();
}

TEST_F(Styly, DimensionStyleGetsItsVariablesAndTextStyle)
{
    Start();
    const StdKotaStyl* radek = NajdiStdKotaStyl(L"TG_VODA1");
    ASSERT_NE(radek, nullptr);
    AcDbObjectId id = ZalozKotaStyl(*radek);
    ASSERT_EQ(IdKotaStylu(L"tg_voda1"), id);
    auto* styl = Otevri<AcDbDimStyleTableRecord>(id);
    ASSERT_NE(styl, nullptr);
    EXPECT_EQ(styl->dimtxsty(), IdTextStylu(L"TG_TXT_MALY"));
    EXPECT_FALSE(styl->dimtxsty().isNull());
    EXPECT_DOUBLE_EQ(styl->dimgap(), 0.63);
    EXPECT_DOUBLE_EQ(styl->dimlfac(), 0.001);
    EXPECT_DOUBLE_EQ(styl->dimtxt(), 2.0);
    EXPECT_EQ(styl->dimdec(), 3);
    EXPECT_EQ(styl->dimjust(), 1);
    EXPECT_EQ(styl->dimdsep(), L'.');
    EXPECT_TRUE(styl->dimse1());
    EXPECT_TRUE(styl->dimse2());
    EXPECT_TRUE(styl->dimsd2());
    EXPECT_FALSE(styl->dimsd1());
    EXPECT_TRUE(styl->dimtofl());
    EXPECT_EQ(styl->dimclrt().colorIndex(), 0);
    // The style points at the host's block of the arrow.
    EXPECT_STREQ(styl->dimblkName(), L"_Oblique");
    EXPECT_FALSE(styl->dimblk().isNull());
    styl->close();
}

TEST_F(Styly, DotArrowStyleLeavesDimblkAtDot)
{
    Start();
    ASSERT_TRUE(IdMLeaderStylu(L"TG_TECKA").isNull());
    const StdMLeaderStyl* radek = NajdiStdMLeaderStyl(L"tg_tecka");
    ASSERT_NE(radek, nullptr);
    AcDbObjectId id = ZalozMLeaderStyl(*radek);
    ASSERT_FALSE(id.isNull());
    EXPECT_EQ(IdMLeaderStylu(L"TG_TECKA"), id);

    resbuf dimblk{};
    ASSERT_EQ(acedGetVar(L"DIMBLK", &dimblk), RTNORM);
    EXPECT_STREQ(dimblk.resval.rstring, L"_DOT");
    delete[] dimblk.resval.rstring;

    AcDbBlockTable* bloky = nullptr;
    ASSERT_EQ(Db()->getBlockTable(bloky, AcDb::kForRead), Acad::eOk);
    AcDbObjectId tecka;
    EXPECT_EQ(bloky->getAt(L"_DOT", tecka), Acad::eOk);
    bloky->close();

    auto* styl = Otevri<AcDbMLeaderStyle>(id);
    ASSERT_NE(styl, nullptr);
    EXPECT_EQ(styl->arrowSymbolId(), tecka);
    EXPECT_DOUBLE_EQ(styl->arrowSize(), 0.6);
    EXPECT_DOUBLE_EQ(styl->textHeight(), 2.0);
    EXPECT_DOUBLE_EQ(styl->landingGap(), 1.0);
    EXPECT_EQ(styl->textStyleId(), IdTextStylu(L"TG_TXT_MALY"));
    EXPECT_EQ(styl->contentType(), AcDbMLeaderStyle::kMTextContent);
    EXPECT_TRUE(styl->annotative());
    styl->close();

    // An arrow of the default kind leaves the arrow and the variable alone.
    AcDbObjectId sipka = ZalozMLeaderStyl(*NajdiStdMLeaderStyl(L"TG_POZICE"));
    styl = Otevri<AcDbMLeaderStyle>(sipka);
    ASSERT_NE(styl, nullptr);
    EXPECT_TRUE(styl->arrowSymbolId().isNull());
    EXPECT_EQ(styl->textStyleId(), IdTextStylu(L"TG_TXT_VELKY"));
    styl->close();
}

TEST_F(Styly, LineTypesComeFromTheirFiles)
{
    Start();
    NactiTypCary(L"SV", Db());
    EXPECT_FALSE(IdTypuCary(L"SV").isNull());
    // Loaded twice: the duplicate is no failure.
    NactiTypCary(L"SV", Db());
    // Texts of the basic line types need TG_TXT_MALY, which the load makes when it fails without it.
    NactiTypCary(L"CIRKULACE", Db());
    EXPECT_FALSE(IdTypuCary(L"CIRKULACE").isNull());
    NactiTypCary(L"TEČKOVANÁ", Db());
    EXPECT_FALSE(IdTypuCary(L"tečkovaná").isNull());

    // The symbols of the "_" line types need the shape file, which is made known once.
    NactiTypCary(L"_VODOVOD", Db());
    EXPECT_FALSE(IdTypuCary(L"_VODOVOD").isNull());
    AcDbObjectId shx = ZajistiStylShx(L"/kdekoli/", Db());
    EXPECT_FALSE(shx.isNull());
    NactiTypCary(L"_PLYNOVOD", Db());
    EXPECT_EQ(ZajistiStylShx(L"/kdekoli/", Db()), shx);

    try {
        NactiTypCary(L"NENI_V_SOUBORU", Db());
        FAIL() << "a line type the file lacks can't be loaded";
    } catch (const CTogException& e) {
        EXPECT_EQ(std::string(e.what()).rfind("Nelze načíst standardní typy čar ze souboru", 0), 0u);
    }
}

TEST_F(Styly, TaskDialogAnswersCarryTheBitsForAllAndTheTick)
{
    Start("Ano\nAno všem\nNe všem +tick\nZrušit\n");
    const int vse = kTlacitkoAno | kTlacitkoNe | kTlacitkoZrusit | kTlacitkoAnoVsem | kTlacitkoNeVsem;
    EXPECT_EQ(ZeptejSe(L"Otázka", L"Obsah", vse, false, nullptr, nullptr), kTlacitkoAno);
    EXPECT_EQ(ZeptejSe(L"Otázka", L"Obsah", vse, false, nullptr, L"Více"), kTlacitkoAno + kOdpovedVsem);
    EXPECT_EQ(ZeptejSe(L"Otázka", L"Obsah", vse, true, nullptr, nullptr),
              kTlacitkoNe + kOdpovedVsem + kOdpovedZaskrtnuto);
    EXPECT_EQ(ZeptejSe(L"Otázka", L"Obsah", vse, true, nullptr, nullptr), kTlacitkoZrusit);
    EXPECT_NE(Zaznam().find(L"[Togovy Utility pro AutoCad] Otázka"), std::wstring::npos);
    EXPECT_NE(Zaznam().find(L"Již více nezobrazovat"), std::wstring::npos);
    EXPECT_NE(Zaznam().find(L"Podrobnosti: Více"), std::wstring::npos);
    // No answer at all: no button.
    EXPECT_EQ(ZeptejSe(L"Otázka", L"Obsah", kTlacitkoAno | kTlacitkoNe, false, nullptr, nullptr), 0);
}
