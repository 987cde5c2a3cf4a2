// Leader composition (cmm): the pick of the text and of the old leader or point, and the new
// multileader in the standard style, small text and layer.
#include "StdAfx.h"
#include "SlozeniOdkazu.h"

#include <memory>

#include "CTogException.h"
#include "CTogSet.h"
#include "OkrajPrikazu.h"
#include "StranaOdkazu.h"
#include "VyberJedne.h"
#include "acadwnd.h"
#include "acedads.h"
#include "acutads.h"
#include "dbAnnotationScale.h"
#include "dbapserv.h"
#include "dbents.h"
#include "dbldr.h"
#include "dbmtext.h"
#include "mleader.h"

namespace {

// The first vertex of each leader line of an old multileader; lines that report an error are passed
// over.
void SipkyMultiodkazu(const AcDbMLeader* odkaz, AcGePoint3dArray& sipky)
{
    AcArray<int> odkazy;
    odkaz->getLeaderIndexes(odkazy);
    for (int i = 0; i < odkazy.length(); ++i) {
        AcArray<int> cary;
        if (odkaz->getLeaderLineIndexes(odkazy[i], cary) != Acad::eOk)
            continue;
        for (int j = 0; j < cary.length(); ++j) {
            int pocet = 0;
            AcGePoint3d bod;
            if (odkaz->numVertices(cary[j], pocet) == Acad::eOk && pocet > 0 && odkaz->getVertex(cary[j], 0, bod) == Acad::eOk)
                sipky.append(bod);
        }
    }
}

bool MaText(const AcDbMLeader* odkaz)
{
    if (odkaz->contentType() != AcMLeaderStyle::kMTextContent)
        return false;
    const std::unique_ptr<AcDbMText> text(odkaz->mtext());
    AcString obsah;
    return text && text->contents(obsah) == Acad::eOk && !obsah.isEmpty();
}

// The scale of the drawing's current annotation scale (1:50 gives 0.02).
double MeritkoTextu(AcDbDatabase* db)
{
    const std::unique_ptr<AcDbAnnotationScale> meritko(db ? db->cannoscale() : nullptr);
    double s = 0.0;
    if (!meritko || meritko->getScale(s) != Acad::eOk || s <= 0.0)
        throw CTogException("Nelze získat aktuální měřítko(annotaton scale)", __LINE__, __FILE__);
    return s;
}

void Cmm()
{
    SadaVyberu sada;
    {
        const FiltrTypu filtr({L"TEXT", L"MTEXT"});
        if (!VyberJednuEntitu(sada, filtr.Retezec(), L"TEXT nebo MTEXT")) {
            acutPrintf(L"\nChyba výběru...");
            return;
        }
    }
    const AcDbObjectId idTextu = sada.Id(0);
    sada.Uvolni();
    if (idTextu.isNull())
        throw CTogException("Nepodařilo se získat ObjectId vybraného textu.", __LINE__, __FILE__);
    AcDbEntityPointer zdroj(idTextu, AcDb::kForWrite);
    if (zdroj.openStatus() != Acad::eOk)
        throw CTogException("Nepodařilo se otevřít vybranou entitu - text.", __LINE__, __FILE__, zdroj.openStatus());

    AcGePoint3dArray sipky(0, 8);
    AcDbEntityPointer staryOdkaz;
    if (!VyberOdkazNeboBod(sipky, staryOdkaz))
        return;

    AcString obsah;
    AcGePoint3d misto;
    double sirka = 0.0;
    if (zdroj->isA() == AcDbText::desc()) {
        const auto* text = static_cast<const AcDbText*>(zdroj.object());
        obsah = text->textStringConst();
        misto = text->position();
    } else if (zdroj->isA() == AcDbMText::desc()) {
        const auto* text = static_cast<const AcDbMText*>(zdroj.object());
        text->contents(obsah);
        misto = text->location();
        sirka = text->width();
    }

    AcDbDatabase* db = zdroj->database();
    const AcDbObjectId stylOdkazu = ZiskejMLeaderStyl(L"TG_SIPKA");
    const AcDbObjectId stylTextu = ZiskejTextStyl(L"TG_TXT_MALY");
    if (stylOdkazu.isNull() || stylTextu.isNull())
        throw CTogException("Nelze nastavit ML nebo TXT style.", __LINE__, __FILE__);

    auto novy = std::make_unique<AcDbMLeader>();
    auto text = std::make_unique<AcDbMText>();
    int chybyTextu = text->setTextStyle(stylTextu);
    text->setDatabaseDefaults(db);
    chybyTextu += text->setTextHeight(2.0 / MeritkoTextu(db));
    if (text->setContents(obsah) < 0)
        throw CTogException("Nelze přidat text pro MLeader", __LINE__, __FILE__);

    const StranaOdkazu strana = UrciStranuOdkazu(misto, sipky[0]);
    chybyTextu += novy->setTextAlignmentType(strana.zarovnani);
    chybyTextu += text->setAttachment(strana.pripojeni);
    chybyTextu += novy->setTextAttachmentType(AcMLeaderStyle::kAttachmentBottomOfTop, strana.smerOdkazu);
    const AcGePoint3d poloha = misto + strana.smer * novy->doglegLength();
    chybyTextu += text->setLocation(poloha);
    if (sirka > 0.0)
        chybyTextu += text->setWidth(sirka);
    if (chybyTextu != Acad::eOk)
        throw CTogException("Neočekávaná chyba při nastavování textu", __LINE__, __FILE__, chybyTextu);

    AcDbObjectPointer<AcDbMLeader> odkaz;
    {
        AcDbBlockTableRecordPointer model(ACDB_MODEL_SPACE, db, AcDb::kForWrite);
        AcDbObjectId idOdkazu;
        if (model.openStatus() != Acad::eOk || model->appendAcDbEntity(idOdkazu, novy.get()) != Acad::eOk)
            return; // the sources stay as they were
        AcDbMLeader* vlozeny = novy.release();
        odkaz.acquire(vlozeny);
    }

    AcString nazevHladiny = L"popisy_020";
    const AcDbObjectId hladina = ZiskejHladinu(nazevHladiny, false);
    int chyby = odkaz->setContentType(AcMLeaderStyle::kMTextContent);
    chyby += odkaz->setBlockConnectionType(AcMLeaderStyle::kConnectBase);
    chyby += odkaz->setMLeaderStyle(stylOdkazu);
    chyby += odkaz->setTextLocation(poloha);
    for (int i = 0; i < sipky.length(); ++i) {
        int index = 0, cara = 0;
        chyby += odkaz->addLeader(index);
        chyby += odkaz->addLeaderLine(index, cara);
        chyby += odkaz->addFirstVertex(cara, sipky[i]);
        // Every line ends at the text's old place, not at the text's new location.
        chyby += odkaz->addLastVertex(cara, misto);
        chyby += odkaz->setDoglegDirection(index, strana.smer);
        if (!hladina.isNull())
            chyby += odkaz->setLayer(hladina);
    }
    chyby += odkaz->setMText(text.get());

    // A leader that didn't come out right goes, and the sources stay.
    if (chyby != Acad::eOk) {
        odkaz->erase();
        acutPrintf(L"\nMultiodkaz se nepodařilo sestavit, text zůstává.");
        return;
    }
    zdroj->erase();
    if (staryOdkaz.object())
        staryOdkaz->erase();
}

} // namespace

