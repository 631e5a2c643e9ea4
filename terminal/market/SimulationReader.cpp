#include "terminal/market/SimulationReader.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace Terminal::Market {

namespace {

using std::chrono::milliseconds;

/// Real time from one publication to the next, so that a fast clock costs no more of them than a
/// slow one.
constexpr milliseconds PublishInterval(20);

/// Simulated time after which a command is heard, whatever goes on.
constexpr std::chrono::seconds Slice(1);

/// How long the day's last moment stands, in simulated time, before the day starts over.
constexpr std::chrono::seconds StartOverGap(5);

ReplayClock::TMoment Now() { return std::chrono::steady_clock::now(); }

} // namespace

SimulationReader::SimulationReader(const TSimulation& simulation, std::function<void()> wake)
    : wake_(std::move(wake)), simulation_(simulation), day_(simulation.Seed),
      seekRequest_(simulation.Start), thread_([this](const std::stop_token& stop) { Work(stop); }) {
}

SimulationReader::~SimulationReader() = default;

// What the owner asks for

TReaderNews SimulationReader::Take() {
  const TLock lock(mutex_);
  isAnnounced_ = false;
  TReaderNews news = std::exchange(news_, {});
  if (news.Index)
    requests_.clear();
  if (IsOnItsWay() || delayRequest_) { // what was told before stands until it can be replaced
    news_.Reset = std::exchange(news.Reset, false);
    news_.CoolingOff = std::exchange(news.CoolingOff, {});
    news_.Finished = std::exchange(news.Finished, false);
  } else {
    news.Changes = conflator_.Take();
  }
  news.Time = position_;
  Command();
  return news;
}

void SimulationReader::Play() {
  const TLock lock(mutex_);
  if (!clock_.IsRunning && IsPastEnd())
    seekRequest_ = simulation_.Start;
  SetClock(true);
  Command();
}

void SimulationReader::Pause() {
  const TLock lock(mutex_);
  SetClock(false);
  Command();
}

void SimulationReader::SetSpeed(double speed) {
  const TLock lock(mutex_);
  SetClock(clock_.IsRunning);
  clock_.Speed = speed;
  Command();
}

void SimulationReader::SetAtEnd(TAtEnd atEnd) {
  const TLock lock(mutex_);
  atEnd_ = atEnd;
  Command();
}

void SimulationReader::Seek(TTimeOfDay time) {
  const TLock lock(mutex_);
  seekRequest_ = std::clamp(time, DayStart, DayEnd);
  jumpRequest_.reset();
  Command();
}

void SimulationReader::Jump(TJump to) {
  const TLock lock(mutex_);
  jumpRequest_ = to;
  Command();
}

void SimulationReader::Request(const TOrderRequest& request) {
  const TLock lock(mutex_);
  requests_.push_back(request);
  Command();
}

void SimulationReader::SetDelay(TTimeOfDay delay) {
  const TLock lock(mutex_);
  delayRequest_ = delay;
  Command();
}

void SimulationReader::Step(milliseconds by) {
  TLock lock(mutex_);
  SetClock(false);
  Settle(lock);
  clock_.Position = std::min<TTimeOfDay>(position_ + by, DayEnd);
  Settle(lock);
}

bool SimulationReader::IsPlaying() const {
  const TLock lock(mutex_);
  return clock_.IsRunning;
}

bool SimulationReader::IsAtEnd() const {
  const TLock lock(mutex_);
  return IsPastEnd();
}

TTimeOfDay SimulationReader::Position() const {
  const TLock lock(mutex_);
  return position_;
}

void SimulationReader::Command() {
  hasCommand_ = true;
  isSettled_ = false;
  commanded_.notify_all();
}

void SimulationReader::Settle(TLock& lock) {
  Command();
  settled_.wait(lock, [this] { return isSettled_; });
}

void SimulationReader::SetClock(bool isRunning) {
  clock_ = {position_, Now(), clock_.Speed, isRunning};
}

