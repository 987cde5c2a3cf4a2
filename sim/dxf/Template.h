// What every drawing file needs, and the built-in template of a new drawing: millimetres, layer 0,
// the line types ByBlock, ByLayer and Continuous, the text style and the dimension style Standard,
// model space and one paper layout, and the named objects dictionary with the dictionaries other
// programs expect (groups, layouts, multileader styles with Standard, table styles, the usual
// annotation scales, plot settings, plot style names, colours, multiline styles).
#pragma once
#include "dbmain.h"

namespace sim::dxf {

/// Adds what the database lacks of the structure every drawing has: the symbol tables, layer 0,
/// the three standard line types, the text and dimension styles Standard, the application ACAD, the
/// viewport *Active, model space and paper space with their begin and end markers and layouts, and
/// the named objects dictionary with its groups and layouts. Changes nothing that is there.
void ensureStructure(AcDbDatabase& db);

/// The template of a new drawing on a database built with its default drawing: ensureStructure,
/// then the template's header variables, applications, dictionaries, multileader style, scales
/// and view. Changes nothing that is there.
void completeNewDrawing(AcDbDatabase& db);

/// The application names that extended data of the database's objects use and its APPID table
/// lacks are added to the table, so that the file names every application it uses.
void registerUsedApplications(AcDbDatabase& db);

} // namespace sim::dxf
