// The open documents as the application frame sees them.
#include "sim/app/Documents.h"

#include <memory>

#include "acdocman.h"

namespace sim::app {

namespace {

DocumentList* g_override = nullptr;

} // namespace

ScopedDocumentList::ScopedDocumentList(DocumentList& list) : m_previous(g_override) { g_override = &list; }

ScopedDocumentList::~ScopedDocumentList() { g_override = m_previous; }

std::vector<void*> openDocuments()
{
    if (g_override)
        return g_override->documents();
    std::vector<void*> docs;
    std::unique_ptr<AcApDocumentIterator> it(acDocManager->newAcApDocumentIterator());
    for (; it && !it->done(); it->step())
        docs.push_back(it->document());
    return docs;
}

void* currentDocument()
{
    if (g_override)
        return g_override->current();
    return acDocManager->curDocument();
}

bool activateDocument(void* doc)
{
    if (g_override)
        return g_override->activate(doc);
    for (void* open : openDocuments())
        if (open == doc)
            return acDocManager->setCurDocument(static_cast<AcApDocument*>(doc)) == Acad::eOk;
    return false;
}

} // namespace sim::app
