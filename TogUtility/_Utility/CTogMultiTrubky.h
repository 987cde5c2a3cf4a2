// Multi-pipe drawing command (mut): a bundle of parallel pipes along picked points, one LINE per pipe
// and section, each pipe on its own layer, cut at the corners so that the spacing holds round a bend.
#pragma once
#include <memory>
#include <vector>
#include "AcString.h"
#include "dbid.h"
#include "gegbl.h"
#include "gepnt2d.h"

class CTogMultiTrubky;
struct Usek;

/// One line of a section.
struct UsekCary {
    AcGePoint2d zacatek, konec;
    AcDbObjectId hladina;
    Usek* vlastnik = nullptr;
    AcDbObjectId idCary;
};

/// One section of the bundle between two picked points.
struct Usek {
    CTogMultiTrubky* vlastnik = nullptr;
    Usek* predchozi = nullptr;
    std::vector<std::unique_ptr<UsekCary>> cary;
    bool Prohozeno = false; ///< the pipe order was swapped at this section's start
    double Roztec = 0.0;
    AcGePoint2d S, E;
};

/// One run of `mut`. The settings (spacing, guide, layers) come from the drawing and go back to it when
/// the run ends, however it ends.
class CTogMultiTrubky {
public:
    static constexpr const ACHAR* kSkupina = L"DlgMultiTrubky";

    /// Reads the settings and finds or creates the layers; throws "Nelze založit standardní hladiny".
    CTogMultiTrubky();
    ~CTogMultiTrubky();
    CTogMultiTrubky(const CTogMultiTrubky&) = delete;
    CTogMultiTrubky& operator=(const CTogMultiTrubky&) = delete;

    /// Asks for the start point, opening the settings on request; false when the command is to end.
    bool ZadejPocatek();
    /// Asks for the next points until the user ends.
    void KresliUseky();

    /// Draws the section (owned by the caller until it succeeds); false when the corner check refuses it.
    bool PostavUsek(Usek& usek);
    /// Takes the last section back; `b` becomes its start.
    void Zpet(AcGePoint2d& b);
    /// Reverses the order of the pipes.
    void Prohod();
    /// Opens the settings dialog and takes its values.
    void Nastaveni();

    int TypVedeni = 2;
    AcGeTol Tolerance;
    double Roztec = 0.0;
    std::vector<std::unique_ptr<Usek>> Useky;
    std::vector<AcDbObjectId> HladinyId;
    std::vector<AcString> Hladiny; ///< in pipe order: the first pipe runs on the guide's side
    AcGePoint2d Pocatek;

private:
    /// HladinyId from Hladiny.
    void NajdiHladiny();
    /// Metres per drawing unit.
    double m_metruNaJednotku = 0.001;
};

/// `mut`: draws bundles of parallel pipes.
void PrikazMut();
