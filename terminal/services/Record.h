#pragma once

#include "data/RecordChange.h"
#include "host/BaseSubscribeData.h"
#include "host/ConstDef.h"
#include "terminal/services/Listeners.h"

namespace Terminal {

/// A symbol's market-data record. Lives as long as the subscribe adapter.
class TRecord : public Basesubscribedata::TCustomSubItem {
public:
  explicit TRecord(std::string_view symbol) : symbol_(symbol) {}

  int GetState() const override { return state_; }
  std::string_view GetText(int field) const override;
  double GetNumber(int field) const override;
  bool HasValue(int field) const override { return Find(field) != nullptr; }
  std::string_view Symbol() const override { return symbol_; }
  std::string_view StatusText() const override { return status_; }
  void AddRealtimeListener(System::TNotifyEvent handler, const System::TObject* owner) override;
  void RemoveRealtimeListener(const System::TObject* owner) override;

private:
  friend class TSubscribeAdapter;

  struct TField {
    int Number;
    std::string Text;
  };

  const TField* Find(int field) const;
  void Merge(const Data::TRecordChange& change);
  void SetField(int field, const std::optional<std::string>& text);

  std::string symbol_;
  std::string status_;
  int state_ = Constdef::RecordState_None;
  bool named_ = false;         ///< a feed has spoken of it
  std::vector<TField> fields_; ///< by number, ascending
  std::size_t subscriptions_ = 0;
  TListeners<System::TObject*> realtimeListeners_;
  TDataListeners updateHandlers_;
};

} // namespace Terminal
