#pragma once

#include "host/BaseSubscribeAdapter.h"
#include "terminal/services/Record.h"
#include "terminal/services/SymbolDirectory.h"
#include "terminal/services/TradeSideDetector.h"

#include <map>
#include <memory>

namespace Terminal {

/// What views asked of the subscribe adapter: symbols, one per call, in order.
struct TRequests {
  std::vector<std::string> Subscribed;
  std::vector<std::string> Released;
  std::vector<std::string> Refreshed;
};

/// The records of all symbols, and who follows them. Feeds hand it their changes on the
/// user-interface thread.
class TSubscribeAdapter : public Basesubscribeadapter::TCustomSubscribeAdapter {
public:
  /// Symbols that a change names are listed in `symbols`, its trades go to `trades`.
  TSubscribeAdapter(TSymbolDirectory& symbols, TTradeSideDetector& trades);

  /// A symbol that no feed has spoken of gets a record in state RecordState_None.
  Basesubscribedata::TCustomSubItem* Subscribe(std::string_view symbol, std::string_view source,
                                               bool flag) override;
  void Unsubscribe(Basesubscribedata::TCustomSubItem* record) override;
  void SetUpdateHandler(Basesubscribedata::TCustomSubItem* record, System::TDataEvent handler,
                        const System::TObject* owner) override;
  void Release(Basesubscribedata::TCustomSubItem* record, const System::TObject* owner) override;
  void Refresh(std::string_view symbol) override;

  /// Merges the change into the symbol's record, takes its trades, and tells the record's
  /// listeners and update handlers once.
  void Apply(const Data::TRecordChange& change);

  /// Null when there is none. Lives as long as the adapter.
  const TRecord* Find(std::string_view symbol) const;

  /// Everything asked since the last call.
  TRequests TakeRequests() { return std::exchange(requests_, {}); }

  /// A feed that gives snapshots on request answers here; may stay unassigned.
  std::function<void(std::string_view symbol)> OnRefresh;

  /// Subscriptions that were not undone. A listener that outlived its subscription counts too.
  std::size_t RegistrationCount() const;

private:
  TRecord& Provide(std::string_view symbol);

  TSymbolDirectory& symbols_;
  TTradeSideDetector& trades_;
  std::map<std::string, std::unique_ptr<TRecord>, std::less<>> records_;
  TRequests requests_;
};

} // namespace Terminal
