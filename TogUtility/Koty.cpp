// Pipe dimensioning command (ko): the picks of the pipe, the text from the current material, the
// dimension on the layer "kóty" in the style TG_VODA1 (one line) or TG_VODA2 (two lines).
#include "StdAfx.h"
#include "Koty.h"
#include "CTogAc.h"
#include "CTogAnno.h"
#include "CTogBaseNastav.h"
#include "CTogException.h"
#include "CTogFunkce.h"
#include "CTogFunkceDWG.h"
#include "CTogProfil.h"
#include "CTogSet.h"
#include "KotyGeometrie.h"
#include "OkrajPrikazu.h"
#include "TogDraw.h"
#include "VyberJedne.h"
#include "dbdim.h"
#include "dbobjptr.h"
#include <memory>
#include <optional>

namespace {

AcDbDatabase* PracovniDatabaze() { return acdbHostApplicationServices()->workingDatabase(); }

const ACHAR* NazevMaterialu()
{
    CTogMaterial* m = g_pNastaveni->AktualniMaterial();
    return m ? m->Nazev.GetString() : L"";
}

void NastavOsmode(int hodnota)
{
    resbuf rb{};
    rb.restype = RTSHORT;
    rb.resval.rint = static_cast<short>(hodnota);
    acedSetVar(L"OSMODE", &rb);
}

// Snaps to the nearest point while the pipe is picked, when the settings ask for it; the old value
// comes back on every way out.
class UchopeniNaBliziko {
public:
    UchopeniNaBliziko() : m_puvodni(CTogAc::NactiPromennou(L"OSMODE"))
    {
        if (g_pNastaveni->Prepinac(kPrednastavovatUchopeni)) {
            NastavOsmode(512);
            m_zmeneno = true;
        }
    }
    ~UchopeniNaBliziko() { Obnov(); }
    UchopeniNaBliziko(const UchopeniNaBliziko&) = delete;
    UchopeniNaBliziko& operator=(const UchopeniNaBliziko&) = delete;
    void Obnov()
    {
        if (m_zmeneno)
            NastavOsmode(m_puvodni);
        m_zmeneno = false;
    }

private:
    int m_puvodni;
    bool m_zmeneno = false;
};

// The preview goes off the screen whatever way the text prompt ends.
struct NahledNaObrazovce {
    ~NahledNaObrazovce() { TogDraw::SmazZnacky(); }
};

struct CaraTrubky {
    AcGePoint2d s, e;
};

CaraTrubky NactiCaru(const ads_name jmeno, const char* chyba)
{
    AcDbObjectId id;
    acdbGetObjectId(id, jmeno);
    AcDbObjectPointer<AcDbLine> cara(id, AcDb::kForRead);
    if (cara.openStatus() != Acad::eOk)
        throw CTogException(chyba, __LINE__, __FILE__, cara.openStatus());
    return {AcGePoint2d(cara->startPoint().x, cara->startPoint().y), AcGePoint2d(cara->endPoint().x, cara->endPoint().y)};
}

AcDbObjectId KotovyStyl(const ACHAR* nazev)
{
    AcDbObjectId id = IdKotaStylu(nazev);
    if (id.isNull())
        if (const StdKotaStyl* styl = NajdiStdKotaStyl(nazev))
            id = ZalozKotaStyl(*styl);
    return id;
}

AcGePoint3d Bod3d(const AcGePoint2d& b) { return AcGePoint3d(b.x, b.y, 0.0); }

// What the preview and the dimension share: the layer, the style and the place of the text.
void Nastav(AcDbAlignedDimension& kota, AcDbObjectId hladina, AcDbObjectId styl, const AcGePoint2d& text)
{
    kota.setLayer(hladina);
    kota.setDimstyleData(styl);
    kota.setTextPosition(Bod3d(text));
}

} // namespace

int VyberBod(const ads_point zaklad, const ACHAR* vyzva, bool caraNutna, ads_point bod, ads_name cara)
{
    g_pNastaveni->AktualniMaterial();
    for (;;) {
        acedInitGet(RSG_2D, L"Materiál");
        AcString text(vyzva);
        text += L" [Materiál], (";
        text += NazevMaterialu();
        text += L") <Materiál>: ";
        const int rc = acedGetPoint(zaklad, text.constPtr(), bod);
        if (rc == RTNORM) {
            FiltrTypu filtr({L"LINE"});
            ads_name sada;
            if (acedSSGet(nullptr, bod, nullptr, filtr.Retezec(), sada) == RTNORM) {
                const int nalezeno = acedSSName(sada, 0, cara);
                acedSSFree(sada);
                if (nalezeno == RTNORM)
                    return RTNORM;
            }
            if (!caraNutna)
                return RTNONE;
            acutPrintf(L"\nJe třeba zadat bod na úsečce (trubce)!!!");
        } else if (rc == RTNONE || rc == RTKWORD) {
            g_pNastaveni->VyberMaterial();
        } else if (rc == RTERROR || rc == RTCAN || rc == RTREJ) {
            acutPrintf(L"\nESC - konec...");
            return RTCAN;
        }
    }
}

