#include "fakes/HostFakesRecord.h"

#include <charconv>
#include <numeric>

namespace Fakes {

TFakeRecord& TFakeRecord::Set(int field, std::string_view text) {
  fields_[field] = text;
  return *this;
}

TFakeRecord& TFakeRecord::Set(std::initializer_list<std::pair<int, std::string_view>> fields) {
  for (const auto& [field, text] : fields)
    Set(field, text);
  return *this;
}

TFakeRecord& TFakeRecord::Remove(int field) {
  fields_.erase(field);
  return *this;
}

TFakeRecord& TFakeRecord::Clear() {
  fields_.clear();
  return *this;
}

TFakeRecord& TFakeRecord::SetState(int state) {
  state_ = state;
  return *this;
}

TFakeRecord& TFakeRecord::SetStatusText(std::string text) {
  statusText_ = std::move(text);
  return *this;
}

void TFakeRecord::Update() {
  realtime_.Notify(static_cast<System::TObject*>(this));
  updates_.Notify(static_cast<System::TObject*>(this), static_cast<System::TObject*>(this));
}

std::string_view TFakeRecord::GetText(int field) const {
  const auto found = fields_.find(field);
  return found == fields_.end() ? std::string_view() : std::string_view(found->second);
}

double TFakeRecord::GetNumber(int field) const {
  const std::string_view text = GetText(field);
  double number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size() ? number : 0;
}

void TFakeRecord::AddRealtimeListener(System::TNotifyEvent handler, const System::TObject* owner) {
  realtime_.Add(std::move(handler), owner);
}

void TFakeRecord::RemoveRealtimeListener(const System::TObject* owner) { realtime_.Remove(owner); }

TFakeRecord& TFakeSubscribeAdapter::Record(std::string_view symbol) {
  auto& record = records_[std::string(symbol)];
  if (!record)
    record = std::make_unique<TFakeRecord>(std::string(symbol));
  return *record;
}

int TFakeSubscribeAdapter::SubscriptionCount(std::string_view symbol) const {
  const auto found = subscriptions_.find(symbol);
  return found == subscriptions_.end() ? 0 : found->second;
}

int TFakeSubscribeAdapter::SubscriptionCount() const {
  return std::accumulate(subscriptions_.begin(), subscriptions_.end(), 0,
                         [](int sum, const auto& entry) { return sum + entry.second; });
}

int TFakeSubscribeAdapter::ListenerCount() const {
  return std::accumulate(records_.begin(), records_.end(), 0, [](int sum, const auto& entry) {
    return sum + entry.second->ListenerCount();
  });
}

Basesubscribedata::TCustomSubItem*
TFakeSubscribeAdapter::Subscribe(std::string_view symbol, std::string_view source, bool flag) {
  if (symbol.empty())
    return nullptr;
  subscribed.emplace_back(symbol);
  sources.emplace_back(source);
  flags.push_back(flag);
  ++subscriptions_[std::string(symbol)];
  return &Record(symbol);
}

void TFakeSubscribeAdapter::Unsubscribe(Basesubscribedata::TCustomSubItem* record) {
  const std::string symbol(record->Symbol());
  released.push_back(symbol);
  if (--subscriptions_[symbol] < Record(symbol).ListenerCount())
    ++abandonedListeners;
}

void TFakeSubscribeAdapter::SetUpdateHandler(Basesubscribedata::TCustomSubItem* record,
                                             System::TDataEvent handler,
                                             const System::TObject* owner) {
  Record(record->Symbol()).updates_.Add(std::move(handler), owner);
}

void TFakeSubscribeAdapter::Release(Basesubscribedata::TCustomSubItem* record,
                                    const System::TObject* owner) {
  Record(record->Symbol()).updates_.Remove(owner);
  Unsubscribe(record);
}

void TFakeSubscribeAdapter::Refresh(std::string_view symbol) { refreshed.emplace_back(symbol); }

} // namespace Fakes
