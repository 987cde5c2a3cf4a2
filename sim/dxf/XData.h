// Extended data and xrecord data: groups of a file to result-buffer chains and back. Handles of
// pointer codes become entity names of the database (ads_name: handle, database), binary chunks
// their bytes, and a point's three groups one buffer.
#pragma once
#include <string>
#include <utility>
#include <vector>

#include "acutads.h"
#include "sim/db/Chain.h"
#include "sim/dxf/Tag.h"
#include "sim/dxf/TagWriter.h"

class AcDbDatabase;

namespace sim::dxf {

typedef std::vector<std::pair<std::wstring, sim::db::Chain>> XDataList;

/// The groups from a 1001 on, per application. Throws DxfError for data before the first 1001.
XDataList readXData(const std::vector<Tag>& tags, AcDbDatabase* db);
void writeXData(const XDataList& xdata, TagWriter& w);

/// Groups to a chain (null for none); the caller frees it with acutRelRb.
resbuf* tagsToChain(const Tag* begin, const Tag* end, AcDbDatabase* db);
/// Writes a chain's values as groups.
void writeChain(const resbuf* rb, TagWriter& w);

} // namespace sim::dxf
