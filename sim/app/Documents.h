// The application frame's view of the open documents: which are open, which is current. Documents
// are named by address only, so the frame keeps no knowledge of their insides. They come from the
// database module's document manager unless a test puts its own list in place.
#pragma once
#include <vector>

namespace sim::app {

/// The open documents, in the order they were opened.
std::vector<void*> openDocuments();
/// The current document, or null when none is open.
void* currentDocument();
/// Makes an open document current; false (nothing changes) when it is not open.
bool activateDocument(void* doc);

/// A stand-in for the document manager.
class DocumentList {
public:
    virtual ~DocumentList() = default;
    virtual std::vector<void*> documents() const = 0;
    virtual void* current() const = 0;
    virtual bool activate(void* doc) = 0;
};

/// Puts a list in place of the document manager for as long as it lives.
class ScopedDocumentList {
public:
    explicit ScopedDocumentList(DocumentList& list);
    ~ScopedDocumentList();
    ScopedDocumentList(const ScopedDocumentList&) = delete;
    ScopedDocumentList& operator=(const ScopedDocumentList&) = delete;

private:
    DocumentList* m_previous;
};

} // namespace sim::app
