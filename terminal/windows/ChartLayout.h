#pragma once

#include "terminal/windows/TradeBars.h"

#include <QRectF>
#include <QString>

#include <vector>

namespace Terminal {

/// Where the bars of a chart stand in a picture: minutes go from left to right, a fixed width
/// each, so many of the latest as there is room for; prices above, volumes below. A lunch hour
/// without trades takes no room.
class TChartLayout {
public:
  struct TMark {
    double Place = 0; ///< pixels: from the top for a price, from the left for a time
    double Price = 0; ///< of a price mark
    QString Time;     ///< of a time mark
  };

  /// `area` is what there is for the bars, axes not included; `minuteWidth` is in pixels.
  TChartLayout(const std::vector<TTradeBar>& bars, const QRectF& area, double minuteWidth);

  /// The bars that are in the picture; none when nothing was traded.
  const std::vector<TTradeBar>& Bars() const { return bars_; }
  /// Middle of a minute's room.
  double X(int minute) const;
  double Y(double price) const;
  /// From the high to the low.
  QRectF Range(const TTradeBar& bar) const;
  /// From the open to the close, at least a pixel high.
  QRectF Body(const TTradeBar& bar) const;
  QRectF Volume(const TTradeBar& bar) const;

  /// Round prices, `gap` pixels or more apart.
  std::vector<TMark> PriceMarks(double gap) const;
  /// Round times, `gap` pixels or more apart.
  std::vector<TMark> TimeMarks(double gap) const;
  /// Where the afternoon begins, when both sessions are in the picture; otherwise nothing.
  std::optional<double> SessionBreak() const;

private:
  int Position(int minute) const;
  QRectF Column(const TTradeBar& bar, double top, double bottom) const;

  QRectF area_;
  double minuteWidth_;
  bool hasLunch_ = false; ///< the lunch hour takes no room
  std::vector<TTradeBar> bars_;
  int lastPosition_ = 0;
  double low_ = 0;
  double high_ = 0;
  double mostVolume_ = 0;
};

} // namespace Terminal
