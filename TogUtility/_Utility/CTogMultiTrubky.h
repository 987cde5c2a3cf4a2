// Multi-pipe drawing command (mut).
#pragma once

/// `mut`: draws bundles of parallel pipes.
void PrikazMut();
