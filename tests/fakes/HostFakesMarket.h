#pragma once

#include "fakes/HostFakesListeners.h"
#include "host/BaseMarketAdapter.h"
#include "host/MarketTradeSideDetector.h"

#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace Fakes {

/// The keys of a change notification.
class TFakeChangedKeys : public Basemarketadapter::TChangedKeys {
public:
  explicit TFakeChangedKeys(std::set<std::string, std::less<>> keys) : keys_(std::move(keys)) {}

  bool Contains(std::string_view key) const override { return keys_.contains(key); }

private:
  std::set<std::string, std::less<>> keys_;
};

/// Prices above From, up to and including To.
struct TFakeBand {
  double From, To, Step;
};

class TFakeSpreadTable : public Basemarketadapter::TCustomSpreadTable {
public:
  TFakeSpreadTable(int state, std::vector<TFakeBand> bands)
      : state_(state), bands_(std::move(bands)) {}

  int State() const override { return state_; }
  double PriceStep(double price) const override;
  double PriceStepsAway(double price, int steps) const override;

private:
  double StepAbove(double price) const;

  int state_;
  std::vector<TFakeBand> bands_;
};

struct TFakeBroker : Basemarketadapter::TCustomBroker {
  std::string name, name1, name2, otherName;

  TFakeBroker(std::string name_, std::string name1_, std::string name2_, std::string otherName_);

  std::string_view Name() const override { return name; }
  std::string_view Name1() const override { return name1; }
  std::string_view Name2() const override { return name2; }
  std::string_view OtherName() const override { return otherName; }
};

struct TFakeInstrument : Basemarketadapter::TCustomInstrument {
  std::string currency, description;

  explicit TFakeInstrument(std::string currency_) : currency(std::move(currency_)) {}

  std::string_view Currency() const override { return currency; }
  std::string Description() const override { return description; }
};

/// Reference data that a test sets. Setting tells nobody; the two announcements do.
class TFakeMarketAdapter : public Basemarketadapter::TCustomMarketAdapter {
public:
  void SetSpreadTable(std::string code, int state, std::vector<TFakeBand> bands);
  void SetBroker(std::string id, std::string name, std::string name1 = {}, std::string name2 = {},
                 std::string otherName = {});
  void SetCurrency(std::string symbol, std::string currency);
  /// Of an instrument without a currency.
  void SetDescription(std::string symbol, std::string description);

  void AnnounceBrokers() const;
  void AnnounceSpreads(std::set<std::string, std::less<>> codes) const;

  int BrokerListenerCount() const { return brokerListeners_.Count(); }
  int SpreadListenerCount() const { return spreadListeners_.Count(); }

  void RegisterBrokerListener(System::TDataEvent handler, const System::TObject* owner) override;
  void UnregisterBrokerListener(const System::TObject* owner) override;
  void RegisterSpreadListener(System::TDataEvent handler, const System::TObject* owner) override;
  void UnregisterSpreadListener(const System::TObject* owner) override;
  const Basemarketadapter::TCustomSpreadTable* GetSpreadTable(std::string_view code) override;
  const Basemarketadapter::TCustomBroker* GetBroker(std::string_view id) override;
  const Basemarketadapter::TCustomInstrument* GetInstrument(std::string_view symbol) override;

private:
  template <typename TValue> using TDirectory =
      std::map<std::string, std::unique_ptr<TValue>, std::less<>>;

  TDirectory<TFakeSpreadTable> spreadTables_;
  TDirectory<TFakeBroker> brokers_;
  TDirectory<TFakeInstrument> instruments_;
  TDataListeners brokerListeners_;
  TDataListeners spreadListeners_;
};

struct TFakeSymbolTrades : Markettradesidedetector::TSymbolMarketTrade {
  std::vector<Markettradesidedetector::TTrade> trades;

  const Markettradesidedetector::TTrade* GetTrade(int index) const override;
};

class TFakeTradeSideDetector : public Markettradesidedetector::TMarketTradeSideDetector {
public:
  /// First trade first.
  void SetTrades(std::string symbol, std::vector<Markettradesidedetector::TTrade> trades);
  /// Symbols that somebody follows, each as often as it was asked for.
  std::multiset<std::string, std::less<>> followed;

  void AddSymbol(std::string_view symbol) override { followed.emplace(symbol); }
  void RemoveSymbol(std::string_view symbol) override;
  const Markettradesidedetector::TSymbolMarketTrade*
  GetSymbolMarketTrade(std::string_view symbol) override;

private:
  std::map<std::string, TFakeSymbolTrades, std::less<>> trades_;
};

} // namespace Fakes