bool VyberOdkazNeboBod(AcGePoint3dArray& sipky, AcDbEntityPointer& staryOdkaz)
{
    sipky.removeAll();
    staryOdkaz.close();
    for (;;) {
        ads_name jmeno = {0, 0};
        ads_point bod = {0, 0, 0};
        const int vysledek = acedEntSel(L"\nVyber LEADER, MLEADER nebo stiskni Enter pro bod: ", jmeno, bod);
        if (vysledek == RTCAN)
            return false;
        if (vysledek == RTNONE || vysledek == RTERROR) {
            // As the host gives it, in the current UCS.
            if (acedGetPoint(nullptr, L"\nZadej bod: ", bod) != RTNORM)
                return false;
            sipky.append(AcGePoint3d(bod[0], bod[1], bod[2]));
            return true;
        }
        if (vysledek != RTNORM)
            return false;
        AcDbObjectId id;
        if (acdbGetObjectId(id, jmeno) != Acad::eOk) {
            acutPrintf(L"\nNepodařilo se získat ObjectId.");
            continue;
        }
        if (staryOdkaz.open(id, AcDb::kForWrite) != Acad::eOk) {
            acutPrintf(L"\nEntitu se nepodařilo otevřít.");
            continue;
        }
        if (const AcDbLeader* leader = AcDbLeader::cast(staryOdkaz.object())) {
            if (leader->numVertices() == 0) {
                staryOdkaz.close();
                acutPrintf(L"\nLEADER nemá žádné vrcholy.");
                continue;
            }
            sipky.append(leader->vertexAt(0));
            return true;
        }
        if (const AcDbMLeader* odkaz = AcDbMLeader::cast(staryOdkaz.object())) {
            AcArray<int> odkazy;
            if (odkaz->getLeaderIndexes(odkazy) != Acad::eOk) {
                staryOdkaz.close();
                acutPrintf(L"\nNepodařilo se získat leader indexy.");
                continue;
            }
            SipkyMultiodkazu(odkaz, sipky);
            if (MaText(odkaz) &&
                MessageBoxW(adsw_acadMainWnd(),
                            L"Vybraný multiodkaz už obsahuje text.\n\nChcete smazat celý multiodkaz včetně textu?",
                            L"Togovy Utility pro AutoCad", MB_YESNO | MB_ICONQUESTION | MB_DEFBUTTON2) != IDYES) {
                staryOdkaz.close();
                return false;
            }
            return !sipky.isEmpty();
        }
        staryOdkaz.close();
        acutPrintf(L"\nVybraný objekt není LEADER ani MLEADER (multiodkaz).");
    }
}

void PrikazCmm() { ProvedPrikaz(Cmm); }
