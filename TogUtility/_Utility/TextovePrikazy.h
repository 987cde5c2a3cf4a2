// Text and property commands: ca (copy the look), ra and rak (turn to a line), tv (capitals), mtcf
// (clean MText formatting), ed (the in-place editor for any text), mat (attribute definitions to
// texts).
#pragma once

/// ca: copies colour, layer, line type, its scale, line weight (and a text's style) of a pattern.
void KopirujVzhled();
/// ra (kolmo false) and rak (kolmo true): turns texts, MTexts, multileaders and blocks to the
/// direction of a line or a text, also one inside a block, so that they read from below or the right.
void NatocPodle(bool kolmo);
/// tv: upper-cases a text, an MText or a multileader's text.
void TextNaVelka();
/// mtcf: removes character formatting from MTexts and multileaders.
void OdstranFormatovani();
/// ed: opens a text, an MText, a multileader's text or a block's attribute in the in-place editor.
void EditujText();
/// mat: replaces attribute definitions by texts of their tags.
void AtributyNaTexty();
