// Result codes of the editor and AutoLISP calls, result-buffer type codes and acedInitGet flags.
#pragma once

// Editor results.
#define RTNONE 5000
#define RTREAL 5001
#define RTPOINT 5002
#define RTSHORT 5003
#define RTANG 5004
#define RTSTR 5005
#define RTENAME 5006
#define RTPICKS 5007
#define RTORINT 5008
#define RT3DPOINT 5009
#define RTLONG 5010
#define RTVOID 5014
#define RTLB 5016
#define RTLE 5017
#define RTDOTE 5018
#define RTNIL 5019
#define RTDXF0 5020
#define RTT 5021
#define RTRESBUF 5023
#define RTMODELESS 5027
#define RTLONG_PTR 5030
#define RTINT64 5031

#define RTNORM 5100
#define RTERROR (-5001)
#define RTCAN (-5002)
#define RTREJ (-5003)
#define RTFAIL (-5004)
#define RTKWORD (-5005)
#define RTINPUTTRUNCATED (-5008)

// acedInitGet flags.
#define RSG_NONULL 0x0001
#define RSG_NOZERO 0x0002
#define RSG_NONEG 0x0004
#define RSG_NOLIM 0x0008
#define RSG_GETZ 0x0010
#define RSG_DASH 0x0020
#define RSG_2D 0x0040
#define RSG_OTHER 0x0080
#define RSG_DDISTFIRST 0x0100
#define RSG_TRACKUCS 0x0200
#define RSG_NOORTHOZ 0x0400
#define RSG_NOOSNAP 0x0800
#define RSG_NODDIST 0x1000

// Coordinate systems of acedTrans.
#define RTWCS 0
#define RTUCS 1
#define RTDCS 2

// DXF group codes that selection filters use.
#define RTDXF_ENTITYTYPE 0
