// Joining of collinear lines (sp): lines on one straight line, touching or not, become one line over
// the whole extent of the group.
#pragma once
#include <map>
#include <utility>
#include <vector>
#include "acutads.h"
#include "dbid.h"
#include "gegbl.h"
#include "geline2d.h"

/// One selected line.
struct UsekaSpoje {
    AcGeLine2d primka;
    AcGePoint2d zacatek, konec;
    AcGeTol tolerance;
    AcDbObjectId id;
};

/// Groups of lines on one straight line, by the index of their first line: each line of a group lies
/// within the tolerance of the first line's line, and that one within the tolerance of it. A line
/// joins the first group that takes it; a line that no other joins forms no group.
std::map<int, std::vector<int>> SeskupKolinearni(const std::vector<UsekaSpoje>& usecky);

/// The two points farthest apart of the distinct ends of the group's lines (ends equal within the
/// tolerance count once; of equally distant pairs the first stays).
std::pair<AcGePoint2d, AcGePoint2d> KrajniBody(const std::vector<UsekaSpoje>& usecky, const std::vector<int>& skupina);

/// One run of `sp`.
class CTogSpojUsecky {
public:
    CTogSpojUsecky() = default;
    ~CTogSpojUsecky();
    CTogSpojUsecky(const CTogSpojUsecky&) = delete;
    CTogSpojUsecky& operator=(const CTogSpojUsecky&) = delete;

    /// Asks for the lines, joins the groups and reports.
    void Proved();

private:
    std::vector<UsekaSpoje> m_usecky;
    ads_name m_vyber = {0, 0};
    bool m_maVyber = false;
    std::map<int, std::vector<UsekaSpoje>> m_skupiny;
};

/// `sp`: merges collinear lines.
void PrikazSp();
