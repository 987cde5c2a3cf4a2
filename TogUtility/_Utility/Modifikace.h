// Commands that change entities: whole-drawing conversions (z0, kub, ssa, lt1, SMAZTEXTY),
// text and property commands (ca, ra, rak, mat, tv, mtcf, ed).
#pragma once

/// `ca`: copies the look of one entity to others.
void PrikazCa();
/// `ra`: turns texts and blocks to the direction of a line.
void PrikazRa();
/// `rak`: turns texts and blocks perpendicular to a line.
void PrikazRak();
/// `mat`: turns attribute definitions into plain text.
void PrikazMat();
/// `z0`: flattens the whole drawing to Z 0 (local name jur).
void PrikazZ0();
/// `kub`: repairs Czech letters of MText read in the wrong code page.
void PrikazKub();
/// `tv`: turns a text into capitals.
void PrikazTv();
/// `ssa`: multiplies the line type scale of the whole drawing.
void PrikazSsa();
/// `lt1`: sets the line type scale of the whole drawing to 1.
void PrikazLt1();
/// `mtcf`: removes character formatting from MText.
void PrikazMtcf();
/// `ed`: opens any text in the in-place editor.
void PrikazEd();
/// `SMAZTEXTY`: erases the texts of model space that contain a given text.
void PrikazSmazTexty();
