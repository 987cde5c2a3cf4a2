// Pipe dimensioning command (ko).
#pragma once

/// `ko`: writes the size of a pipe as an aligned dimension.
void PrikazKo();
