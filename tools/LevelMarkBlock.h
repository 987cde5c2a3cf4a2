// The level mark block tg_kacena, drawn into a drawing's model space as its block file holds it: the
// triangle on the level line, the shelf with the level above it and a note under it, a leader of
// variable length back to the levelled point, and the dynamic properties that flip and stretch them.
#pragma once

class AcDbDatabase;

namespace togu::tools {

/// Sizes of the mark in millimetres on paper (the block is annotative).
inline constexpr double kTriangleHeight = 3.0;
inline constexpr double kShelfLength = 15.0;
inline constexpr double kLevelTextHeight = 2.5;
inline constexpr double kNoteTextHeight = 2.0;
/// The leader length the block is drawn with (DL_ODKAZU's default).
inline constexpr double kLeaderLength = 10.0;

/// Draws the block into the model space of db (a new drawing in millimetres) and sets the dynamic
/// properties on model space, as the block file keeps them.
void drawLevelMarkBlock(AcDbDatabase& db);

} // namespace togu::tools
