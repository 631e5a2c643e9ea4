#include "terminal/market/FairValues.h"

#include "terminal/market/Mathematics.h"

#include <algorithm>
#include <cmath>

namespace Terminal::Market {
namespace {

using namespace std::chrono_literals;

// Streams of the seed. Those of the single instruments lie above.
constexpr std::uint64_t WalkStream = 1;
constexpr std::uint64_t ShockStream = 2;

constexpr TTimeOfDay DayBegins = 9h;
/// Over lunch there is no news.
constexpr TTimeOfDay LunchBegins = 12h, LunchEnds = 13h;
constexpr TTimeOfDay StepLength = 1s;
constexpr double StepSeconds = 1;
constexpr double TradingSecondsAYear = 252 * 5.5 * 3600;

// The logarithm of a walk's volatility has two parts, each with a deviation and a time after which
// it has forgotten.
constexpr double FastDeviation = 0.5, FastSeconds = 90;
constexpr double SlowDeviation = 0.65, SlowSeconds = 1200;

/// After which a value is drawn back to where the day began.
constexpr double PullSeconds = 3 * 3600;

// Parts of an instrument's variance that it shares with the whole market.
constexpr double CommonPart = 0.3;
constexpr double CommonPartOfFund = 0.9;

/// Of the variance of a whole day, what happens overnight.
constexpr double OvernightPart = 0.15;

// News makes an instrument this many times livelier, for so long.
constexpr double NewsExcitement = 6;
constexpr double NewsSeconds = 180;

double Seconds(TTimeOfDay time) { return static_cast<double>(time.count()) / 1e6; }

/// A value that forgets itself and is pushed anew, with a deviation that stays the same.
class TForgetful {
public:
  TForgetful(double deviation, double seconds)
      : kept_(Exp(-StepSeconds / seconds)), pushed_(deviation * std::sqrt(1 - kept_ * kept_)) {}

  double After(double value, TRandom& random) const {
    return value * kept_ + pushed_ * random.Normal();
  }

private:
  double kept_;
  double pushed_;
};

double CommonPartOf(const TInstrument& instrument) {
  return instrument.Kind == TKind::Fund ? CommonPartOfFund : CommonPart;
}

/// Shares that are lively enough for news to show at once.
std::vector<std::size_t> ShockCandidates(const TListing& listing) {
  constexpr double LeastOrdersPerSecond = 1.5;
  std::vector<std::size_t> candidates;
  for (std::size_t position = 0; position < listing.Instruments().size(); ++position) {
    const TInstrument& instrument = listing.Instruments()[position];
    if (instrument.VolatilityPercent() > 0 && instrument.Standing == TStanding::Trading &&
        instrument.Temper.OrdersPerSecond >= LeastOrdersPerSecond)
      candidates.push_back(position);
  }
  return candidates;
}

} // namespace

std::vector<TShock> PlanShocks(const TListing& listing, std::uint64_t seed) {
  struct TWindow {
    std::chrono::seconds From, To;
  };
  constexpr TWindow Windows[] = {{9h + 52min, 11h + 35min}, {13h + 22min, 15h + 20min}};
  TRandom random(seed, ShockStream);
  auto candidates = ShockCandidates(listing);
  std::vector<TShock> shocks;
  for (const auto& [from, to] : Windows)
    for (int left = 1 + random.Below(2); left > 0; --left) {
      const auto chosen = candidates.begin() + random.Below(static_cast<int>(candidates.size()));
      const double limit = listing.Instruments()[*chosen].VolatilityPercent() / 100.0;
      const double beyond = limit * (1.3 + 0.4 * random.Uniform());
      const double move = random.Chance(0.5) ? Log(1 + beyond) : Log(1 - beyond);
      const auto time = from + std::chrono::seconds(random.Below(int((to - from).count())));
      shocks.push_back({time, *chosen, move});
      candidates.erase(chosen);
    }
  std::ranges::sort(shocks, {}, &TShock::Time);
  return shocks;
}

void TFairValues::TWalk::Step(TRandom& random, double deviation) {
  static const TForgetful fast(FastDeviation, FastSeconds);
  static const TForgetful slow(SlowDeviation, SlowSeconds);
  constexpr double Variance = FastDeviation * FastDeviation + SlowDeviation * SlowDeviation;
  Fast = fast.After(Fast, random);
  Slow = slow.After(Slow, random);
  Scale = Exp(Fast + Slow - Variance);
  Log += deviation * Scale * random.Normal() - Log * StepSeconds / PullSeconds;
}

TFairValues::TFairValues(const TListing& listing, std::span<const TShock> shocks,
                         std::uint64_t seed)
    : listing_(listing), shocks_(shocks.begin(), shocks.end()), random_(seed, WalkStream),
      now_(DayBegins), walks_(listing.Instruments().size()), values_(listing.Instruments().size()),
      liveliness_(listing.Instruments().size(), 1) {
  for (TWalk& walk : walks_) {
    walk.Fast = FastDeviation * random_.Normal();
    walk.Slow = SlowDeviation * random_.Normal();
  }
  for (const TInstrument& instrument : listing.Instruments()) {
    const double overnight = instrument.Temper.Volatility * std::sqrt(OvernightPart / 252);
    start_.push_back(static_cast<double>(instrument.PreviousClose) *
                     Exp(overnight * random_.Normal()));
  }
  values_ = start_;
}

void TFairValues::AdvanceTo(TTimeOfDay time) {
  while (now_ + StepLength <= time) {
    now_ += StepLength;
    if (now_ <= LunchBegins || now_ > LunchEnds)
      Step();
  }
}

void TFairValues::Step() {
  static const double yearToStep = std::sqrt(StepSeconds / TradingSecondsAYear);
  mood_.Step(random_, yearToStep);
  for (std::size_t position = 0; position < walks_.size(); ++position) {
    const TInstrument& instrument = listing_.Instruments()[position];
    if (!instrument.Follows().empty())
      continue;
    const double volatility = instrument.Temper.Volatility;
    const double common = CommonPartOf(instrument);
    TWalk& walk = walks_[position];
    walk.Step(random_, volatility * yearToStep * std::sqrt(1 - common));
    const double log = walk.Log + volatility * std::sqrt(common) * mood_.Log;
    values_[position] = start_[position] * Exp(log + ShockedBy(position, now_));
    liveliness_[position] =
        std::clamp(0.5 + 0.25 * (walk.Scale + mood_.Scale), 0.5, 3.0) * Excitement(position, now_);
  }
}

double TFairValues::ShockedBy(std::size_t instrument, TTimeOfDay time) const {
  double moved = 0;
  for (const TShock& shock : shocks_)
    if (shock.Instrument == instrument && shock.Time < time)
      moved += shock.LogMove * std::min(1.0, Seconds(time - shock.Time) / Seconds(ShockLength));
  return moved;
}

double TFairValues::Excitement(std::size_t instrument, TTimeOfDay time) const {
  double excitement = 1;
  for (const TShock& shock : shocks_)
    if (shock.Instrument == instrument && shock.Time < time)
      excitement += NewsExcitement * Exp(-Seconds(time - shock.Time) / NewsSeconds);
  return excitement;
}

} // namespace Terminal::Market