bool ZadejText(AcString& text)
{
    constexpr size_t kDelka = 512;
    ACHAR odpoved[kDelka] = {};
    for (;;) {
        acedInitGet(0, L"Materiál _ Ručně");
        AcString vyzva(L"\nZadej vnitřní průměr trubky (přibližně), nebo zadej text, nebo [Materiál/zadej Ručně], (");
        vyzva += NazevMaterialu();
        vyzva += L") <Zadej Ručně>: ";
        const int rc = acedGetString(1, vyzva.constPtr(), odpoved, kDelka);
        if (rc == RTREJ || rc == RTCAN || rc == RTERROR) {
            acutPrintf(L"\nESC - konec...");
            return false;
        }
        if (rc != RTNONE && rc != RTNORM)
            continue;
        if (rc == RTNORM && odpoved[0] != L'\0') {
            AcString s = CTogFunkce::OrizniOddelovace(AcString(odpoved));
            CTogFunkce::NaVelka(s);
            if (s == L"M" || s == L"MATERIÁL") {
                g_pNastaveni->VyberMaterial();
                continue;
            }
            if (s != L"R" && s.find(L"RUČNĚ") < 0) {
                if (KotyGeometrie::JenCislice(odpoved)) {
                    CTogMaterial* material = g_pNastaveni->AktualniMaterial();
                    const CTogProfil* profil = material ? material->NajdiProfil(std::wcstod(odpoved, nullptr)) : nullptr;
                    text = profil ? profil->Popisek : L"0x0";
                } else {
                    text = odpoved;
                }
                return true;
            }
        }
        odpoved[0] = L'\0';
        const int rucne = acedGetString(1, L"\nZadej text kóty: ", odpoved, kDelka);
        text = odpoved;
        return rucne == RTNORM;
    }
}

void PrikazKo()
{
    ProvedPrikaz([] {
        AcDbDatabase* db = PracovniDatabaze();
        const double m = CTogFunkceDWG::MeritkoAnotace();
        const double a = 7.0 * m;
        const double b = 1.5 * m;

        ads_point bod1, bod2;
        ads_name cara1, cara2;
        bool dveCary = false;
        {
            UchopeniNaBliziko uchopeni;
            if (VyberBod(nullptr, L"\nVyber první trubku", true, bod1, cara1) != RTNORM)
                return;
            const int rc = VyberBod(bod1, L"\nVyber druhou trubku", false, bod2, cara2);
            if (rc == RTCAN)
                return;
            dveCary = rc == RTNORM;
            uchopeni.Obnov();
        }
        const AcGePoint2d pick1 = CTogFunkceDWG::UcsNaWcs(AcGePoint2d(bod1[X], bod1[Y]));
        const AcGePoint2d pick2 = CTogFunkceDWG::UcsNaWcs(AcGePoint2d(bod2[X], bod2[Y]));

        const double tol = CTogFunkceDWG::Jednotek20mm(db);
        const CaraTrubky prvni = NactiCaru(cara1, "Nelze otevřít úsečku - trubku1 pro čtení");
        std::optional<KotyGeometrie::BodyKoty> body;
        if (dveCary) {
            const CaraTrubky druha = NactiCaru(cara2, "Nelze otevřít úsečku - trubku2 pro čtení");
            body = KotyGeometrie::DveCary(prvni.s, prvni.e, pick1, druha.s, druha.e, pick2, a, tol);
        } else {
            body = KotyGeometrie::JednaCara(prvni.s, prvni.e, pick1, pick2, a, b, tol);
        }
        if (!body) {
            acutPrintf(L"\nDruhý bod leží na stejné trubce - nelze určit stranu");
            return;
        }

        AcString nazevHladiny(L"kóty");
        const AcDbObjectId hladina = ZiskejHladinu(nazevHladiny, false);
        const AcDbObjectId styl = KotovyStyl(dveCary ? L"TG_VODA2" : L"TG_VODA1");
        if (hladina.isNull() || styl.isNull())
            throw CTogException("Nelze vytvořit hladinu kóty nebo styl kóty", __LINE__, __FILE__);

        AcString text;
        {
            NahledNaObrazovce nahled;
            auto kota = std::make_unique<AcDbAlignedDimension>(Bod3d(body->p1), Bod3d(body->p2), Bod3d(body->text),
                                                               dveCary ? L"2x....." : L"");
            kota->setDatabaseDefaults(db);
            Nastav(*kota, hladina, styl, body->text);
            CTogAnno::NastavAnnotative(kota.get());
            // The marks own it from here on.
            TogDraw::PridejZnacku(kota.release());
            if (!ZadejText(text))
                return;
        }

        AcDbObjectPointer<AcDbAlignedDimension> kota;
        kota.create();
        kota->setXLine1Point(Bod3d(body->p1));
        kota->setXLine2Point(Bod3d(body->p2));
        kota->setDimLinePoint(Bod3d(body->text));
        kota->setDimensionText(KotyGeometrie::TextKoty(text, dveCary).constPtr());
        kota->setDatabaseDefaults(db);
        kota->setLayer(hladina);
        {
            AcDbBlockTableRecordPointer model(ACDB_MODEL_SPACE, db, AcDb::kForWrite);
            if (model.openStatus() != Acad::eOk)
                throw CTogException("Nelze otevřít pBlockTableRecord Modelu", __LINE__, __FILE__, model.openStatus());
            const Acad::ErrorStatus es = model->appendAcDbEntity(kota);
            if (es != Acad::eOk)
                throw CTogException("Nelze vytvořit kótu", __LINE__, __FILE__, es);
        }
        CTogAnno::PridejAktualniMeritko(kota, db);
        Nastav(*kota, hladina, styl, body->text);

        AcGeMatrix3d ucs;
        acedGetCurrentUCS(ucs);
        AcGePoint3d pocatek;
        AcGeVector3d osaX, osaY, osaZ;
        ucs.getCoordSystem(pocatek, osaX, osaY, osaZ);
        kota->setHorizontalRotation(
            KotyGeometrie::VodorovneOtoceni(osaX, osaZ, KotyGeometrie::OsaXEntity(kota->normal())));
    });
}
