#include "feed/simulation/SimulationReader.h"

#include "market/SimulatedMarket.h"

#include <algorithm>
#include <utility>

namespace Feed {

using namespace Market;

namespace {

/// Real time from one publication to the next, so that a fast clock costs no more of them than a
/// slow one.
constexpr std::chrono::milliseconds PublishInterval(20);

/// Simulated time after which a command is heard, whatever goes on.
constexpr std::chrono::seconds Slice(1);

} // namespace

TSimulationReader::TSimulationReader(const TSimulation& simulation, std::function<void()> wake)
    : TMarketReader(std::move(wake), TSimulatedMarket::MaximumTrades), simulation_(simulation) {
  seekRequest_ = simulation.Start;
  thread_ = StartThread();
}

TSimulationReader::~TSimulationReader() = default;

// What the owner asks for

void TSimulationReader::Seek(TTimeOfDay time) {
  const TLock lock(mutex_);
  seekRequest_ = std::clamp(time, DayStart, DayEnd);
  jumpRequest_.reset();
  Command();
}

void TSimulationReader::Jump(TJump to) {
  const TLock lock(mutex_);
  jumpRequest_ = to;
  Command();
}

void TSimulationReader::Request(const TOrderRequest& request) {
  const TLock lock(mutex_);
  if (news_.Index)
    return; // asked of the day before
  requests_.push_back(request);
  Command();
}

void TSimulationReader::SetDelay(TTimeOfDay delay) {
  const TLock lock(mutex_);
  delayRequest_ = delay;
  Command();
}

// The thread

bool TSimulationReader::DoNext(TLock& lock, const std::stop_token& stop) {
  if (seekRequest_ || (jumpRequest_ && !run_))
    StartRun(lock);
  else if (!requests_.empty())
    Answer(lock);
  else if (delayRequest_)
    ChangeDelay(lock, stop);
  else if (run_ && position_ < run_->Target)
    RunOn(lock);
  else if (run_)
    EndRun(lock);
  else if (IsDue())
    PlayOn(lock);
  else
    return false;
  return true;
}

std::optional<TReplayClock::TMoment> TSimulationReader::NextDue() const {
  return clock_.IsRunning && !HasNoClock() ? std::optional(nextPublication_) : std::nullopt;
}

/// How far the market is to have come by now.
TTimeOfDay TSimulationReader::Target() const { return std::min(clock_.At(Now()), DayEnd); }

/// Whether the market is to go on now. Where no clock holds it back, it waits to be taken.
bool TSimulationReader::IsDue() const {
  if (Target() <= position_)
    return false;
  if (!clock_.IsRunning)
    return true;
  return HasNoClock() ? !isAnnounced_ : Now() >= nextPublication_;
}

TTimeOfDay TSimulationReader::End() const { return DayEnd; }

bool TSimulationReader::IsPastEnd() const { return position_ >= DayEnd && !IsOnItsWay(); }

/// The day anew, without anything that the user did in it.
void TSimulationReader::Begin(TLock& lock) {
  const bool isDelayed = delay_ > TTimeOfDay{};
  lock.unlock();
  market_ = std::make_unique<TSimulatedMarket>(simulation_.Seed);
  if (isDelayed)
    delayed_ = std::make_unique<TSimulatedMarket>(simulation_.Seed);
  heard_.clear();
  heardDelayed_ = 0;
  auto index = std::make_shared<TMarketIndex>();
  index->Header = market_->Header();
  index->Start = DayStart;
  index->End = DayEnd;
  lock.lock();
  position_ = DayStart;
  requests_.clear();
  conflator_.Clear();
  news_.Reports.clear();
  news_.Index = std::move(index);
  news_.Reset = true;
}

/// To where was sought, or else on to where a jump leads from here.
void TSimulationReader::StartRun(TLock& lock) {
  TRun run;
  if (seekRequest_) {
    run.Target = *std::exchange(seekRequest_, std::nullopt);
  } else {
    const TJump to = *std::exchange(jumpRequest_, std::nullopt);
    run.Target = JumpTarget(to);
    run.IsToCoolingOff = to == TJump::CoolingOff;
  }
  news_.CoolingOff.clear();
  const bool isAhead = market_ && run.Target >= position_;
  run_ = std::move(run); // on its way from now on, also while the lock is open
  if (!isAhead)
    Begin(lock);
  run_->From = position_;
}

TTimeOfDay TSimulationReader::JumpTarget(TJump to) const {
  if (to == TJump::CoolingOff)
    return DayEnd;
  const TTradingDay day(simulation_.Seed);
  const auto& morning = day.SpanOf(TPhase::Morning);
  const auto& afternoon = day.SpanOf(TPhase::Afternoon);
  if (to == TJump::ClosingAuction)
    return day.SpanOf(TPhase::ReferenceFixing).Start;
  const bool hasMorningBegun = position_ >= morning.Start && position_ < afternoon.Start;
  return hasMorningBegun ? afternoon.Start : morning.Start;
}

/// A run publishes nothing before its end.
void TSimulationReader::RunOn(TLock& lock) {
  const auto coolingOffs = market_->CoolingOffs().size();
  const TTimeOfDay reached = std::min<TTimeOfDay>(run_->Target, position_ + Slice);
  AdvanceTo(reached, lock);
  position_ = reached;
  if (run_->IsToCoolingOff && market_->CoolingOffs().size() > coolingOffs) {
    run_->Target = position_;
    run_->CoolingOff = market_->CoolingOffs().back();
  }
  TellSeekProgress(run_->From, position_, run_->Target, lock);
}

/// What has been told is forgotten, as after any jump, and the whole market follows.
void TSimulationReader::EndRun(TLock& lock) {
  TellSeekDone(lock);
  conflator_.Clear();
  (delayed_ ? delayed_ : market_)->PublishAnew();
  Collect(position_, lock);
  news_.Reset = true;
  news_.CoolingOff = run_->CoolingOff;
  run_.reset(); // the last, so that nothing of this is taken without the rest
  SetClock(clock_.IsRunning);
  Announce(lock);
}

/// At the moment where the market is. The delayed market will hear the same at the same moment.
void TSimulationReader::Answer(TLock& lock) {
  const auto requests = std::exchange(requests_, {});
  const TTimeOfDay now = position_;
  lock.unlock();
  for (const auto& request : requests) {
    heard_.emplace_back(now, request);
    market_->Apply(request);
  }
  lock.lock();
  if (Collect(now, lock))
    Announce(lock);
}

/// As far as the market is to have come, or for one publication.
void TSimulationReader::PlayOn(TLock& lock) {
  const TTimeOfDay target = Target();
  TTimeOfDay reached = position_;
  hasCommand_ = false;
  nextPublication_ = Now() + PublishInterval;
  do {
    reached = std::min<TTimeOfDay>(target, reached + Slice);
    AdvanceTo(reached, lock);
  } while (reached < target && !hasCommand_ && Now() < nextPublication_);
  if (Collect(reached, lock))
    Announce(lock);
}

void TSimulationReader::AdvanceTo(TTimeOfDay time, TLock& lock) {
  lock.unlock();
  market_->AdvanceTo(time);
  if (delayed_)
    AdvanceDelayed(time - delay_);
  lock.lock();
}

/// What the user asked for meanwhile reaches the delayed market at the same moment of its day.
void TSimulationReader::AdvanceDelayed(TTimeOfDay time) {
  for (; heardDelayed_ < heard_.size() && heard_[heardDelayed_].first <= time; ++heardDelayed_) {
    const auto& [moment, request] = heard_[heardDelayed_];
    delayed_->AdvanceTo(moment);
    delayed_->Apply(request);
  }
  delayed_->AdvanceTo(std::max(time, DayStart));
}

void TSimulationReader::ChangeDelay(TLock& lock, const std::stop_token& stop) {
  delay_ = *delayRequest_;
  const TTimeOfDay target = position_ - delay_;
  lock.unlock();
  heardDelayed_ = 0;
  delayed_.reset();
  if (delay_ > TTimeOfDay{})
    delayed_ = std::make_unique<TSimulatedMarket>(simulation_.Seed);
  else
    market_->PublishAnew();
  for (TTimeOfDay time = DayStart; delayed_ && time < target && !stop.stop_requested();) {
    time = std::min<TTimeOfDay>(target, time + Slice);
    AdvanceDelayed(time);
    lock.lock();
    TellSeekProgress(DayStart, time, target, lock);
    lock.unlock();
  }
  lock.lock();
  TellSeekDone(lock);
  conflator_.Clear();
  if (!run_)
    Collect(position_, lock);
  news_.Reset = true;
  if (delayRequest_ == delay_)
    delayRequest_.reset();
  Announce(lock);
}

/// Merges what the market has to say of the time up to `reached`; whether there was anything.
bool TSimulationReader::Collect(TTimeOfDay reached, TLock& lock) {
  lock.unlock();
  auto changes = (delayed_ ? delayed_ : market_)->TakeChanges();
  auto reports = market_->TakeReports();
  lock.lock();
  position_ = reached;
  for (auto& change : changes)
    conflator_.Merge(std::move(change));
  std::ranges::move(reports, std::back_inserter(news_.Reports));
  return !changes.empty() || !reports.empty();
}

} // namespace Feed
