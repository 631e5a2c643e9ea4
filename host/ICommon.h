#pragma once

#include "host/BaseSubscribeData.h"
#include "host/Service.h"

namespace Icommon {

/// Texts of a record's fields as the host shows them. Each operation gives false and an empty
/// text when it refuses: the record is not ready, the field is absent or its text is empty.
/// `text` is overwritten in place, so that a caller can reuse its memory.
class QUOR_EXPORT TCustomMarketDataFormatter : public Host::TService<TCustomMarketDataFormatter> {
public:
  ~TCustomMarketDataFormatter() override;

  virtual bool FormatPrice(const Basesubscribedata::TCustomSubItem& record, int field,
                           std::string& text) = 0;
  /// A size or a volume, in shares. Zero is "0".
  virtual bool FormatVolume(const Basesubscribedata::TCustomSubItem& record, int field,
                            std::string& text) = 0;
  /// Change against the previous close, in currency units, with its sign: Host::Field::Change, or
  /// nominal less previous close where the feed leaves it out.
  virtual bool FormatChange(const Basesubscribedata::TCustomSubItem& record, std::string& text) = 0;
  /// The same in per cent: Host::Field::ChangePercent, or worked out likewise.
  virtual bool FormatChangePercent(const Basesubscribedata::TCustomSubItem& record,
                                   std::string& text) = 0;
};

} // namespace Icommon
