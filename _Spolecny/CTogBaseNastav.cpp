// CTogBaseNastav: the one settings object, read from the registry at load and stored at unload.
#include "StdAfx.h"
#include "CTogBaseNastav.h"
#include "CTogException.h"
#include "CTogRegistry.h"
#include "CTogSezMaterialu.h"
#include "_Dialogs/CTgDlgNastaveni.h"

CTogBaseNastav* g_pNastaveni = nullptr;

namespace {

bool g_existuje = false;

} // namespace

CTogBaseNastav::CJedinaInstance::CJedinaInstance()
{
    if (g_existuje)
        throw CTogException("CTogBaseNastav: Pouze jedna instance třídy je povolena.", __LINE__, __FILE__);
    g_existuje = true;
}

CTogBaseNastav::CJedinaInstance::~CJedinaInstance() { g_existuje = false; }

// The members start at their start values; the prefix object reads the global prefix itself.
CTogBaseNastav::CTogBaseNastav()
{
    Adesk::UInt8 nastaveno = 0;
    if (CTogRegistry::NactiNastaveno(nastaveno))
        NASTAVENO = nastaveno;
    // 16 bits are stored; the word is sign-extended as it always was.
    Adesk::Int16 prepinace = 0;
    if (CTogRegistry::NactiGlobPrepinace(prepinace))
        Glob_prepinace = static_cast<std::uint32_t>(static_cast<std::int32_t>(prepinace));
}

CTogBaseNastav::~CTogBaseNastav()
{
    // The application is going away: a value that can't be stored is lost, the unload goes on.
    try {
        CTogRegistry::UlozNastaveno(NASTAVENO);
    } catch (const std::exception&) {
    }
    try {
        CTogRegistry::UlozGlobPrepinace(static_cast<Adesk::Int16>(Glob_prepinace & 0xFFFF));
    } catch (const std::exception&) {
    }
    // The catalogue goes first: its materials let go of the current material's link.
    m_katalog.reset();
    try {
        CTogRegistry::UlozRetezec(CTogRegistry::kKlicSpolecny, CTogPredpony::kNazevHodnoty, m_predpony.globalni);
    } catch (const std::exception&) {
    }
}

bool CTogBaseNastav::JeZodpovezeno(std::uint32_t klic) const { return m_odpovedi.find(klic) == m_odpovedi.end(); }

void CTogBaseNastav::ZapamatujOdpoved(std::uint32_t klic, std::uint32_t hodnota) { m_odpovedi.emplace(klic, hodnota); }

void CTogBaseNastav::SpustDialogNastaveni()
{
    // The dialog stores the prefixes itself on OK; the word of switches reaches the registry at unload.
    CTgDlgNastaveni dialog(&m_predpony, m_predpony.globalni.kwszPtr(), Glob_prepinace, AfxGetMainWnd());
    if (dialog.DoModal() != IDOK)
        return;
    NASTAVENO = 1;
    m_predpony.globalni = dialog.m_globalni.GetString();
    Glob_prepinace = dialog.m_prepinace;
}
