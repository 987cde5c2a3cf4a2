// CTogBaseNastav: the one settings object of the application (g_pNastaveni). Global switches, the
// first-run mark, the layer prefix, answers to questions that are not asked again until unload.
#pragma once
#include <cstdint>
#include <map>
#include <memory>
#include "AcString.h"
#include "adesk.h"
#include "CTogMaterial.h"
#include "CTogOdkaz.h"
#include "CTogPredpony.h"

class CTogSezMaterialu;
class CWnd;

/// Bits of Glob_prepinace.
enum GlobPrepinac : std::uint32_t {
    kVicenasobnyVyber = 1,
    kTextJakoMText = 2,
    kPrenastavovatHladiny = 4,
    kPrednastavovatUchopeni = 8,
    kAtributyNaPlose = 16,
    kIJednoradkoveAtributy = 32,
    kByLayerBarva = 64,
    kByLayerTypCary = 128,
    kByLayerTloustka = 256,
};

/// Keys of questions whose answers are remembered until unload.
constexpr std::uint32_t kOtazkaMaterial = 1;
constexpr std::uint32_t kOtazkaOdemknoutHladinu = 3;

class CTogBaseNastav {
    // Marks that an instance exists. The first member, so that a second instance is refused before
    // anything else is made, and the mark goes last.
    class CJedinaInstance {
    public:
        CJedinaInstance();
        ~CJedinaInstance();
        CJedinaInstance(const CJedinaInstance&) = delete;
        CJedinaInstance& operator=(const CJedinaInstance&) = delete;
    };
    CJedinaInstance m_jedina;

public:
    static constexpr std::uint32_t kVychoziPrepinace = 344;

    /// Throws CTogException "CTogBaseNastav: Pouze jedna instance třídy je povolena." for a second one.
    CTogBaseNastav();
    /// Stores NASTAVENO, Glob_prepinace and the global prefix; never throws.
    ~CTogBaseNastav();
    CTogBaseNastav(const CTogBaseNastav&) = delete;
    CTogBaseNastav& operator=(const CTogBaseNastav&) = delete;

    /// True when the question has no remembered answer yet and is to be asked.
    bool JeZodpovezeno(std::uint32_t klic) const;
    /// Remembers an answer; a key that is there stays unchanged.
    void ZapamatujOdpoved(std::uint32_t klic, std::uint32_t hodnota);
    /// Forgets a remembered answer, so that the question is asked again.
    void ZapomenOdpoved(std::uint32_t klic) { m_odpovedi.erase(klic); }

    /// Runs the settings dialog (command tuset and the first-run question).
    void SpustDialogNastaveni();

    /// The built-in name of the current material.
    static constexpr const ACHAR* kVychoziMaterial = L"PPR3, PN 16";
    /// The catalogue; made and loaded from the user's file at the first call.
    CTogSezMaterialu& Katalog();
    /// The current material of the current drawing: kept while the drawing stays the same, else found
    /// by the name stored in the drawing, in the registry or the built-in one (may ask the user).
    CTogMaterial* AktualniMaterial();
    /// The picker; on OK the pick becomes current and is stored in the drawing. Gives the current
    /// material.
    CTogMaterial* VyberMaterial(CWnd* rodic = nullptr);
    /// Stores the current material's five values in the drawing (group Koty).
    void UlozAktualniMaterial();
    /// Stores the material's five values in the registry as the user's default.
    void UlozVychoziMaterial(const CTogMaterial& material);
    /// A ZTI material of the name with the stored (or built-in) parameters and the profiles DN 10 to
    /// DN 100, inserted in the catalogue, which is saved unless its file could not be read (a file
    /// that is damaged or of a newer version stays as it is); it becomes current.
    CTogMaterial* VytvorVychoziMaterial(const ACHAR* nazev);
    /// The material editor on the catalogue (its working copy); the current material stays aimed at
    /// the catalogue's objects.
    void EditujMaterialy(CWnd* rodic = nullptr);

    bool Prepinac(std::uint32_t bit) const { return (Glob_prepinace & bit) != 0; }
    CTogPredpony& Predpony() { return m_predpony; }

    std::uint32_t Glob_prepinace = kVychoziPrepinace;
    Adesk::UInt8 NASTAVENO = 0;

private:
    std::map<std::uint32_t, std::uint32_t> m_odpovedi;
    CTogOdkaz<CTogMaterial> m_material;
    std::unique_ptr<CTogSezMaterialu> m_katalog;
    bool m_katalogNacten = false; ///< the first load went through: the user's file may be written over
    AcString m_otiskMaterialu; ///< the drawing the current material belongs to
    AcString m_nazevMaterialu;
    CTogPredpony m_predpony;
};

extern CTogBaseNastav* g_pNastaveni;
