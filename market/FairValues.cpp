#include "market/FairValues.h"

#include "market/Mathematics.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace Market {
namespace {

using namespace std::chrono_literals;

// Streams of the seed. Those of the single instruments lie above.
constexpr std::uint64_t WalkStream = 1;
constexpr std::uint64_t ShockStream = 2;

constexpr TTimeOfDay DayBegins = 9h;
constexpr TTimeOfDay StepLength = 1s;
constexpr double StepSeconds = 1;
constexpr double TradingSecondsAYear = 252 * 5.5 * 3600;

// The logarithm of a walk's volatility has two parts, each with a deviation and a time after which
// it has forgotten.
constexpr double FastDeviation = 0.5, FastSeconds = 90;
constexpr double SlowDeviation = 0.65, SlowSeconds = 1200;

// Parts of an instrument's variance that it shares with the whole market.
constexpr double CommonPart = 0.5;
constexpr double CommonPartOfFund = 0.95;

/// Of the variance of a whole day, what happens overnight.
constexpr double OvernightPart = 0.25;

/// How much livelier or quieter a day is for one instrument than its average day: deviation of the
/// logarithm.
constexpr double InterestDeviation = 0.35;

// News makes an instrument this many times livelier at once, and somewhat for hours.
constexpr double NewsExcitement = 6, NewsSeconds = 180;
constexpr double AfterNewsExcitement = 3, AfterNewsSeconds = 3600;
/// In which half of what does not last is taken back.
constexpr double SecondThoughtsSeconds = 600;
/// Of a share's shock, what it moves a fund of a volatility of one.
constexpr double WeightInFund = 0.25;

double Seconds(TTimeOfDay time) { return static_cast<double>(time.count()) / 1e6; }

/// How much more than on average values move at this time; its square is 1 on average. Over lunch
/// there is some news.
double Unrest(TTimeOfDay time) {
  constexpr TTimeOfDay Open = 9h + 30min, Lunch = 12h, Reopen = 13h, Close = 16h;
  if (time >= Lunch && time < Reopen)
    return 0.4;
  if (time < Open)
    return 1;
  double unrest = 0.85 + 1.3 * Exp(-Seconds(time - Open) / 1200);
  if (time >= Reopen)
    unrest += 0.4 * Exp(-Seconds(time - Reopen) / 600);
  if (time < Close)
    unrest += 0.3 * Exp(-Seconds(Close - time) / 1200);
  return unrest;
}

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
  return instrument.Kind == TInstrumentKind::Fund ? CommonPartOfFund : CommonPart;
}

/// Shares of companies of that size that are lively enough for news to show at once.
std::vector<std::size_t> ShockCandidates(const TListing& listing, TCapitalisation size) {
  constexpr double LeastOrdersPerSecond = 1.5;
  std::vector<std::size_t> candidates;
  for (std::size_t position = 0; position < listing.Instruments().size(); ++position) {
    const TInstrument& instrument = listing.Instruments()[position];
    if (instrument.Capitalisation == size && instrument.VolatilityPercent() > 0 &&
        instrument.Standing == TStanding::Trading &&
        instrument.Temper.OrdersPerSecond >= LeastOrdersPerSecond)
      candidates.push_back(position);
  }
  return candidates;
}

/// Of the whole move: all of it at the shock's end, and what lasts of it much later.
double PartMoved(const TShock& shock, TTimeOfDay time) {
  const double seconds = Seconds(time - shock.Time);
  const double length = Seconds(shock.Length);
  if (seconds < length)
    return seconds / length;
  return shock.Lasting +
         (1 - shock.Lasting) * Exp(-(seconds - length) * std::numbers::ln2 / SecondThoughtsSeconds);
}

TTimeOfDay ShockTime(TRandom& random) {
  struct TWindow {
    std::chrono::seconds From, To;
  };
  constexpr TWindow Windows[] = {{9h + 52min, 11h + 35min}, {13h + 22min, 15h + 20min}};
  const auto& [from, to] = Windows[random.Below(2)];
  return from + std::chrono::seconds(random.Below(int((to - from).count())));
}

} // namespace

std::vector<TShock> PlanShocks(const TListing& listing, std::uint64_t seed) {
  constexpr double OfALargeCompany = 0.3;
  TRandom random(seed, ShockStream);
  auto large = ShockCandidates(listing, TCapitalisation::Large);
  auto mid = ShockCandidates(listing, TCapitalisation::Mid);
  std::vector<TShock> shocks;
  for (int left = 1 + random.Below(2); left > 0; --left) {
    auto& candidates = random.Chance(OfALargeCompany) ? large : mid;
    const auto chosen = candidates.begin() + random.Below(static_cast<int>(candidates.size()));
    const double limit = listing.Instruments()[*chosen].VolatilityPercent() / 100.0;
    const double beyond = limit * (1.06 + 0.3 * random.Uniform());
    TShock& shock = shocks.emplace_back();
    shock.Time = ShockTime(random);
    shock.Instrument = *chosen;
    shock.LogMove = random.Chance(0.5) ? Log(1 + beyond) : Log(1 - beyond);
    shock.Length = std::chrono::seconds(20 + random.Below(160));
    shock.Lasting = random.Uniform();
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
  Log += deviation * Scale * random.Normal();
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
    interest_.push_back(
        Exp(InterestDeviation * random_.Normal() - InterestDeviation * InterestDeviation / 2));
  }
  values_ = start_;
}

void TFairValues::AdvanceTo(TTimeOfDay time) {
  while (now_ + StepLength <= time) {
    now_ += StepLength;
    Step();
  }
}

void TFairValues::Step() {
  const double yearToStep = std::sqrt(StepSeconds / TradingSecondsAYear) * Unrest(now_);
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
    liveliness_[position] = std::clamp(0.5 + 0.25 * (walk.Scale + mood_.Scale), 0.5, 3.0) *
                            interest_[position] * Excitement(position, now_);
  }
}

/// Logarithm of what the shocks have done to the value.
double TFairValues::ShockedBy(std::size_t instrument, TTimeOfDay time) const {
  const TInstrument& moved = listing_.Instruments()[instrument];
  const double inFund = WeightInFund * moved.Temper.Volatility;
  double log = 0;
  for (const TShock& shock : shocks_) {
    const bool isOwn = shock.Instrument == instrument;
    if (time > shock.Time && (isOwn || moved.Kind == TInstrumentKind::Fund))
      log += (isOwn ? 1 : inFund) * shock.LogMove * PartMoved(shock, time);
  }
  return log;
}

double TFairValues::Excitement(std::size_t instrument, TTimeOfDay time) const {
  double excitement = 1;
  for (const TShock& shock : shocks_)
    if (shock.Instrument == instrument && shock.Time < time) {
      const double seconds = Seconds(time - shock.Time);
      excitement += NewsExcitement * Exp(-seconds / NewsSeconds) +
                    AfterNewsExcitement * Exp(-seconds / AfterNewsSeconds);
    }
  return excitement;
}

} // namespace Market
