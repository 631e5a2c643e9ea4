#include "terminal/windows/ChartLayout.h"

#include <algorithm>
#include <cmath>

namespace Terminal {

namespace {

constexpr int MorningEnd = 12 * 60; // trades at the very end of the morning are its last
constexpr int AfternoonStart = 13 * 60;
constexpr double VolumeShare = 0.2;  // of the height
constexpr double VolumeGap = 6;      // pixels between prices and volumes
constexpr double BodyShare = 0.7;    // of a minute's room
constexpr double PriceMargin = 0.05; // of the range, above and below
constexpr double LeastRange = 0.002; // of the price, when it never moved

bool IsLunch(const TTradeBar& bar) {
  return bar.Minute > MorningEnd && bar.Minute < AfternoonStart;
}

/// 1, 2 or 5 times a power of ten.
double RoundStep(double least) {
  const double power = std::pow(10, std::floor(std::log10(least)));
  for (const double factor : {1.0, 2.0, 5.0})
    if (factor * power >= least * (1 - 1e-9))
      return factor * power;
  return 10 * power;
}

int RoundMinutes(double least) {
  for (const int minutes : {1, 2, 5, 10, 15, 30, 60})
    if (minutes >= least)
      return minutes;
  return 120;
}

} // namespace

TChartLayout::TChartLayout(const std::vector<TTradeBar>& bars, const QRectF& area,
                           double minuteWidth)
    : area_(area), minuteWidth_(minuteWidth),
      hasLunch_(std::none_of(bars.begin(), bars.end(), IsLunch)) {
  if (bars.empty())
    return;
  lastPosition_ = Position(bars.back().Minute);
  const int room = static_cast<int>(area.width() / minuteWidth);
  std::copy_if(bars.begin(), bars.end(), std::back_inserter(bars_),
               [&](const TTradeBar& bar) { return Position(bar.Minute) > lastPosition_ - room; });
  low_ = bars.back().Low;
  high_ = bars.back().High;
  for (const auto& bar : bars_) {
    low_ = std::min(low_, bar.Low);
    high_ = std::max(high_, bar.High);
    mostVolume_ = std::max(mostVolume_, bar.Volume);
  }
  const double margin = std::max((high_ - low_) * PriceMargin, high_ * LeastRange);
  low_ -= margin;
  high_ += margin;
}

int TChartLayout::Position(int minute) const {
  constexpr int lunch = AfternoonStart - MorningEnd - 1;
  return hasLunch_ && minute > MorningEnd ? std::max(MorningEnd, minute - lunch) : minute;
}

// The picture fills from the left until there is no room left, and then follows the latest.
double TChartLayout::X(int minute) const {
  const int room = std::max(1, static_cast<int>(area_.width() / minuteWidth_));
  const int first =
      std::max(bars_.empty() ? 0 : Position(bars_.front().Minute), lastPosition_ - room + 1);
  return area_.left() + (Position(minute) - first + 0.5) * minuteWidth_;
}

double TChartLayout::Y(double price) const {
  const double height = area_.height() * (1 - VolumeShare) - VolumeGap;
  return area_.top() + (high_ - price) / (high_ - low_) * height;
}

QRectF TChartLayout::Column(const TTradeBar& bar, double top, double bottom) const {
  const double width = std::max(1.0, minuteWidth_ * BodyShare);
  return {X(bar.Minute) - width / 2, top, width, bottom - top};
}

QRectF TChartLayout::Range(const TTradeBar& bar) const {
  return Column(bar, Y(bar.High), Y(bar.Low));
}

QRectF TChartLayout::Body(const TTradeBar& bar) const {
  const double top = Y(std::max(bar.Open, bar.Close));
  return Column(bar, top, std::max(top + 1, Y(std::min(bar.Open, bar.Close))));
}

QRectF TChartLayout::Volume(const TTradeBar& bar) const {
  const double height = area_.height() * VolumeShare;
  const double share = mostVolume_ > 0 ? bar.Volume / mostVolume_ : 0;
  return Column(bar, area_.bottom() - share * height, area_.bottom());
}

std::vector<TChartLayout::TMark> TChartLayout::PriceMarks(double gap) const {
  std::vector<TMark> marks;
  const double height = Y(low_) - Y(high_);
  if (bars_.empty() || height < gap)
    return marks;
  const double step = RoundStep((high_ - low_) * gap / height);
  for (double count = std::ceil(low_ / step); count * step <= high_; ++count)
    marks.push_back({Y(count * step), count * step, {}});
  return marks;
}

std::vector<TChartLayout::TMark> TChartLayout::TimeMarks(double gap) const {
  std::vector<TMark> marks;
  if (bars_.empty())
    return marks;
  const int step = RoundMinutes(gap / minuteWidth_);
  const int first = bars_.front().Minute;
  for (int minute = (first + step - 1) / step * step; X(minute) < area_.right(); minute += step) {
    const bool isLeftOut = hasLunch_ && minute > MorningEnd && minute < AfternoonStart;
    if (!isLeftOut && (marks.empty() || X(minute) - marks.back().Place >= gap))
      marks.push_back({X(minute), 0,
                       QStringLiteral("%1:%2")
                           .arg(minute / 60, 2, 10, QLatin1Char('0'))
                           .arg(minute % 60, 2, 10, QLatin1Char('0'))});
  }
  return marks;
}

std::optional<double> TChartLayout::SessionBreak() const {
  const bool isBoth = hasLunch_ && !bars_.empty() && bars_.front().Minute < AfternoonStart &&
                      bars_.back().Minute >= AfternoonStart;
  if (!isBoth)
    return {};
  return X(AfternoonStart) - minuteWidth_ / 2;
}

} // namespace Terminal