TTimeOfDay SimulationReader::Target() const {
  return std::min(run_ ? run_->Target : clock_.At(Now()), DayEnd);
}

/// Whether the market is to go on now. Where no clock holds it back, it waits to be taken.
bool SimulationReader::IsDue() const {
  if (Target() <= position_)
    return false;
  if (run_ || !clock_.IsRunning)
    return true;
  return std::isinf(clock_.Speed) ? !isAnnounced_ : Now() >= nextPublication_;
}

bool SimulationReader::IsPastEnd() const { return position_ >= DayEnd && !IsOnItsWay(); }

bool SimulationReader::MayStartOver() const {
  return IsPastEnd() && atEnd_ == TAtEnd::StartOver && clock_.IsRunning;
}

// The simulating thread

void SimulationReader::Work(const std::stop_token& stop) {
  TLock lock(mutex_);
  while (!stop.stop_requested()) {
    if (seekRequest_ || (jumpRequest_ && !run_))
      StartRun(lock);
    else if (!requests_.empty() && !news_.Index)
      Answer(lock);
    else if (delayRequest_)
      ChangeDelay(lock, stop);
    else if (IsDue())
      Advance(lock);
    else if (run_)
      EndRun(lock);
    else if (IsPastEnd() && atEnd_ == TAtEnd::Stop && !isFinishTold_)
      TellFinished(lock);
    else if (MayStartOver() && clock_.At(Now()) >= DayEnd + StartOverGap)
      seekRequest_ = simulation_.Start;
    else
      Wait(lock, stop);
  }
}

/// The day anew, without anything that the user did in it.
void SimulationReader::Begin(TLock& lock) {
  const bool isDelayed = delay_ > TTimeOfDay{};
  lock.unlock();
  market_ = std::make_unique<TSimulatedMarket>(simulation_.Seed);
  if (isDelayed)
    delayed_ = std::make_unique<TSimulatedMarket>(simulation_.Seed);
  heard_.clear();
  heardDelayed_ = 0;
  auto index = std::make_shared<TRecordingIndex>();
  index->Header = market_->Header();
  index->Start = DayStart;
  index->End = DayEnd;
  lock.lock();
  position_ = DayStart;
  isFinishTold_ = false;
  requests_.clear();
  conflator_.Clear();
  news_.Reports.clear();
  news_.Index = std::move(index);
  news_.Reset = true;
  news_.Finished = false;
}

