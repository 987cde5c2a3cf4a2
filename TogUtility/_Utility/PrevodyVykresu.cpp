// The operations of kub, z0, ssa, lt1 and SMAZTEXTY on one entity each.
#include "StdAfx.h"
#include "PrevodyVykresu.h"
#include <memory>
#include "CTogBaseNastav.h"

namespace {

// Windows-1250 bytes of the Czech and Slovak letters with caron or ring, as Latin-1 shows them, and
// the letters they stand for.
constexpr const wchar_t* kStare = L"\u00E8\u00EF\u00EC\u00BE\u00F2\u00F8\u009D\u00F9\u00C8\u00BC\u00D2\u00D8\u008D\u00D9\u00CC\u00CF";
constexpr const wchar_t* kNove = L"\u010D\u010F\u011B\u013E\u0148\u0159\u0165\u016F\u010C\u013D\u0147\u0158\u0164\u016E\u011A\u010E";

// Upgrades an object that the walker's transaction opened for read; false when it can't be written
// (an entity on a locked layer).
bool ProZapis(AcDbObject* objekt)
{
    Acad::ErrorStatus es = objekt->upgradeOpen();
    return es == Acad::eOk || es == Acad::eWasOpenForWrite;
}

// The ByLayer switches of the settings, in the order line type, line weight, colour.
void NastavByLayer(AcDbEntity* entita, std::uint32_t prepinace)
{
    if (prepinace & kByLayerTypCary)
        entita->setLinetype(entita->database()->byLayerLinetype(), true);
    if (prepinace & kByLayerTloustka)
        entita->setLineWeight(AcDb::kLnWtByLayer, true);
    if (prepinace & kByLayerBarva)
        entita->setColorIndex(256, true);
}

AcGePoint3d NaNulu(AcGePoint3d bod)
{
    bod.z = 0.0;
    return bod;
}

} // namespace

int OpravHacky(std::wstring& text)
{
    int pocet = 0;
    for (wchar_t& znak : text)
        for (int i = 0; kStare[i] != 0; ++i)
            if (znak == kStare[i]) {
                znak = kNove[i];
                ++pocet;
                break;
            }
    return pocet;
}

Adesk::Int32 TogUPrevodnikHacku::Zpracuj(AcDbObjectId id)
{
    AcDbObject* objekt = Otevri(id, AcDb::kForRead);
    if (objekt == nullptr)
        return -1;
    AcDbMText* mtext = AcDbMText::cast(objekt);
    if (mtext == nullptr)
        return 0;
    if (!ProZapis(mtext))
        return -1;
    AcString obsah;
    mtext->contents(obsah);
    std::wstring text = obsah.kwszPtr();
    OpravHacky(text);
    mtext->setContents(text.c_str());
    return 1;
}

