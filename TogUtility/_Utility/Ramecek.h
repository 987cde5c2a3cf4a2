// Sheet frame command (ram).
#pragma once

/// `ram`: draws a new sheet frame or edits an existing one.
void PrikazRam();
