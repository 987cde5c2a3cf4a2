// Byte streams for the catalogue's tests: a builder that spells out records by hand, and helpers that
// store an object into bytes or load it from them through CArchive.
#pragma once
#include <afx.h>

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

using Bajty = std::vector<BYTE>;

struct Stavitel {
    Bajty b;
    Stavitel& u8(unsigned v)
    {
        b.push_back(static_cast<BYTE>(v));
        return *this;
    }
    Stavitel& i16(int v) { return u8(v & 0xFF).u8((v >> 8) & 0xFF); }
    Stavitel& i32(std::int64_t v) { return i16(static_cast<int>(v & 0xFFFF)).i16(static_cast<int>((v >> 16) & 0xFFFF)); }
    Stavitel& u64(std::uint64_t v) { return i32(static_cast<std::int64_t>(v & 0xFFFFFFFFu)).i32(static_cast<std::int64_t>(v >> 32)); }
    Stavitel& f32(float f)
    {
        std::uint32_t u;
        std::memcpy(&u, &f, 4);
        return i32(u);
    }
    /// Units and a 0 unit.
    Stavitel& ukonceny(const std::wstring& s)
    {
        for (wchar_t c : s)
            i16(c);
        return i16(0);
    }
    /// Exactly n + 1 units, the text padded with 0.
    Stavitel& pevny(const std::wstring& s, size_t n)
    {
        for (size_t i = 0; i <= n; ++i)
            i16(i < s.size() ? s[i] : 0);
        return *this;
    }
    /// The tagged UTF-16 counted form, length below 255.
    Stavitel& wide(const std::wstring& s)
    {
        u8(0xFF).u8(0xFE).u8(0xFF).u8(static_cast<unsigned>(s.size()));
        for (wchar_t c : s)
            i16(c);
        return *this;
    }
    /// The untagged single-byte counted form, length below 255.
    Stavitel& ansi(const std::string& s)
    {
        u8(static_cast<unsigned>(s.size()));
        for (char c : s)
            u8(static_cast<unsigned char>(c));
        return *this;
    }
    Stavitel& bajty(const Bajty& x)
    {
        b.insert(b.end(), x.begin(), x.end());
        return *this;
    }
};

inline Bajty Uloz(CObject& objekt)
{
    CMemFile soubor;
    {
        CArchive ar(&soubor, CArchive::store);
        objekt.Serialize(ar);
        ar.Close();
    }
    auto delka = static_cast<size_t>(soubor.GetLength());
    BYTE* data = soubor.Detach();
    Bajty vysledek(data, data + delka);
    std::free(data);
    return vysledek;
}

/// Loads the object from the bytes; the archive's and the system's exceptions pass through.
inline void Nacti(CObject& objekt, Bajty bajty)
{
    CMemFile soubor(bajty.data(), static_cast<UINT>(bajty.size()));
    CArchive ar(&soubor, CArchive::load);
    objekt.Serialize(ar);
}
