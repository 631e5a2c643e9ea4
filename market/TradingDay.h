#pragma once

#include "market/MarketTypes.h"

#include <array>
#include <cstdint>
#include <optional>

namespace Market {

enum class TPhase {
  Closed, ///< before the day and after it
  OpeningInput,
  OpeningNoCancel,
  OpeningMatching, ///< ends, with the matching, at a moment not known beforehand
  Blocking,        ///< from the matching to the start of trading
  Morning,
  Lunch,
  Afternoon,
  ReferenceFixing,
  ClosingInput,
  ClosingNoCancel,
  ClosingMatching ///< ends, with the matching and the day, at a moment not known beforehand
};

constexpr bool IsContinuous(TPhase phase) {
  return phase == TPhase::Morning || phase == TPhase::Afternoon;
}
/// Orders gather and an equilibrium price is published.
constexpr bool IsOpeningAuction(TPhase phase) {
  return phase >= TPhase::OpeningInput && phase <= TPhase::OpeningMatching;
}
/// Orders gather and an equilibrium price is published.
constexpr bool IsClosingAuction(TPhase phase) {
  return phase >= TPhase::ClosingInput && phase <= TPhase::ClosingMatching;
}
constexpr bool AcceptsOrders(TPhase phase) {
  return IsContinuous(phase) || IsOpeningAuction(phase) || IsClosingAuction(phase);
}
/// At lunch too: an order may be withdrawn but none entered.
constexpr bool AcceptsCancels(TPhase phase) {
  return IsContinuous(phase) || phase == TPhase::Lunch || phase == TPhase::OpeningInput ||
         phase == TPhase::ClosingInput;
}
/// No ordinary book is published in the sessions with an auction, nor while the market is closed.
constexpr bool PublishesBook(TPhase phase) { return IsContinuous(phase) || phase == TPhase::Lunch; }

/// A phase with the times it begins at and ends before.
struct TPhaseSpan {
  TPhase Phase = TPhase::Closed;
  TTimeOfDay Start{};
  TTimeOfDay End{};
};

/// The phases of one day of the whole market. The two random moments follow from the seed and
/// fall anywhere in their two minutes.
class TTradingDay {
public:
  explicit TTradingDay(std::uint64_t seed);

  /// The phase at `time`; the last one for any later time.
  const TPhaseSpan& At(TTimeOfDay time) const;
  /// `phase` has one span in a day, but Closed, which has its first.
  const TPhaseSpan& SpanOf(TPhase phase) const;
  /// When `phase` next begins after `time`; empty when it does not on this day.
  std::optional<TTimeOfDay> NextStart(TPhase phase, TTimeOfDay time) const;

private:
  std::array<TPhaseSpan, 13> spans_; ///< from midnight without a gap or an end
};

} // namespace Market
