#include "terminal/services/SubscribeAdapter.h"

#include "text/Numbers.h"

namespace Terminal {

using Basesubscribedata::TCustomSubItem;

namespace {

// Every record comes from this adapter.
TRecord& Own(TCustomSubItem* record) { return *static_cast<TRecord*>(record); }

} // namespace

TSubscribeAdapter::TSubscribeAdapter(TSymbolDirectory& symbols, TTradeSideDetector& trades)
    : symbols_(symbols), trades_(trades) {}

TRecord& TSubscribeAdapter::Provide(std::string_view symbol) {
  auto& record = records_[std::string(symbol)];
  if (!record)
    record = std::make_unique<TRecord>(symbol);
  return *record;
}

const TRecord* TSubscribeAdapter::Find(std::string_view symbol) const {
  const auto found = records_.find(symbol);
  return found == records_.end() ? nullptr : found->second.get();
}

TCustomSubItem* TSubscribeAdapter::Subscribe(std::string_view symbol, std::string_view, bool) {
  if (symbol.empty())
    return nullptr;
  requests_.Subscribed.emplace_back(symbol);
  auto& record = Provide(symbol);
  ++record.subscriptions_;
  return &record;
}

void TSubscribeAdapter::Unsubscribe(TCustomSubItem* record) {
  if (!record)
    return;
  requests_.Released.emplace_back(record->Symbol());
  if (Own(record).subscriptions_ > 0)
    --Own(record).subscriptions_;
}

void TSubscribeAdapter::SetUpdateHandler(TCustomSubItem* record, System::TDataEvent handler,
                                         const System::TObject* owner) {
  if (record)
    Own(record).updateHandlers_.Set(owner, std::move(handler));
}

void TSubscribeAdapter::Release(TCustomSubItem* record, const System::TObject* owner) {
  if (record)
    Own(record).updateHandlers_.Remove(owner);
  Unsubscribe(record);
}

void TSubscribeAdapter::Refresh(std::string_view symbol) {
  requests_.Refreshed.emplace_back(symbol);
  if (OnRefresh)
    OnRefresh(symbol);
}

void TSubscribeAdapter::Apply(const Data::TRecordChange& change) {
  if (change.Symbol.empty())
    return;
  auto& record = Provide(change.Symbol);
  if (!record.named_)
    symbols_.Add(change.Symbol);
  for (auto trade : change.Trades) {
    Text::WriteQuantityText(trade.Quantity, std::string(trade.Quantity));
    trades_.AddTrade(change.Symbol, trade);
  }
  record.Merge(change);
  record.realtimeListeners_.Notify(&record);
  record.updateHandlers_.Notify(this, &record);
}

std::size_t TSubscribeAdapter::RegistrationCount() const {
  std::size_t count = 0;
  for (const auto& [symbol, record] : records_) {
    const auto listeners = record->realtimeListeners_.Count() + record->updateHandlers_.Count();
    count += std::max(record->subscriptions_, listeners);
  }
  return count;
}

} // namespace Terminal
