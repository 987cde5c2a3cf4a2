// The standard-object AutoLISP functions called as the command line calls them: the order rule of the
// user layer's arguments and the answers for names the catalogue lacks.
#include "CTogSet.h"
#include "StandardniObjekty.h"
#include "sim/app/LispCall.h"

class LispStandard : public StandardniObjekty {
protected:
    /// Runs the line and gives what it added to the transcript.
    std::wstring Volej(const std::wstring& radek)
    {
        std::wstring pred = Zaznam();
        sim::app::runLispLine(radek);
        return Zaznam().substr(pred.size());
    }
};

TEST_F(LispStandard, UserLayerArgumentsCountOnlyInTheirOrder)
{
    Start("ok\n");
    // The weight and the plot flag come after a line type that isn't a string: all three are ignored.
    EXPECT_EQ(Volej(L"(togu_nastav_uziv_hladinu \"prvni\" 2 7 18 0)"), L"\"TU_prvni\"\n");
    Hladina h = CtiHladinu(IdHladiny(L"TU_prvni"));
    EXPECT_EQ(h.barva, 2);
    EXPECT_EQ(h.typCary, L"Continuous");
    EXPECT_EQ(h.tloustka, AcDb::kLnWtByLwDefault);
    EXPECT_TRUE(h.tisknout);
    // The .lin file of the sixth place plays no part.
    EXPECT_EQ(Volej(L"(togu_nastav_uziv_hladinu \"druha\" 1 \"KAN-PODL\" 25 0 \"jiny.lin\")"), L"\"TU_druha\"\n");
    h = CtiHladinu(IdHladiny(L"TU_druha"));
    EXPECT_EQ(h.typCary, L"KAN-PODL");
    EXPECT_EQ(h.tloustka, 25);
    EXPECT_FALSE(h.tisknout);

    // A colour that isn't an integer ends the call without an answer and without a layer.
    EXPECT_EQ(Volej(L"(togu_nastav_uziv_hladinu \"treti\" \"modra\")"), L"nil\n");
    EXPECT_TRUE(IdHladiny(L"TU_treti").isNull());
    // A name that isn't a string is a failure shown in the exception box.
    std::wstring vypis = Volej(L"(togu_nastav_uziv_hladinu 3 3)");
    EXPECT_NE(vypis.find(L"[Program vyvolal výjimku]"), std::wstring::npos) << sim::toUtf8(vypis);
    EXPECT_NE(vypis.find(L"(togu_nastav_hladinu <název_hladiny> <číslo barvy>"), std::wstring::npos);
}

TEST_F(LispStandard, StylesAndLayersOutsideTheCatalogue)
{
    Start();
    EXPECT_EQ(Volej(L"(togu_nastav_textstyl \"TG_TXT_VELKY\")"), L"\"TG_TXT_VELKY\"\n");
    EXPECT_EQ(Volej(L"(togu_nastav_textstyl \"Standard\")"), L"\"Standard\"\n");
    EXPECT_EQ(Volej(L"(togu_nastav_textstyl \"JINY\")"), L"\nStyl JINY nelze vytvořit !!!nil\n");
    EXPECT_EQ(Volej(L"(togu_nastav_mleaderstyl \"JINY\")"), L"\nMLeader styl JINY nelze vytvořit !!!nil\n");
    EXPECT_EQ(Volej(L"(togu_nastav_dimstyl)"),
              L"\n!!!Špatný typ nebo počet argumentů, prototyp funkce je (togu_nastav_dimstyl string)nil\n");
    EXPECT_EQ(Volej(L"(togu_zmen_hladinu_entity \"jina\")"), L"\nNepodařilo se vytvořit / najít hladinu jinanil\n");
}
