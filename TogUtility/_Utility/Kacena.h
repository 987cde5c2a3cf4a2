// Level mark commands (kac, kace).
#pragma once

/// `kac`: places level marks.
void PrikazKac();
/// `kace`: recomputes the height text of level marks.
void PrikazKace();
