// The platform's documents: opening a drawing as a document (with a new default database or a given
// one), making it current, naming its file and closing it.
#pragma once
#include <memory>
#include <string>
#include "acdocman.h"

namespace sim::db {

/// Opens a document on a database (a new default drawing when null) and makes it current. The
/// document manager owns the document and the database from then on. fileName is the drawing's
/// file; an empty one gives the new-drawing name "DrawingN.dwg".
AcApDocument* openDocument(std::unique_ptr<AcDbDatabase> db = nullptr, const std::wstring& fileName = std::wstring());
/// Closes a document and deletes its database. The last other document becomes current.
void closeDocument(AcApDocument* doc);
/// Closes every document (for the end of a run and between tests).
void closeAllDocuments();
/// The file a document answers to (also the database's file name).
void setDocumentFileName(AcApDocument* doc, const std::wstring& fileName);

} // namespace sim::db
