// Result buffers, entity names and points of the host's ADS interface, and the acut* utilities.
#pragma once
#include "adesk.h"
#include "adscodes.h"

typedef double ads_real;
typedef ads_real ads_point[3];
typedef Adesk::LongPtr ads_name[2];
typedef ads_real ads_matrix[4][4];
typedef ads_real* ads_pointp;
typedef Adesk::LongPtr* ads_namep;

enum { X = 0, Y = 1, Z = 2 };

struct ads_binary {
    short clen;
    char* buf;
};

union ads_u_val {
    ads_real rreal;
    ads_real rpoint[3];
    short rint;
    ACHAR* rstring;
    Adesk::Int32 rlong;
    Adesk::Int64 mnInt64;
    Adesk::LongPtr mnLongPtr;
    ads_name rlname;
    struct ads_binary rbinary;
    unsigned char ihandle[8];
};

struct resbuf {
    struct resbuf* rbnext;
    short restype;
    union ads_u_val resval;
};

/// Builds a chain from pairs of a type code and a value, ended by 0 (RTNONE is not the end).
/// Strings are copied. The caller frees the chain with acutRelRb.
struct resbuf* acutBuildList(int rtype, ...);
/// A new buffer of the type, its value zeroed (a string type gets a null pointer).
struct resbuf* acutNewRb(int type);
/// Frees a whole chain with its strings and binary chunks.
int acutRelRb(struct resbuf* rb);
/// Copies a string into a new buffer that acutRelRb frees.
int acutNewString(const ACHAR* pInput, ACHAR*& pOutput);

/// Prints to the host's command line (printf format, wide).
int acutPrintf(const ACHAR* format, ...);

void acutPolar(const ads_point pt, ads_real angle, ads_real dist, ads_point result);
ads_real acutAngle(const ads_point pt1, const ads_point pt2);
ads_real acutDistance(const ads_point pt1, const ads_point pt2);

inline void ads_point_set(const ads_point from, ads_point to)
{
    to[0] = from[0];
    to[1] = from[1];
    to[2] = from[2];
}
inline void ads_name_set(const ads_name from, ads_name to)
{
    to[0] = from[0];
    to[1] = from[1];
}
inline void ads_name_clear(ads_name name)
{
    name[0] = name[1] = 0;
}
inline bool ads_name_nil(const ads_name name)
{
    return name[0] == 0 && name[1] == 0;
}
inline bool ads_name_equal(const ads_name a, const ads_name b)
{
    return a[0] == b[0] && a[1] == b[1];
}
#define acdbNameSet ads_name_set
#define acdbNameClear ads_name_clear
#define acdbNameNil ads_name_nil
#define acdbNameEqual ads_name_equal
