#pragma once

#include "terminal/services/TradeSideDetector.h"

#include <QObject>

#include <map>
#include <string>
#include <vector>

namespace Terminal {

/// The trades of one minute. Prices in currency units, volume in shares.
struct TTradeBar {
  int Minute = 0; ///< of the day, from midnight
  double Open = 0;
  double High = 0;
  double Low = 0;
  double Close = 0;
  double Volume = 0;

  bool operator==(const TTradeBar&) const = default;
};

/// The day's trades of every symbol, by the minute: what charts are drawn from. A day has 1440
/// minutes, so a symbol never holds more bars. Trades without a time of day, a price or a quantity
/// count for nothing.
class TTradeBars : public QObject {
  Q_OBJECT

public:
  /// Follows `trades`, which outlives the bars, until destroyed.
  explicit TTradeBars(TTradeSideDetector& trades);
  ~TTradeBars() override;

  /// By minute, ascending; minutes without a trade have no bar.
  const std::vector<TTradeBar>& Of(std::string_view symbol) const;

signals:
  void Changed(const std::string& symbol);

private:
  void Apply(std::string_view symbol, const Markettradesidedetector::TTrade* trade);
  void Add(std::vector<TTradeBar>& bars, const Markettradesidedetector::TTrade& trade);

  TTradeSideDetector& trades_;
  std::map<std::string, std::vector<TTradeBar>, std::less<>> bars_;
};

} // namespace Terminal