Adesk::Int32 TogUPrevodZNaNulu::Zpracuj(AcDbObjectId id)
{
    AcDbObject* objekt = Otevri(id, AcDb::kForRead);
    if (objekt == nullptr)
        return -1;
    AcDbEntity* entita = AcDbEntity::cast(objekt);
    if (entita == nullptr)
        return 0;
    const bool podporovany = AcDbLine::cast(entita) || AcDbPolyline::cast(entita) || AcDbCircle::cast(entita) ||
                             AcDbArc::cast(entita) || AcDbText::cast(entita) || AcDbMText::cast(entita) ||
                             AcDbBlockReference::cast(entita);
    if (!podporovany)
        return 0;
    if (!ProZapis(entita))
        return -1;

    auto vysledek = [](Acad::ErrorStatus es) { return es == Acad::eOk ? 1 : 0; };
    if (AcDbLine* usecka = AcDbLine::cast(entita)) {
        if (usecka->startPoint().z == 0.0 && usecka->endPoint().z == 0.0)
            return 0;
        Acad::ErrorStatus es = usecka->setStartPoint(NaNulu(usecka->startPoint()));
        if (es == Acad::eOk)
            es = usecka->setEndPoint(NaNulu(usecka->endPoint()));
        return vysledek(es);
    }
    if (AcDbPolyline* polylinie = AcDbPolyline::cast(entita)) {
        bool bylaNaNule = polylinie->elevation() == 0.0;
        polylinie->setElevation(0.0);
        return bylaNaNule ? 0 : 1;
    }
    if (AcDbCircle* kruznice = AcDbCircle::cast(entita))
        return kruznice->center().z == 0.0 ? 0 : vysledek(kruznice->setCenter(NaNulu(kruznice->center())));
    if (AcDbArc* oblouk = AcDbArc::cast(entita))
        return oblouk->center().z == 0.0 ? 0 : vysledek(oblouk->setCenter(NaNulu(oblouk->center())));
    if (AcDbText* text = AcDbText::cast(entita))
        return text->position().z == 0.0 ? 0 : vysledek(text->setPosition(NaNulu(text->position())));
    if (AcDbMText* mtext = AcDbMText::cast(entita))
        return mtext->location().z == 0.0 ? 0 : vysledek(mtext->setLocation(NaNulu(mtext->location())));
    AcDbBlockReference* reference = AcDbBlockReference::cast(entita);
    return reference->position().z == 0.0 ? 0 : vysledek(reference->setPosition(NaNulu(reference->position())));
}

Adesk::Int32 TogUZmenMeritkoLT::Zpracuj(AcDbObjectId id)
{
    AcDbEntity* entita = AcDbEntity::cast(Otevri(id, AcDb::kForWrite));
    if (entita == nullptr)
        return -1;
    entita->setLinetypeScale(entita->linetypeScale() * modifikator, true);
    NastavByLayer(entita, prepinace);
    return 1;
}

Adesk::Int32 TogUZmenLTScaleNaJedna::Zpracuj(AcDbObjectId id)
{
    AcDbEntity* entita = AcDbEntity::cast(Otevri(id, AcDb::kForWrite));
    if (entita == nullptr)
        return -1;
    entita->setLinetypeScale(1.0, true);
    NastavByLayer(entita, prepinace);
    return 1;
}

Adesk::Int32 SmazTextObsahujici::Zpracuj(AcDbObjectId id)
{
    try {
        AcDbObject* objekt = Otevri(id, AcDb::kForRead);
        if (objekt == nullptr)
            return -1;
        AcDbEntity* entita = AcDbEntity::cast(objekt);
        if (entita == nullptr)
            return 0;

        AcDbObject* vrstva = nullptr;
        if (m_pTransakce->getObject(vrstva, entita->layerId(), AcDb::kForRead) != Acad::eOk)
            return -1;
        AcDbLayerTableRecord* hladina = AcDbLayerTableRecord::cast(vrstva);
        if (hladina == nullptr)
            return -1;
        // Hidden texts stay and count as not changed.
        if (hladina->isOff() || hladina->isFrozen())
            return -1;

        AcString text;
        if (AcDbText* jednoradkovy = AcDbText::cast(entita))
            jednoradkovy->textString(text);
        else if (AcDbMText* mtext = AcDbMText::cast(entita))
            mtext->contents(text);
        else if (AcDbMLeader* odkaz = AcDbMLeader::cast(entita)) {
            if (odkaz->contentType() != AcMLeaderStyle::kMTextContent)
                return 0;
            std::unique_ptr<AcDbMText> obsah(odkaz->mtext());
            if (obsah == nullptr)
                return 0;
            obsah->contents(text);
        } else
            return 0;
        if (hledany.empty())
            return 0;
        if (std::wstring_view(text.kwszPtr()).find(hledany) == std::wstring_view::npos)
            return 0;

        if (!ProZapis(entita))
            return -1;
        return entita->erase() == Acad::eOk ? 1 : -1;
    } catch (...) {
        return -1;
    }
}
