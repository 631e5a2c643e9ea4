#pragma once

#include "host/BaseSubscribeData.h"
#include "host/Service.h"

namespace Basesubscribeadapter {

/// Subscription of symbols.
class QUOR_EXPORT TCustomSubscribeAdapter : public Host::TService<TCustomSubscribeAdapter> {
public:
  ~TCustomSubscribeAdapter() override;

  /// The record of `symbol` from the data set `source`, Constdef::DataSet_..., shared by all its
  /// subscribers; each call is undone by one Unsubscribe or Release. Null when the symbol is empty.
  /// `flag`: packages pass true.
  virtual Basesubscribedata::TCustomSubItem* Subscribe(std::string_view symbol,
                                                       std::string_view source, bool flag) = 0;
  /// Undoes one Subscribe. The record must not be used afterwards.
  virtual void Unsubscribe(Basesubscribedata::TCustomSubItem* record) = 0;

  /// `handler` gets the record as its data after each update. One handler per owner and record.
  virtual void SetUpdateHandler(Basesubscribedata::TCustomSubItem* record,
                                System::TDataEvent handler, const System::TObject* owner) = 0;
  /// Removes the owner's update handler and undoes one Subscribe.
  virtual void Release(Basesubscribedata::TCustomSubItem* record, const System::TObject* owner) = 0;

  /// Asks for a fresh snapshot; the record is updated when it arrives.
  virtual void Refresh(std::string_view symbol) = 0;
};

} // namespace Basesubscribeadapter
