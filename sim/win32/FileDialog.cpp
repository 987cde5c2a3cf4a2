// The common file dialogs answered by a script line that holds the path.
#include <cwctype>
#include <filesystem>
#include <string>
#include <vector>

#include "commdlg.h"
#include "sim/core/Session.h"
#include "sim/win32/ButtonPrompt.h"

namespace {

DWORD g_error = 0;

std::wstring trim(std::wstring_view s)
{
    size_t b = 0, e = s.size();
    while (b < e && std::iswspace(static_cast<wint_t>(s[b])))
        ++b;
    while (e > b && std::iswspace(static_cast<wint_t>(s[e - 1])))
        --e;
    return std::wstring(s.substr(b, e - b));
}

bool isSeparator(wchar_t c) { return c == L'\\' || c == L'/'; }

std::filesystem::path toFsPath(std::wstring p)
{
    for (wchar_t& c : p)
        if (c == L'\\')
            c = L'/';
    return std::filesystem::path(sim::toUtf8(p));
}

// The filter the dialog starts with: nFilterIndex counts the pairs of lpstrFilter from 1.
std::wstring chosenFilter(const OPENFILENAMEW& ofn)
{
    if (!ofn.lpstrFilter)
        return {};
    std::vector<std::pair<std::wstring, std::wstring>> pairs;
    for (const wchar_t* p = ofn.lpstrFilter; *p;) {
        std::wstring description = p;
        p += description.size() + 1;
        std::wstring pattern = p;
        p += pattern.size() + (*p ? 1 : 0);
        pairs.emplace_back(description, pattern);
        if (pattern.empty())
            break;
    }
    if (pairs.empty())
        return {};
    size_t index = ofn.nFilterIndex >= 1 && ofn.nFilterIndex <= pairs.size() ? ofn.nFilterIndex - 1 : 0;
    const auto& [description, pattern] = pairs[index];
    if (pattern.empty() || description.find(pattern) != std::wstring::npos)
        return description;
    return description + L" (" + pattern + L")";
}

BOOL fileDialog(LPOPENFILENAMEW ofn, bool save)
{
    g_error = 0;
    if (!ofn || ofn->lStructSize != sizeof(OPENFILENAMEW)) {
        g_error = CDERR_STRUCTSIZE;
        return FALSE;
    }
    if (!ofn->lpstrFile || ofn->nMaxFile == 0) {
        g_error = FNERR_INVALIDFILENAME;
        return FALSE;
    }
    std::wstring title = ofn->lpstrTitle ? ofn->lpstrTitle : (save ? L"Uložit jako" : L"Otevřít");
    std::wstring folder = ofn->lpstrInitialDir ? ofn->lpstrInitialDir : L"";
    std::wstring block = L"[" + title + L"]";
    if (std::wstring filter = chosenFilter(*ofn); !filter.empty())
        block += L" " + filter;
    if (!folder.empty())
        block += L"\nSložka: " + folder;
    sim::win32::showBlock(block);

    sim::Session* session = sim::Session::currentOrNull();
    if (!session)
        return FALSE;
    for (;;) {
        auto line = session->ask(L"Soubor (Enter = zrušit): ");
        if (!line)
            return FALSE;
        std::wstring path = trim(*line);
        if (path.size() >= 2 && path.front() == L'"' && path.back() == L'"')
            path = path.substr(1, path.size() - 2);
        if (path.empty() || path == L"^C")
            return FALSE;
        bool absolute = isSeparator(path[0]) || (path.size() >= 2 && path[1] == L':');
        if (!absolute && !folder.empty()) {
            wchar_t sep = folder.find(L'\\') != std::wstring::npos ? L'\\' : L'/';
            path = folder + (isSeparator(folder.back()) ? L"" : std::wstring(1, sep)) + path;
        }
        size_t nameAt = path.find_last_of(L"\\/");
        nameAt = nameAt == std::wstring::npos ? 0 : nameAt + 1;
        if (ofn->lpstrDefExt && *ofn->lpstrDefExt && path.find(L'.', nameAt) == std::wstring::npos)
            path += std::wstring(L".") + ofn->lpstrDefExt;

        std::error_code ec;
        std::filesystem::path fsPath = toFsPath(path);
        bool exists = std::filesystem::exists(fsPath, ec);
        if (!save && (ofn->Flags & OFN_FILEMUSTEXIST) && !exists) {
            session->print(L"Soubor " + path + L" neexistuje.\n");
            continue;
        }
        if ((ofn->Flags & OFN_PATHMUSTEXIST) && fsPath.has_parent_path() &&
            !std::filesystem::is_directory(fsPath.parent_path(), ec)) {
            session->print(L"Složka souboru " + path + L" neexistuje.\n");
            continue;
        }
        if (save && (ofn->Flags & OFN_OVERWRITEPROMPT) && exists &&
            MessageBoxW(ofn->hwndOwner, (path.substr(nameAt) + L" již existuje.\nChcete jej nahradit?").c_str(),
                title.c_str(), MB_YESNO | MB_ICONWARNING) != IDYES)
            continue;

        if (path.size() + 1 > ofn->nMaxFile) {
            // Windows puts the size it needs into the buffer's first character.
            ofn->lpstrFile[0] = static_cast<WCHAR>(path.size() + 1);
            g_error = FNERR_BUFFERTOOSMALL;
            return FALSE;
        }
        wcscpy_s(ofn->lpstrFile, ofn->nMaxFile, path.c_str());
        size_t dot = path.find_last_of(L'.');
        ofn->nFileOffset = static_cast<WORD>(nameAt);
        ofn->nFileExtension =
            static_cast<WORD>(dot == std::wstring::npos || dot < nameAt ? path.size() : dot + 1);
        if (ofn->lpstrFileTitle && ofn->nMaxFileTitle > 0)
            wcsncpy_s(ofn->lpstrFileTitle, ofn->nMaxFileTitle, path.c_str() + nameAt, _TRUNCATE);
        return TRUE;
    }
}

} // namespace

BOOL WINAPI GetOpenFileNameW(LPOPENFILENAMEW lpofn) { return fileDialog(lpofn, false); }
BOOL WINAPI GetSaveFileNameW(LPOPENFILENAMEW lpofn) { return fileDialog(lpofn, true); }
DWORD WINAPI CommDlgExtendedError() { return g_error; }
