// The import of surveyed points into model space.
#include "StdAfx.h"
#include "NacteniBodu.h"

#include <filesystem>
#include <fstream>
#include <iterator>

#include "CTogException.h"
#include "commdlg.h"

namespace {

/// The path chosen in the open-file dialog; empty on cancel.
std::wstring VyberSoubor()
{
    wchar_t cesta[MAX_PATH] = {};
    OPENFILENAMEW ofn = {};
    ofn.lStructSize = sizeof(ofn);
    ofn.hwndOwner = adsw_acadMainWnd();
    ofn.lpstrFilter = L"Hodnoty oddělené středníkem (csv excel)\0*.csv\0";
    ofn.nFilterIndex = 1;
    ofn.lpstrFile = cesta;
    ofn.nMaxFile = MAX_PATH;
    ofn.lpstrTitle = L"Vyhledej soubor pro načtení csv";
    ofn.Flags = OFN_FILEMUSTEXIST | OFN_PATHMUSTEXIST;
    return GetOpenFileNameW(&ofn) ? std::wstring(cesta) : std::wstring();
}

void Chyba(const ACHAR* text, const ACHAR* titulek)
{
    HWND okno = adsw_acadMainWnd();
    MessageBoxW(okno ? okno : GetActiveWindow(), text, titulek, MB_OK | MB_ICONERROR);
}

/// Gives the model space of the database, open for write.
void OtevriModel(AcDbDatabase* db, AcDbBlockTableRecordPointer& model)
{
    AcDbObjectId id;
    if (AcDbBlockTablePointer tabulka(db, AcDb::kForRead); tabulka.openStatus() == Acad::eOk)
        tabulka->getAt(ACDB_MODEL_SPACE, id);
    if (model.open(id, AcDb::kForWrite) != Acad::eOk)
        throw CTogException("Nelze otevřít pBlockTableRecord Modelu", __LINE__, __FILE__, model.openStatus());
}

/// Layer 0 with line type, colour and line weight by layer.
void DleHladiny0(AcDbEntity& e)
{
    e.setLayer(L"0");
    e.setLinetype(L"BYLAYER");
    e.setColorIndex(256);
    e.setLineWeight(AcDb::kLnWtByLayer);
}

} // namespace

bool NactiBody(std::vector<BodGPS>& body, FormaBodu forma)
{
    body.clear();
    std::wstring cesta = VyberSoubor();
    if (cesta.empty())
        return false;
    std::ifstream soubor(std::filesystem::path(cesta), std::ios::binary);
    if (!soubor)
        return false;
    try {
        std::string obsah((std::istreambuf_iterator<char>(soubor)), std::istreambuf_iterator<char>());
        for (const std::wstring& radek : RadkyBodu(obsah))
            body.push_back(RozeberRadek(radek, forma));
    } catch (const std::exception& e) {
        body.clear();
        ZobrazVyjimku(e);
        return false;
    } catch (...) {
        body.clear();
        Chyba(L"Nelze číst ze souboru\npoškozený soubor nebo nulová délka", L"Nedefinovaná výjimka");
        return false;
    }
    return true;
}

void VlozBody(FormaBodu forma)
{
    std::vector<BodGPS> body;
    if (!NactiBody(body, forma) || body.empty())
        return;
    AcDbDatabase* db = acdbHostApplicationServices()->workingDatabase();
    AcDbBlockTableRecordPointer model;
    OtevriModel(db, model);
    for (const BodGPS& bod : body) {
        const AcGePoint3d p(-bod.y, -bod.x, 0.0);
        const auto barva = static_cast<Adesk::UInt16>(2 * bod.druh + 1);

        AcDbObjectPointer<AcDbCircle> kruh;
        kruh.create();
        DleHladiny0(*kruh);
        kruh->setCenter(p);
        kruh->setRadius(0.5);
        if (model->appendAcDbEntity(kruh.object()) == Acad::eOk)
            kruh->setColorIndex(barva);

        wchar_t popis[128];
        std::swprintf(popis, 128, L"%ls - %.2f m", bod.nazev.c_str(), bod.vyska);
        AcDbObjectPointer<AcDbText> text;
        text.create();
        text->setPosition(p);
        text->setTextString(popis);
        text->setHeight(0.5);
        text->setRotation(0.0);
        text->setWidthFactor(1.0);
        text->setHorizontalMode(AcDb::kTextLeft);
        text->setVerticalMode(AcDb::kTextBase);
        text->setTextStyle(db->textstyle());
        DleHladiny0(*text);
        text->setColorIndex(barva);
        model->appendAcDbEntity(text.object());
    }
}
