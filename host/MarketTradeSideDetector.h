#pragma once

#include "host/Service.h"

#include <string_view>

namespace Markettradesidedetector {

/// One trade.
struct TTrade {
  std::string Time;     ///< as the feed gives it
  std::string Side;     ///< side mark; empty when the trade has none
  std::string Quantity; ///< as shown
  double Price = 0;     ///< in currency units
};

/// The recent trades of one symbol, latest first.
class QUOR_EXPORT TSymbolMarketTrade : public System::TObject {
public:
  ~TSymbolMarketTrade() override;

  /// Trade number `index`, from 0; null when there is none. Valid until the next trade.
  virtual const TTrade* GetTrade(int index) const = 0;
};

/// Collects the trades of the symbols that somebody asked for. Each AddSymbol is undone by one
/// RemoveSymbol.
class QUOR_EXPORT TMarketTradeSideDetector : public Host::TService<TMarketTradeSideDetector> {
public:
  ~TMarketTradeSideDetector() override;

  virtual void AddSymbol(std::string_view symbol) = 0;
  virtual void RemoveSymbol(std::string_view symbol) = 0;
  /// Null when nothing is known of the symbol's trades.
  virtual const TSymbolMarketTrade* GetSymbolMarketTrade(std::string_view symbol) = 0;
};

} // namespace Markettradesidedetector
