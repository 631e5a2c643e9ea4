#include "market/VolatilityControl.h"

#include <algorithm>

namespace Market {

using namespace std::chrono_literals;

namespace {

constexpr TTimeOfDay LookBack = 5min;
constexpr TTimeOfDay CoolingOffTime = 5min;
constexpr TTimeOfDay NotAfterStart = 15min;
constexpr TTimeOfDay NotBeforeClose = 20min;

} // namespace

TVolatilityControl::TVolatilityControl(const TTradingDay& day, const TTickGrid& grid, int percent)
    : day_(day), grid_(grid), percent_(percent) {}

void TVolatilityControl::AddTrade(TTimeOfDay time, TPrice price) {
  if (prices_.empty() || prices_.back().Price != price)
    prices_.push_back({time, price});
}

std::optional<TPrice> TVolatilityControl::Reference(TTimeOfDay now) {
  while (prices_.size() > 1 && prices_[1].Since <= now - LookBack)
    prices_.pop_front();
  if (prices_.empty() || prices_.front().Since > now - LookBack)
    return std::nullopt;
  return prices_.front().Price;
}

std::optional<TPriceLimits> TVolatilityControl::Limits(TTimeOfDay now) {
  if (const auto coolingOff = CoolingOff(now))
    return coolingOff->Limits;
  if (!IsWatching(now))
    return std::nullopt;
  const auto reference = Reference(now);
  return reference ? std::optional(LimitsAround(*reference, percent_, grid_)) : std::nullopt;
}

std::optional<TCoolingOff> TVolatilityControl::CoolingOff(TTimeOfDay now) const {
  return coolingOff_ && now < coolingOff_->End ? coolingOff_ : std::nullopt;
}

void TVolatilityControl::Trigger(TTimeOfDay now) {
  const TPrice reference = *Reference(now);
  coolingOff_ = {now, std::min(now + CoolingOffTime, day_.At(now).End), reference,
                 LimitsAround(reference, percent_, grid_)};
}

bool TVolatilityControl::IsWatching(TTimeOfDay now) const {
  const TPhaseSpan& session = day_.At(now);
  if (!IsContinuous(session.Phase) || now < session.Start + NotAfterStart)
    return false;
  return session.Phase == TPhase::Morning || now < session.End - NotBeforeClose;
}

} // namespace Market
