#include "fakes/HostFakesMarket.h"

#include "host/ConstDef.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace Fakes {

namespace {

/// The nearest millionth, so that a walk in steps lands on what a person would write.
double Rounded(double price) { return std::round(price * 1e6) / 1e6; }

} // namespace

double TFakeSpreadTable::PriceStep(double price) const {
  for (const TFakeBand& band : bands_)
    if (price > band.From && price <= band.To)
      return band.Step;
  return 0;
}

double TFakeSpreadTable::StepAbove(double price) const {
  for (const TFakeBand& band : bands_)
    if (price >= band.From && price < band.To)
      return band.Step;
  return 0;
}

double TFakeSpreadTable::PriceStepsAway(double price, int steps) const {
  for (int left = std::abs(steps); left > 0; --left) {
    const double step = steps > 0 ? StepAbove(price) : PriceStep(price);
    if (step == 0)
      return 0;
    price = Rounded(price + (steps > 0 ? step : -step));
  }
  return std::max(price, 0.);
}

TFakeBroker::TFakeBroker(std::string name_, std::string name1_, std::string name2_,
                         std::string otherName_)
    : name(std::move(name_)), name1(std::move(name1_)), name2(std::move(name2_)),
      otherName(std::move(otherName_)) {}

void TFakeMarketAdapter::SetSpreadTable(std::string code, int state, std::vector<TFakeBand> bands) {
  spreadTables_[std::move(code)] = std::make_unique<TFakeSpreadTable>(state, std::move(bands));
}

void TFakeMarketAdapter::SetBroker(std::string id, std::string name, std::string name1,
                                   std::string name2, std::string otherName) {
  brokers_[std::move(id)] = std::make_unique<TFakeBroker>(std::move(name), std::move(name1),
                                                          std::move(name2), std::move(otherName));
}

void TFakeMarketAdapter::SetCurrency(std::string symbol, std::string currency) {
  instruments_[std::move(symbol)] = std::make_unique<TFakeInstrument>(std::move(currency));
}

void TFakeMarketAdapter::SetDescription(std::string symbol, std::string description) {
  auto instrument = std::make_unique<TFakeInstrument>(std::string());
  instrument->description = std::move(description);
  instruments_[std::move(symbol)] = std::move(instrument);
}

void TFakeMarketAdapter::AnnounceBrokers() const {
  brokerListeners_.Notify(static_cast<System::TObject*>(nullptr),
                          static_cast<System::TObject*>(nullptr));
}

void TFakeMarketAdapter::AnnounceSpreads(std::set<std::string, std::less<>> codes) const {
  TFakeChangedKeys keys(std::move(codes));
  spreadListeners_.Notify(static_cast<System::TObject*>(nullptr),
                          static_cast<System::TObject*>(&keys));
}

void TFakeMarketAdapter::RegisterBrokerListener(System::TDataEvent handler,
                                                const System::TObject* owner) {
  brokerListeners_.Add(std::move(handler), owner);
}

void TFakeMarketAdapter::UnregisterBrokerListener(const System::TObject* owner) {
  brokerListeners_.Remove(owner);
}

void TFakeMarketAdapter::RegisterSpreadListener(System::TDataEvent handler,
                                                const System::TObject* owner) {
  spreadListeners_.Add(std::move(handler), owner);
}

void TFakeMarketAdapter::UnregisterSpreadListener(const System::TObject* owner) {
  spreadListeners_.Remove(owner);
}

const Basemarketadapter::TCustomSpreadTable*
TFakeMarketAdapter::GetSpreadTable(std::string_view code) {
  const auto found = spreadTables_.find(code);
  return found == spreadTables_.end() ? nullptr : found->second.get();
}

const Basemarketadapter::TCustomBroker* TFakeMarketAdapter::GetBroker(std::string_view id) {
  const auto found = brokers_.find(id);
  return found == brokers_.end() ? nullptr : found->second.get();
}

const Basemarketadapter::TCustomInstrument*
TFakeMarketAdapter::GetInstrument(std::string_view symbol) {
  const auto found = instruments_.find(symbol);
  return found == instruments_.end() ? nullptr : found->second.get();
}

const Markettradesidedetector::TTrade* TFakeSymbolTrades::GetTrade(int index) const {
  const auto count = static_cast<int>(trades.size());
  return index < 0 || index >= count ? nullptr : &trades[static_cast<std::size_t>(index)];
}

void TFakeTradeSideDetector::SetTrades(std::string symbol,
                                       std::vector<Markettradesidedetector::TTrade> trades) {
  trades_[std::move(symbol)].trades = std::move(trades);
}

void TFakeTradeSideDetector::RemoveSymbol(std::string_view symbol) {
  const auto found = followed.find(symbol);
  if (found != followed.end())
    followed.erase(found);
}

const Markettradesidedetector::TSymbolMarketTrade*
TFakeTradeSideDetector::GetSymbolMarketTrade(std::string_view symbol) {
  const auto found = trades_.find(symbol);
  return found == trades_.end() ? nullptr : &found->second;
}

} // namespace Fakes
