// _-LAYER: the command-line form of the layer command: make, set, create and rename layers, turn
// them on and off, freeze, thaw, lock, unlock, and give them a colour, line type, line weight and
// plotting; name lists may hold wildcards.
#include <cmath>
#include <cwchar>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "acedads.h"
#include "dbobjptr.h"
#include "sim/editor/DbNames.h"
#include "sim/editor/InputParse.h"
#include "sim/editor/Keywords.h"
#include "sim/editor/SelectionFilter.h"
#include "sim/editor/Ucs.h"
#include "sim/commands/Commands.h"

namespace sim::commands {

using namespace sim::editor;

namespace {

/// A name or name list (blanks allowed); nothing when cancelled.
std::optional<std::wstring> ask(const std::wstring& prompt)
{
    ACHAR buf[512];
    if (acedGetString(1, prompt.c_str(), buf, 512) != RTNORM)
        return std::nullopt;
    return std::wstring(trimmed(buf));
}

std::vector<AcDbObjectId> allLayers(AcDbDatabase& db)
{
    std::vector<AcDbObjectId> ids;
    AcDbLayerTablePointer table(&db);
    if (table.openStatus() != Acad::eOk)
        return ids;
    AcDbLayerTableIterator* it = nullptr;
    if (table->newIterator(it) != Acad::eOk)
        return ids;
    for (; !it->done(); it->step()) {
        AcDbObjectId id;
        if (it->getRecordId(id) == Acad::eOk)
            ids.push_back(id);
    }
    delete it;
    return ids;
}

/// Applies change to every layer whose name the list (with wildcards) matches.
void forLayers(AcDbDatabase& db, const std::wstring& list, const std::function<void(AcDbLayerTableRecord&)>& change)
{
    int count = 0;
    for (AcDbObjectId id : allLayers(db)) {
        if (!wildcardMatch(recordName(id), list))
            continue;
        AcDbObjectPointer<AcDbLayerTableRecord> layer(id, AcDb::kForWrite);
        if (layer.openStatus() != Acad::eOk)
            continue;
        change(*layer);
        ++count;
    }
    if (count == 0)
        say(L"No matching layer(s) found.");
}

/// The layer of that name, made when it is missing; null when it cannot be made.
AcDbObjectId makeLayer(AcDbDatabase& db, const std::wstring& name)
{
    AcDbObjectId id = recordId<AcDbLayerTableRecord>(&db, name);
    if (!id.isNull())
        return id;
    AcDbLayerTablePointer table(&db, AcDb::kForWrite);
    if (table.openStatus() != Acad::eOk)
        return id;
    auto* rec = new AcDbLayerTableRecord;
    if (rec->setName(name.c_str()) != Acad::eOk || table->add(id, rec) != Acad::eOk) {
        delete rec;
        say(L"Invalid layer name \"%ls\".", name.c_str());
        return AcDbObjectId::kNull;
    }
    rec->setLinetypeObjectId(db.continuousLinetype());
    rec->close();
    return id;
}

std::vector<std::wstring> splitNames(const std::wstring& list)
{
    std::vector<std::wstring> names;
    size_t start = 0;
    for (;;) {
        size_t comma = list.find(L',', start);
        std::wstring n(trimmed(std::wstring_view(list).substr(start, comma == std::wstring::npos ? std::wstring::npos : comma - start)));
        if (!n.empty())
            names.push_back(n);
        if (comma == std::wstring::npos)
            return names;
        start = comma + 1;
    }
}

void setCurrent(AcDbDatabase& db, AcDbObjectId id, const std::wstring& name)
{
    AcDbObjectPointer<AcDbLayerTableRecord> layer(id);
    if (layer.openStatus() != Acad::eOk)
        return;
    if (layer->isFrozen()) {
        say(L"Cannot set current layer to frozen layer \"%ls\".", name.c_str());
        return;
    }
    db.setClayer(id);
}

void listLayers(AcDbDatabase& db)
{
    say(L"Layer name                      State        Color  Linetype");
    for (AcDbObjectId id : allLayers(db)) {
        AcDbObjectPointer<AcDbLayerTableRecord> l(id);
        if (l.openStatus() != Acad::eOk)
            continue;
        std::wstring state = std::wstring(l->isOff() ? L"Off " : L"On  ") + (l->isFrozen() ? L"Frozen " : L"Thawed ") +
                             (l->isLocked() ? L"Locked" : L"");
        say(L"%-32ls%-13ls%-7d%ls", recordName(id).c_str(), state.c_str(), static_cast<int>(l->color().colorIndex()),
                   recordName(l->linetypeObjectId()).c_str());
    }
}

/// Options that take a value and then a name list: colour, line type, line weight, plotting.
void valueOption(AcDbDatabase& db, const std::wstring& option)
{
    std::wstring current = recordName(db.clayer());
    if (option == L"Color") {
        auto valueAnswer = ask(L"\nNew color: ");
        if (!valueAnswer || valueAnswer->empty())
            return;
        std::wstring value = *valueAnswer;
        auto n = parseInt(value);
        static const wchar_t* names[] = {L"RED", L"YELLOW", L"GREEN", L"CYAN", L"BLUE", L"MAGENTA", L"WHITE"};
        int index = n ? *n : 0;
        for (int i = 0; i < 7; ++i)
            if (upperCase(value) == names[i])
                index = i + 1;
        if (index < 1 || index > 255) {
            say(L"Invalid color value.");
            return;
        }
        auto listAnswer = ask(L"\nEnter name list of layer(s) for color " + std::to_wstring(index) + L" <" + current + L">: ");
        if (!listAnswer)
            return;
        std::wstring list = *listAnswer;
        AcCmColor c;
        c.setColorIndex(static_cast<Adesk::UInt16>(index));
        forLayers(db, list.empty() ? current : list, [&](AcDbLayerTableRecord& l) { l.setColor(c); });
    } else if (option == L"Ltype") {
        auto nameAnswer = ask(L"\nEnter a loaded linetype name or [?] <Continuous>: ");
        if (!nameAnswer)
            return;
        std::wstring name = *nameAnswer;
        if (name.empty())
            name = L"Continuous";
        AcDbObjectId lt = recordId<AcDbLinetypeTableRecord>(&db, name);
        if (lt.isNull()) {
            say(L"Linetype \"%ls\" not found.  Use the LINETYPE command to load it.", name.c_str());
            return;
        }
        auto listAnswer = ask(L"\nEnter name list of layer(s) for linetype \"" + recordName(lt) + L"\" <" + current + L">: ");
        if (!listAnswer)
            return;
        std::wstring list = *listAnswer;
        forLayers(db, list.empty() ? current : list, [&](AcDbLayerTableRecord& l) { l.setLinetypeObjectId(lt); });
    } else if (option == L"LWeight") {
        double mm = 0;
        if (acedGetReal(L"\nEnter lineweight (0.0mm - 2.11mm): ", &mm) != RTNORM)
            return;
        static const int weights[] = {0, 5, 9, 13, 15, 18, 20, 25, 30, 35, 40, 50, 53, 60, 70, 80, 90, 100, 106, 120, 140, 158, 200, 211};
        int hundredths = static_cast<int>(std::lround(mm * 100.0));
        bool known = false;
        for (int w : weights)
            known = known || w == hundredths;
        if (!known) {
            say(L"Invalid lineweight.");
            return;
        }
        wchar_t prompt[96];
        std::swprintf(prompt, 96, L"\nEnter name list of layers(s) for lineweight %.2fmm <%ls>: ", hundredths / 100.0, current.c_str());
        auto listAnswer = ask(prompt);
        if (!listAnswer)
            return;
        std::wstring list = *listAnswer;
        forLayers(db, list.empty() ? current : list,
                  [&](AcDbLayerTableRecord& l) { l.setLineWeight(static_cast<AcDb::LineWeight>(hundredths)); });
    } else if (option == L"Plot") {
        acedInitGet(0, L"Plot No");
        ACHAR kw[8] = L"Plot";
        int rc = acedGetKword(L"\nEnter a plotting preference [Plot/No plot] <Plot>: ", kw, 8);
        if (rc != RTNORM && rc != RTNONE)
            return;
        bool plot = rc == RTNONE || std::wstring_view(kw) == L"Plot";
        auto listAnswer = ask(L"\nEnter layer name(s) for this plot preference <" + current + L">: ");
        if (!listAnswer)
            return;
        std::wstring list = *listAnswer;
        forLayers(db, list.empty() ? current : list, [&](AcDbLayerTableRecord& l) { l.setIsPlottable(plot); });
    }
}

} // namespace

void layer()
{
    AcDbDatabase* db = workingDb();
    if (!db)
        return;
    say(L"Current layer:  \"%ls\"", recordName(db->clayer()).c_str());
    for (;;) {
        acedInitGet(0, L"? Make Set New Rename ON OFF Color Ltype LWeight Plot Freeze Thaw LOck Unlock");
        ACHAR kw[16];
        int rc = acedGetKword(L"\nEnter an option [?/Make/Set/New/Rename/ON/OFF/Color/Ltype/LWeight/Plot/Freeze/Thaw/LOck/Unlock]: ", kw, 16);
        if (rc != RTNORM)
            return;
        std::wstring option = kw;
        AcDbObjectId currentId = db->clayer();
        std::wstring current = recordName(currentId);
        if (option == L"?") {
            listLayers(*db);
        } else if (option == L"Make") {
            auto nameAnswer = ask(L"\nEnter name for new layer (becomes the current layer) <" + current + L">: ");
            if (!nameAnswer)
                return;
            std::wstring name = *nameAnswer;
            if (name.empty())
                continue;
            AcDbObjectId id = makeLayer(*db, name);
            if (id.isNull())
                continue;
            {
                AcDbObjectPointer<AcDbLayerTableRecord> l(id, AcDb::kForWrite);
                if (l.openStatus() == Acad::eOk) {
                    l->setIsFrozen(false);
                    l->setIsOff(false);
                }
            }
            setCurrent(*db, id, name);
        } else if (option == L"Set") {
            auto nameAnswer = ask(L"\nEnter layer name to make current: ");
            if (!nameAnswer)
                return;
            std::wstring name = *nameAnswer;
            if (name.empty())
                continue;
            AcDbObjectId id = recordId<AcDbLayerTableRecord>(db, name);
            if (id.isNull())
                say(L"Cannot find layer \"%ls\".", name.c_str());
            else
                setCurrent(*db, id, name);
        } else if (option == L"New") {
            auto listAnswer = ask(L"\nEnter name list for new layer(s): ");
            if (!listAnswer)
                return;
            std::wstring list = *listAnswer;
            for (const auto& name : splitNames(list))
                makeLayer(*db, name);
        } else if (option == L"Rename") {
            auto fromAnswer = ask(L"\nEnter old layer name: ");
            if (!fromAnswer)
                return;
            if (fromAnswer->empty())
                continue;
            std::wstring from = *fromAnswer;
            AcDbObjectId id = recordId<AcDbLayerTableRecord>(db, from);
            if (id.isNull()) {
                say(L"Cannot find layer \"%ls\".", from.c_str());
                continue;
            }
            auto toAnswer = ask(L"\nEnter new layer name: ");
            if (!toAnswer)
                return;
            if (toAnswer->empty())
                continue;
            std::wstring to = *toAnswer;
            AcDbObjectPointer<AcDbLayerTableRecord> l(id, AcDb::kForWrite);
            Acad::ErrorStatus es = l.openStatus() == Acad::eOk ? l->setName(to.c_str()) : l.openStatus();
            if (es == Acad::eDuplicateRecordName)
                say(L"Layer \"%ls\" already exists.", to.c_str());
            else if (es != Acad::eOk)
                say(L"Cannot rename layer \"%ls\".", from.c_str());
        } else if (option == L"Color" || option == L"Ltype" || option == L"LWeight" || option == L"Plot") {
            valueOption(*db, option);
        } else {
            static const struct {
                const wchar_t* option;
                const wchar_t* prompt;
            } lists[] = {
                {L"ON", L"\nEnter name list of layer(s) to turn On: "},
                {L"OFF", L"\nEnter name list of layer(s) to turn off: "},
                {L"Freeze", L"\nEnter name list of layer(s) to freeze: "},
                {L"Thaw", L"\nEnter name list of layer(s) to thaw: "},
                {L"LOck", L"\nEnter name list of layer(s) to lock: "},
                {L"Unlock", L"\nEnter name list of layer(s) to unlock: "},
            };
            for (const auto& l : lists) {
                if (option != l.option)
                    continue;
                auto listAnswer = ask(l.prompt);
                if (!listAnswer)
                    return;
                std::wstring list = *listAnswer;
                if (list.empty())
                    break;
                forLayers(*db, list, [&](AcDbLayerTableRecord& layer) {
                    if (option == L"ON")
                        layer.setIsOff(false);
                    else if (option == L"OFF")
                        layer.setIsOff(true);
                    else if (option == L"Freeze") {
                        if (layer.objectId() == currentId)
                            say(L"Cannot freeze layer \"%ls\".  It is the CURRENT layer.", current.c_str());
                        else
                            layer.setIsFrozen(true);
                    } else if (option == L"Thaw")
                        layer.setIsFrozen(false);
                    else if (option == L"LOck")
                        layer.setIsLocked(true);
                    else
                        layer.setIsLocked(false);
                });
            }
        }
    }
}

} // namespace sim::commands
