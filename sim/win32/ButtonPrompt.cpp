// The prompt that stands in for the buttons of message boxes and task dialogs.
#include "sim/win32/ButtonPrompt.h"

#include <cwctype>

#include "sim/core/Session.h"
#include "sim/win32/Locale.h"
#include "windows.h"

namespace sim::win32 {

namespace {

// Words that press the same button, upper case; a button's text found in a group stands for all of it.
const std::vector<std::vector<std::wstring>>& synonyms()
{
    static const std::vector<std::vector<std::wstring>> groups = {
        {L"OK"},
        {L"ANO", L"YES"},
        {L"NE", L"NO"},
        {L"STORNO", L"ZRUŠIT", L"ZRUSIT", L"CANCEL"},
        {L"PŘERUŠIT", L"PRERUSIT", L"ABORT"},
        {L"OPAKOVAT", L"RETRY"},
        {L"IGNOROVAT", L"IGNORE"},
        {L"ZKUSIT ZNOVU", L"TRY AGAIN"},
        {L"POKRAČOVAT", L"POKRACOVAT", L"CONTINUE"},
        {L"ZAVŘÍT", L"ZAVRIT", L"CLOSE"},
    };
    return groups;
}

const std::vector<std::wstring>* groupOf(const std::wstring& word)
{
    for (const auto& g : synonyms())
        for (const auto& w : g)
            if (w == word)
                return &g;
    return nullptr;
}

std::wstring trim(std::wstring_view s)
{
    size_t b = 0, e = s.size();
    while (b < e && std::iswspace(static_cast<wint_t>(s[b])))
        ++b;
    while (e > b && std::iswspace(static_cast<wint_t>(s[e - 1])))
        --e;
    return std::wstring(s.substr(b, e - b));
}

bool endsWith(const std::wstring& s, std::wstring_view tail)
{
    return s.size() >= tail.size() && s.compare(s.size() - tail.size(), tail.size(), tail) == 0;
}

std::optional<size_t> match(const std::vector<Button>& buttons, const std::wstring& answer)
{
    for (size_t i = 0; i < buttons.size(); ++i)
        if (upperInvariant(buttons[i].text) == answer)
            return i;
    if (const auto* group = groupOf(answer))
        for (size_t i = 0; i < buttons.size(); ++i)
            if (groupOf(upperInvariant(buttons[i].text)) == group)
                return i;
    return std::nullopt;
}

} // namespace

std::wstring standardButtonText(int id)
{
    switch (id) {
    case IDOK: return L"OK";
    case IDCANCEL: return L"Storno";
    case IDABORT: return L"Přerušit";
    case IDRETRY: return L"Opakovat";
    case IDIGNORE: return L"Ignorovat";
    case IDYES: return L"Ano";
    case IDNO: return L"Ne";
    case IDCLOSE: return L"Zavřít";
    case IDHELP: return L"Nápověda";
    case IDTRYAGAIN: return L"Zkusit znovu";
    case IDCONTINUE: return L"Pokračovat";
    default: return L"#" + std::to_wstring(id);
    }
}

void showBlock(std::wstring_view text)
{
    Session* s = Session::currentOrNull();
    if (!s)
        return;
    const std::wstring& t = s->transcript();
    std::wstring block;
    if (!t.empty() && t.back() != L'\n')
        block += L'\n';
    block += text;
    if (block.empty() || block.back() != L'\n')
        block += L'\n';
    s->print(block);
}

ButtonAnswer askButton(const std::vector<Button>& buttons, size_t defaultIndex, std::optional<std::wstring> tickLabel)
{
    Session* s = Session::currentOrNull();
    if (!s || buttons.empty())
        return {};
    if (defaultIndex >= buttons.size())
        defaultIndex = 0;
    std::wstring prompt = L"[";
    for (size_t i = 0; i < buttons.size(); ++i)
        prompt += (i ? L"/" : L"") + buttons[i].text;
    prompt += L"] <" + buttons[defaultIndex].text + L">";
    if (tickLabel)
        prompt += L" (+tick = " + *tickLabel + L")";
    prompt += L": ";

    for (;;) {
        auto line = s->ask(prompt);
        if (!line)
            return {};
        std::wstring answer = upperInvariant(trim(*line));
        if (answer == L"^C")
            return {};
        ButtonAnswer result;
        if (tickLabel && (endsWith(answer, L"+TICK") || endsWith(answer, L"-TICK"))) {
            result.tick = answer[answer.size() - 5] == L'+';
            answer = trim(std::wstring_view(answer).substr(0, answer.size() - 5));
        }
        std::optional<size_t> index = answer.empty() ? std::optional<size_t>(defaultIndex) : match(buttons, answer);
        if (index) {
            result.id = buttons[*index].id;
            return result;
        }
        s->print(L"Neplatná odpověď.\n");
    }
}

} // namespace sim::win32
