// The text of the level mark block file, the same bytes at every run.
#pragma once
#include <string>

namespace togu::tools {

/// A new drawing in millimetres with the level mark block in its model space, as DXF text.
std::string levelMarkFileText();

} // namespace togu::tools