/// To where was sought, or else on to where a jump leads from here.
void SimulationReader::StartRun(TLock& lock) {
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

TTimeOfDay SimulationReader::JumpTarget(TJump to) const {
  if (to == TJump::CoolingOff)
    return DayEnd;
  const auto& morning = day_.SpanOf(TPhase::Morning);
  const auto& afternoon = day_.SpanOf(TPhase::Afternoon);
  if (to == TJump::ClosingAuction)
    return day_.SpanOf(TPhase::ReferenceFixing).Start;
  const bool hasMorningBegun = position_ >= morning.Start && position_ < afternoon.Start;
  return hasMorningBegun ? afternoon.Start : morning.Start;
}

/// What has been told is forgotten, as after any jump, and the whole market follows.
void SimulationReader::EndRun(TLock& lock) {
  news_.CoolingOff = run_->CoolingOff;
  run_.reset();
  SetClock(clock_.IsRunning);
  news_.Reset = true;
  conflator_.Clear();
  (delayed_ ? delayed_ : market_)->PublishAnew();
  Publish(lock);
}

/// At the moment where the market is. The delayed market will hear the same at the same moment.
void SimulationReader::Answer(TLock& lock) {
  const auto requests = std::exchange(requests_, {});
  const TTimeOfDay now = position_;
  lock.unlock();
  for (const auto& request : requests) {
    heard_.emplace_back(now, request);
    market_->Apply(request);
  }
  lock.lock();
  Publish(lock);
}

/// A run publishes nothing before its end; otherwise the market goes on for one publication.
void SimulationReader::Advance(TLock& lock) {
  const TTimeOfDay target = Target();
  hasCommand_ = false;
  nextPublication_ = Now() + PublishInterval;
  do
    AdvanceSlice(std::min<TTimeOfDay>(target, position_ + Slice), lock);
  while (position_ < target && !run_ && !hasCommand_ && Now() < nextPublication_);
  if (run_)
    TellProgress(run_->From, position_, run_->Target, lock);
  else
    Publish(lock);
}

void SimulationReader::AdvanceSlice(TTimeOfDay until, TLock& lock) {
  const TTimeOfDay delayed = until - delay_;
  lock.unlock();
  const auto coolingOffs = market_->CoolingOffs().size();
  market_->AdvanceTo(until);
  if (delayed_)
    AdvanceDelayed(delayed);
  lock.lock();
  position_ = until;
  if (run_ && run_->IsToCoolingOff && market_->CoolingOffs().size() > coolingOffs) {
    run_->Target = position_;
    run_->CoolingOff = market_->CoolingOffs().back();
  }
}

/// What the user asked for meanwhile reaches the delayed market at the same moment of its day.
void SimulationReader::AdvanceDelayed(TTimeOfDay time) {
  for (; heardDelayed_ < heard_.size() && heard_[heardDelayed_].first <= time; ++heardDelayed_) {
    const auto& [moment, request] = heard_[heardDelayed_];
    delayed_->AdvanceTo(moment);
    delayed_->Apply(request);
  }
  delayed_->AdvanceTo(std::max(time, DayStart));
}

void SimulationReader::ChangeDelay(TLock& lock, const std::stop_token& stop) {
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
    TellProgress(DayStart, time, target, lock);
    lock.unlock();
  }
  lock.lock();
  if (delayRequest_ == delay_)
    delayRequest_.reset();
  conflator_.Clear();
  news_.Reset = true;
  if (!run_)
    Publish(lock);
}

void SimulationReader::Publish(TLock& lock) {
  lock.unlock();
  auto changes = (delayed_ ? delayed_ : market_)->TakeChanges();
  auto reports = market_->TakeReports();
  lock.lock();
  for (auto& change : changes)
    conflator_.Merge(std::move(change));
  std::move(reports.begin(), reports.end(), std::back_inserter(news_.Reports));
  if (!changes.empty() || !reports.empty() || news_.Reset)
    Announce(lock);
}

/// Of the way from `from` to `to`; the last per cent is told when all is done.
void SimulationReader::TellProgress(TTimeOfDay from, TTimeOfDay at, TTimeOfDay to, TLock& lock) {
  const int perCent = at < to ? static_cast<int>((at - from) * 99 / (to - from)) : 100;
  if (std::exchange(perCent_, perCent) == perCent)
    return;
  news_.Progress = {{Terminal::TActivity::Seeking, perCent}};
  Announce(lock);
}

void SimulationReader::TellFinished(TLock& lock) {
  SetClock(false);
  isFinishTold_ = true;
  news_.Finished = true;
  Announce(lock);
}

void SimulationReader::Announce(TLock& lock) {
  if (std::exchange(isAnnounced_, true))
    return;
  lock.unlock();
  wake_();
  lock.lock();
}

void SimulationReader::Wait(TLock& lock, const std::stop_token& stop) {
  isSettled_ = true;
  settled_.notify_all();
  hasCommand_ = false;
  const auto isCommanded = [this] { return hasCommand_; };
  if (const auto moment = NextMoment())
    commanded_.wait_until(lock, stop, *moment, isCommanded);
  else
    commanded_.wait(lock, stop, isCommanded);
}

/// When something will be due unless a command comes first; empty when only a command helps.
std::optional<ReplayClock::TMoment> SimulationReader::NextMoment() const {
  if (MayStartOver())
    return clock_.Due(DayEnd + StartOverGap);
  if (IsPastEnd() || !clock_.IsRunning || std::isinf(clock_.Speed))
    return std::nullopt;
  return nextPublication_;
}

} // namespace Terminal::Market
