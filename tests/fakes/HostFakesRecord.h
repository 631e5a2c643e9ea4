#pragma once

#include "fakes/HostFakesListeners.h"
#include "host/BaseSubscribeAdapter.h"
#include "host/ConstDef.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace Fakes {

/// A record that a test fills. Setting a value tells nobody; Update does.
class TFakeRecord : public Basesubscribedata::TCustomSubItem {
public:
  explicit TFakeRecord(std::string symbol) : symbol_(std::move(symbol)) {}

  // What the test says.
  TFakeRecord& Set(int field, std::string_view text);
  TFakeRecord& Set(std::initializer_list<std::pair<int, std::string_view>> fields);
  TFakeRecord& Remove(int field);
  /// No field is left.
  TFakeRecord& Clear();
  TFakeRecord& SetState(int state);
  TFakeRecord& SetStatusText(std::string text);
  /// Tells everybody who listens to this record.
  void Update();

  /// Real-time listeners and update handlers.
  int ListenerCount() const { return realtime_.Count() + updates_.Count(); }

  // The contract.
  int GetState() const override { return state_; }
  std::string_view GetText(int field) const override;
  double GetNumber(int field) const override;
  bool HasValue(int field) const override { return fields_.contains(field); }
  std::string_view Symbol() const override { return symbol_; }
  std::string_view StatusText() const override { return statusText_; }
  void AddRealtimeListener(System::TNotifyEvent handler, const System::TObject* owner) override;
  void RemoveRealtimeListener(const System::TObject* owner) override;

private:
  friend class TFakeSubscribeAdapter;

  std::string symbol_;
  int state_ = Constdef::RecordState_Ready;
  std::string statusText_;
  std::unordered_map<int, std::string> fields_;
  TNotifyListeners realtime_;
  TDataListeners updates_;
};

/// Keeps the records of all symbols; a record that nobody named yet is made empty and ready.
class TFakeSubscribeAdapter : public Basesubscribeadapter::TCustomSubscribeAdapter {
public:
  /// The record of a symbol, subscribed or not.
  TFakeRecord& Record(std::string_view symbol);
  /// Live subscriptions: of a symbol, of all.
  int SubscriptionCount(std::string_view symbol) const;
  int SubscriptionCount() const;
  /// Real-time listeners and update handlers of all records.
  int ListenerCount() const;

  // What was asked: one symbol a call, in order.
  std::vector<std::string> subscribed;
  std::vector<std::string> released;
  std::vector<std::string> refreshed;
  std::vector<std::string> sources; ///< data set of each subscription
  std::vector<bool> flags;          ///< flag of each subscription
  /// Subscriptions that ended while a listener of theirs was left on the record.
  int abandonedListeners = 0;

  Basesubscribedata::TCustomSubItem* Subscribe(std::string_view symbol, std::string_view source,
                                               bool flag) override;
  void Unsubscribe(Basesubscribedata::TCustomSubItem* record) override;
  void SetUpdateHandler(Basesubscribedata::TCustomSubItem* record, System::TDataEvent handler,
                        const System::TObject* owner) override;
  void Release(Basesubscribedata::TCustomSubItem* record, const System::TObject* owner) override;
  void Refresh(std::string_view symbol) override;

private:
  std::map<std::string, std::unique_ptr<TFakeRecord>, std::less<>> records_;
  std::map<std::string, int, std::less<>> subscriptions_;
};

} // namespace Fakes
