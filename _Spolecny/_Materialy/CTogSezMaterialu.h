// CTogSezMaterialu: the pipe catalogue, every material by name, read from and written to .tgp files.
#pragma once
#include <afx.h>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>
#include "CTogMaterial.h"

/// A filter of materials: group mask in the low half, media mask in the high half.
constexpr std::uint64_t FiltrMaterialu(int skupina, int pouziti)
{
    return static_cast<std::uint32_t>(skupina) | (static_cast<std::uint64_t>(static_cast<std::uint32_t>(pouziti)) << 32);
}
constexpr std::uint64_t kFiltrVse = FiltrMaterialu(kSkupinyVse, kPouzitiVse);

/// True when the material shares a bit with the filter's group mask and one with its media mask.
bool ProjdeFiltrem(const CTogMaterial& material, std::uint64_t filtr);

class CTogSezMaterialu : public CObject {
public:
    /// Keys compare by exact code-unit order, case-sensitive.
    using MapaMaterialu = std::map<std::wstring, std::unique_ptr<CTogMaterial>>;

    static constexpr const ACHAR* kStandardniSoubor = L"Potrubi_std_2026.tgp";
    static constexpr const ACHAR* kUzivatelskySoubor = L"Potrubi_2026.tgp";
    static constexpr const ACHAR* kStaryUzivatelskySoubor = L"Potrubi.tgp";

    CTogSezMaterialu();
    CTogSezMaterialu(const CTogSezMaterialu& zdroj);
    /// Deletes the materials; those that left the list for their holders too.
    ~CTogSezMaterialu() override;
    /// Vymaz(true), then copies of the source's materials (holders included) and its saved flag.
    CTogSezMaterialu& operator=(const CTogSezMaterialu& zdroj);

    /// Loads the standard file, or the user's file (falling back to the standard one, which is then
    /// saved as the user's). The file merges into the list. False after a failure, which the user
    /// has been shown; what was read before it stays.
    bool Nacti(bool standard);
    /// Writes the user's file (never the standard file); true for an empty list without writing.
    bool Uloz();
    /// Reads (merging) or writes the list record and its materials.
    void Serialize(CArchive& ar) override;

    bool NajdiMaterial(const ACHAR* nazev, CTogMaterial*& material) const;
    CTogMaterial* NajdiMaterial(const ACHAR* nazev) const;
    /// Inserts a material under its name; null (the material deleted) when the name is taken.
    CTogMaterial* Vloz(std::unique_ptr<CTogMaterial> material);
    /// False for an unknown name or a material with holders; else deletes it.
    bool VymazMaterial(const ACHAR* nazev);
    /// False when another material has the name; else re-keys the material and sets its Nazev.
    bool Prejmenuj(const ACHAR* novyNazev, CTogMaterial* material);
    /// Empties the list. With `jenNepouzite` materials with holders stay alive for them (the list
    /// keeps them apart until their holders leave) instead of being deleted.
    void Vymaz(bool jenNepouzite);
    /// Empties the holder lists of every material and profile, leaving the holders alone.
    void VymazOdkazy();
    /// Aims every holder listed by a material or profile of this list at that object.
    void ZnovuZamerOdkazy();

    MapaMaterialu Materialy;
    bool Ulozeno = true;

private:
    /// Materials that left the list while holders still pointed at them.
    std::vector<std::unique_ptr<CTogMaterial>> m_odlozene;
    void UklidOdlozene();
};
