// Joining of collinear lines (sp).
#pragma once

/// `sp`: merges collinear lines.
void PrikazSp();
