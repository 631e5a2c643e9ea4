#pragma once

#include "host/Export.h"

#include <string>
#include <vector>

namespace Columninfo {

/// A grid column before it is made.
struct TColumnInfo {
  int ID = 0;    ///< the column identifier by which the data control answers; the column's tag
  int Width = 0; ///< in pixels
  bool RightAligned = false;
  std::string CaptionKey; ///< language key of the header; empty when the grid has no header
};

/// Appends a column.
QUOR_EXPORT void AddColumn(std::vector<TColumnInfo>& columns, int id, int width, bool rightAligned,
                           std::string captionKey = {});

} // namespace Columninfo
