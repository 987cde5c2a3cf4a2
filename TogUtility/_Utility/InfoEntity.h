// Entity information (li) and the reversal of curves (pro).
#pragma once

/// li: shows the class, layer, colours, line type and weight of a picked entity, also one deep
/// inside a block or an xref, with the reference that holds it.
void UkazInfoEntity();
/// pro: turns the direction of the selected curves around.
void ObratKrivky();
