#pragma once

#include "host/MarketTradeSideDetector.h"

#include <deque>
#include <functional>
#include <map>
#include <vector>

namespace Terminal {

/// The latest trades of a symbol.
class TSymbolTrades : public Markettradesidedetector::TSymbolMarketTrade {
public:
  static constexpr std::size_t Kept = 50;

  const Markettradesidedetector::TTrade* GetTrade(int index) const override;

  void Add(Markettradesidedetector::TTrade trade);
  /// Latest first.
  void Replace(const std::vector<Markettradesidedetector::TTrade>& trades);

private:
  std::deque<Markettradesidedetector::TTrade> trades_; ///< latest first
};

/// Recent trades of every symbol that a feed has spoken of, so that a view has them at once when
/// it is given the symbol.
class TTradeSideDetector : public Markettradesidedetector::TMarketTradeSideDetector {
public:
  void AddSymbol(std::string_view symbol) override;
  void RemoveSymbol(std::string_view symbol) override;
  const TSymbolTrades* GetSymbolMarketTrade(std::string_view symbol) override;

  /// A new trade becomes the latest.
  void AddTrade(std::string_view symbol, const Markettradesidedetector::TTrade& trade);
  /// Replaces the symbol's trades; the latest is first.
  void ReplaceTrades(std::string_view symbol,
                     const std::vector<Markettradesidedetector::TTrade>& trades);

  /// Called with each new trade, and with null when the symbol's trades were replaced.
  std::function<void(std::string_view symbol, const Markettradesidedetector::TTrade* trade)>
      OnTrade;

  /// AddSymbol calls that no RemoveSymbol has undone.
  std::size_t RegistrationCount() const;

private:
  std::map<std::string, TSymbolTrades, std::less<>> trades_;
  std::map<std::string, std::size_t, std::less<>> registrations_; ///< by symbol
};

} // namespace Terminal
