#include "terminal/services/TradeSideDetector.h"

#include <algorithm>

namespace Terminal {

using Markettradesidedetector::TTrade;

const TTrade* TSymbolTrades::GetTrade(int index) const {
  const bool known = index >= 0 && static_cast<std::size_t>(index) < trades_.size();
  return known ? &trades_[static_cast<std::size_t>(index)] : nullptr;
}

void TSymbolTrades::Add(TTrade trade) {
  trades_.push_front(std::move(trade));
  if (trades_.size() > Kept)
    trades_.pop_back();
}

void TSymbolTrades::Replace(const std::vector<TTrade>& trades) {
  const auto kept = static_cast<std::ptrdiff_t>(std::min(trades.size(), Kept));
  trades_.assign(trades.begin(), trades.begin() + kept);
}

void TTradeSideDetector::AddSymbol(std::string_view symbol) {
  ++registrations_[std::string(symbol)];
}

void TTradeSideDetector::RemoveSymbol(std::string_view symbol) {
  const auto found = registrations_.find(symbol);
  if (found != registrations_.end() && --found->second == 0)
    registrations_.erase(found);
}

const TSymbolTrades* TTradeSideDetector::GetSymbolMarketTrade(std::string_view symbol) {
  const auto found = trades_.find(symbol);
  return found == trades_.end() ? nullptr : &found->second;
}

void TTradeSideDetector::AddTrade(std::string_view symbol, const TTrade& trade) {
  trades_[std::string(symbol)].Add(trade);
  if (OnTrade)
    OnTrade(symbol, &trade);
}

void TTradeSideDetector::ReplaceTrades(std::string_view symbol, const std::vector<TTrade>& trades) {
  trades_[std::string(symbol)].Replace(trades);
  if (OnTrade)
    OnTrade(symbol, nullptr);
}

std::size_t TTradeSideDetector::RegistrationCount() const {
  std::size_t count = 0;
  for (const auto& [symbol, registrations] : registrations_)
    count += registrations;
  return count;
}

} // namespace Terminal
