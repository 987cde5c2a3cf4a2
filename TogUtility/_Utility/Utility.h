// Small utility commands: xref layer remap (ss), levels and slopes (vvs, vvvv, CISTIVYSKY),
// entity information (li, pro), surveyed point import (nactiGPS, nactiJTSK), conversion of old names
// (preved) and ZobrazCTB.
#pragma once

/// `ss`: moves an external reference's layers to a grey background.
void PrikazSs();
/// `vvs`: prints the depth of a manhole.
void PrikazVvs();
/// `vvvv`: prints the slope between two manholes.
void PrikazVvvv();
/// `li`: shows the properties of an entity, also inside a block.
void PrikazLi();
/// `pro`: reverses curves.
void PrikazPro();
/// `nactiGPS`: imports surveyed points in WGS-84.
void PrikazNactiGPS();
/// `nactiJTSK`: imports surveyed points in S-JTSK.
void PrikazNactiJTSK();
/// `ZobrazCTB`: does nothing; kept for the command table.
void ZobrazCTB();
/// `CISTIVYSKY`: cleans level texts into plain decimal numbers.
void PrikazCistiVysky();
/// `preved`: converts styles, layers and line types of the earlier standard.
void PrikazPreved();
