#include "terminal/services/MarketAdapter.h"

namespace Terminal {

class TMarketAdapter::TBroker : public Basemarketadapter::TCustomBroker {
public:
  explicit TBroker(const TBrokerDefinition& definition) : definition_(definition) {}

  std::string_view Name() const override { return definition_.Name; }
  std::string_view Name1() const override { return definition_.Name1; }
  std::string_view Name2() const override { return definition_.Name2; }
  std::string_view OtherName() const override { return definition_.OtherName; }

private:
  TBrokerDefinition definition_;
};

class TMarketAdapter::TInstrument : public Basemarketadapter::TCustomInstrument {
public:
  TInstrument(const TMarketAdapter& market, std::string_view symbol)
      : market_(market), symbol_(symbol) {}

  std::string_view Currency() const override { return currency_; }
  std::string Description() const override {
    return market_.OnDescribe ? market_.OnDescribe(symbol_) : std::string();
  }
  void SetCurrency(std::string_view currency) { currency_ = currency; }

private:
  const TMarketAdapter& market_;
  std::string symbol_;
  std::string currency_;
};

namespace {

template <typename TMap> auto* FindOrNull(TMap& map, std::string_view key) {
  const auto found = map.find(key);
  return found == map.end() ? nullptr : &found->second;
}

} // namespace

TMarketAdapter::TMarketAdapter(TSymbolDirectory& symbols) : symbols_(symbols) {}
TMarketAdapter::~TMarketAdapter() = default;

void TMarketAdapter::RegisterBrokerListener(System::TDataEvent handler,
                                            const System::TObject* owner) {
  brokerListeners_.Set(owner, std::move(handler));
}

void TMarketAdapter::UnregisterBrokerListener(const System::TObject* owner) {
  brokerListeners_.Remove(owner);
}

void TMarketAdapter::RegisterSpreadListener(System::TDataEvent handler,
                                            const System::TObject* owner) {
  spreadListeners_.Set(owner, std::move(handler));
}

void TMarketAdapter::UnregisterSpreadListener(const System::TObject* owner) {
  spreadListeners_.Remove(owner);
}

const TSpreadTable* TMarketAdapter::GetSpreadTable(std::string_view code) {
  return FindOrNull(spreadTables_, code);
}

const Basemarketadapter::TCustomBroker* TMarketAdapter::GetBroker(std::string_view id) {
  return FindOrNull(brokers_, id);
}

const Basemarketadapter::TCustomInstrument* TMarketAdapter::GetInstrument(std::string_view symbol) {
  return FindOrNull(instruments_, symbol);
}

void TMarketAdapter::DefineSpreadTables(const std::vector<TReferenceData::TSpreadTable>& tables) {
  TChangedKeys changed;
  for (const auto& table : tables) {
    spreadTables_[table.Code].Define(table.State, table.Bands);
    changed.Add(table.Code);
  }
  spreadListeners_.Notify(this, &changed);
}

void TMarketAdapter::ReplaceBrokers(const std::vector<TBrokerDefinition>& brokers) {
  brokers_.clear();
  for (const auto& broker : brokers) {
    brokers_.erase(broker.ID); // a later entry of the same number wins
    brokers_.try_emplace(broker.ID, broker);
  }
  brokerListeners_.Notify(this, nullptr);
}

void TMarketAdapter::DefineInstrument(std::string_view symbol, std::string_view currency,
                                      std::string_view name, std::string_view traditionalName,
                                      std::string_view simplifiedName) {
  if (symbol.empty())
    return;
  instruments_.try_emplace(std::string(symbol), *this, symbol).first->second.SetCurrency(currency);
  symbols_.Add(symbol, name, traditionalName, simplifiedName);
}

} // namespace Terminal
