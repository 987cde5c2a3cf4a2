// The application frame's view of the open documents: which are open, which is current. Documents
// are named by address only, so the frame keeps no knowledge of their insides.
#pragma once
#include <vector>

namespace sim::app {

/// The open documents, in the order they were opened.
std::vector<void*> openDocuments();
/// The current document, or null when none is open.
void* currentDocument();
/// Makes an open document current; false (nothing changes) when it is not open.
bool activateDocument(void* doc);

} // namespace sim::app
