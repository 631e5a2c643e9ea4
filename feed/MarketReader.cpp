#include "feed/MarketReader.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace Feed {

namespace {

/// How long the last moment stands, in the market's time, before the market starts over.
constexpr std::chrono::seconds StartOverGap(1);

} // namespace

TMarketReader::TMarketReader(std::function<void()> wake, std::size_t maximumTrades)
    : conflator_(maximumTrades), wake_(std::move(wake)) {}

TMarketReader::~TMarketReader() = default;

// What the owner asks for

TReaderNews TMarketReader::Take() {
  const TLock lock(mutex_);
  isAnnounced_ = false;
  TReaderNews news = std::exchange(news_, {});
  if (IsUnderway()) {
    news_.Reset = std::exchange(news.Reset, false);
    news_.CoolingOff = std::exchange(news.CoolingOff, {});
    news_.Finished = std::exchange(news.Finished, false);
  } else {
    news.Changes = conflator_.Take();
  }
  news.Time = CurrentPosition();
  Command();
  return news;
}

void TMarketReader::Play() {
  const TLock lock(mutex_);
  if (!clock_.IsRunning && IsPastEnd()) {
    if (!Traits().Seekable)
      return;
    seekRequest_ = Beginning();
  }
  SetClock(true);
  Command();
}

void TMarketReader::Pause() {
  const TLock lock(mutex_);
  SetClock(false);
  Command();
}

void TMarketReader::SetSpeed(double speed) {
  const TLock lock(mutex_);
  SetClock(clock_.IsRunning);
  clock_.Speed = speed;
  Command();
}

void TMarketReader::SetAtEnd(TAtEnd atEnd) {
  const TLock lock(mutex_);
  atEnd_ = atEnd;
  Command();
}

void TMarketReader::Step(std::chrono::milliseconds by) {
  TLock lock(mutex_);
  SetClock(false);
  Settle(lock);
  clock_.Position = std::min<TTimeOfDay>(CurrentPosition() + by, End());
  Settle(lock);
}

bool TMarketReader::IsPlaying() const {
  const TLock lock(mutex_);
  return clock_.IsRunning;
}

bool TMarketReader::IsAtEnd() const {
  const TLock lock(mutex_);
  return IsPastEnd();
}

TTimeOfDay TMarketReader::Position() const {
  const TLock lock(mutex_);
  return CurrentPosition();
}

void TMarketReader::Command() {
  hasCommand_ = true;
  isSettled_ = false;
  commanded_.notify_all();
}

void TMarketReader::Settle(TLock& lock) {
  Command();
  settled_.wait(lock, [this] { return isSettled_; });
}

/// From the current position on.
void TMarketReader::SetClock(bool isRunning) {
  clock_ = {CurrentPosition(), Now(), clock_.Speed, isRunning};
}

bool TMarketReader::HasNoClock() const { return clock_.IsRunning && std::isinf(clock_.Speed); }

// The thread

std::jthread TMarketReader::StartThread() {
  return std::jthread([this](const std::stop_token& stop) { Work(stop); });
}

void TMarketReader::Work(const std::stop_token& stop) {
  TLock lock(mutex_);
  while (!stop.stop_requested()) {
    if (DoNext(lock, stop)) {
      if (!IsPastEnd())
        isFinishTold_ = news_.Finished = false;
    } else if (IsPastEnd() && !IsToStartOver() && !isFinishTold_) {
      TellFinished(lock);
    } else if (MayStartOver() && clock_.At(Now()) >= End() + StartOverGap) {
      seekRequest_ = Beginning();
    } else {
      Wait(lock, stop);
    }
  }
}

void TMarketReader::TellFinished(TLock& lock) {
  SetClock(false);
  isFinishTold_ = true;
  news_.Finished = true;
  Announce(lock);
}

void TMarketReader::Wait(TLock& lock, const std::stop_token& stop) {
  isSettled_ = true;
  settled_.notify_all();
  hasCommand_ = false;
  const auto isCommanded = [this] { return hasCommand_; };
  if (const auto moment = NextMoment())
    commanded_.wait_until(lock, stop, *moment, isCommanded);
  else
    commanded_.wait(lock, stop, isCommanded);
}

std::optional<TReplayClock::TMoment> TMarketReader::NextMoment() const {
  if (!IsPastEnd())
    return NextDue();
  return MayStartOver() ? clock_.Due(End() + StartOverGap) : std::nullopt;
}

/// Where no clock gives the owner the time, the end is taken first.
bool TMarketReader::MayStartOver() const {
  const bool isTaken = !HasNoClock() || !isAnnounced_;
  return IsPastEnd() && IsToStartOver() && clock_.IsRunning && isTaken;
}

void TMarketReader::Announce(TLock& lock) {
  if (std::exchange(isAnnounced_, true))
    return;
  lock.unlock();
  wake_();
  lock.lock();
}

/// The same is not told twice: what was done at once shows nothing of its way.
void TMarketReader::TellProgress(TReaderProgress progress, TLock& lock) {
  if (std::exchange(toldPerCent_, progress.PerCent) == progress.PerCent)
    return;
  if (!news_.Progress.empty() && news_.Progress.back().Activity == progress.Activity)
    news_.Progress.back() = progress;
  else
    news_.Progress.push_back(progress);
  Announce(lock);
}

void TMarketReader::TellSeekProgress(TTimeOfDay from, TTimeOfDay at, TTimeOfDay to, TLock& lock) {
  TellProgress({TLongTask::Seeking, static_cast<int>((at - from) * 99 / (to - from))}, lock);
}

void TMarketReader::TellSeekDone(TLock& lock) { TellProgress({TLongTask::Seeking, 100}, lock); }

} // namespace Feed
