#pragma once

#include "host/BaseMarketAdapter.h"
#include "terminal/services/Listeners.h"
#include "terminal/services/SpreadTable.h"
#include "terminal/services/SymbolDirectory.h"

#include <functional>
#include <map>
#include <set>

namespace Terminal {

class TChangedKeys : public Basemarketadapter::TChangedKeys {
public:
  void Add(std::string_view key) { keys_.emplace(key); }
  bool Contains(std::string_view key) const override { return keys_.count(key) > 0; }

private:
  std::set<std::string, std::less<>> keys_;
};

/// What defines a broker. Names may be empty.
struct TBrokerDefinition {
  std::string ID; ///< four digits
  std::string Name;
  std::string Name1;
  std::string Name2;
  std::string OtherName;
};

/// Reference data of the market.
class TMarketAdapter : public Basemarketadapter::TCustomMarketAdapter {
public:
  /// Instruments are listed in `symbols`.
  explicit TMarketAdapter(TSymbolDirectory& symbols);
  ~TMarketAdapter() override;

  void RegisterBrokerListener(System::TDataEvent handler, const System::TObject* owner) override;
  void UnregisterBrokerListener(const System::TObject* owner) override;
  void RegisterSpreadListener(System::TDataEvent handler, const System::TObject* owner) override;
  void UnregisterSpreadListener(const System::TObject* owner) override;
  /// Tables once defined keep their place.
  const TSpreadTable* GetSpreadTable(std::string_view code) override;
  const Basemarketadapter::TCustomBroker* GetBroker(std::string_view id) override;
  const Basemarketadapter::TCustomInstrument* GetInstrument(std::string_view symbol) override;

  /// Defines or replaces the tables and announces their codes together.
  void DefineSpreadTables(const std::vector<TReferenceData::TSpreadTable>& tables);
  /// Replaces the whole broker directory and announces it.
  void ReplaceBrokers(const std::vector<TBrokerDefinition>& brokers);
  /// Defines or replaces an instrument. Nothing happens for an empty symbol; without any name it
  /// keeps those it has.
  void DefineInstrument(std::string_view symbol, std::string_view currency, std::string_view name,
                        std::string_view traditionalName = {},
                        std::string_view simplifiedName = {});

  /// What instruments say of themselves; unassigned: nothing.
  std::function<std::string(std::string_view symbol)> OnDescribe;

private:
  class TBroker;
  class TInstrument;

  TSymbolDirectory& symbols_;
  std::map<std::string, TSpreadTable, std::less<>> spreadTables_;
  std::map<std::string, TBroker, std::less<>> brokers_;
  std::map<std::string, TInstrument, std::less<>> instruments_;
  TDataListeners brokerListeners_;
  TDataListeners spreadListeners_;
};

} // namespace Terminal
