#pragma once

#include "host/System.h"

#include <string_view>

namespace Basesubscribedata {

/// One symbol's market-data record: texts by field number, Host::Field::... Host-owned; valid from
/// subscription until the subscriber's release. User-interface thread only.
class QUOR_EXPORT TCustomSubItem : public System::TObject {
public:
  ~TCustomSubItem() override;

  /// Constdef::RecordState_...; RecordState_Ready when the record holds data.
  virtual int GetState() const = 0;
  /// UTF-8, as the feed gave it; empty when the field is absent. Valid until the record's next
  /// update.
  virtual std::string_view GetText(int field) const = 0;
  /// 0 when the field is absent or not a number.
  virtual double GetNumber(int field) const = 0;
  /// True for a field with an empty text, too.
  virtual bool HasValue(int field) const = 0;
  virtual std::string_view Symbol() const = 0;
  /// What the host says of a record that holds no data; empty when there is nothing to say.
  virtual std::string_view StatusText() const = 0;

  /// `handler` is called with the record after each update. One registration per owner.
  virtual void AddRealtimeListener(System::TNotifyEvent handler, const System::TObject* owner) = 0;
  virtual void RemoveRealtimeListener(const System::TObject* owner) = 0;
};

} // namespace Basesubscribedata
