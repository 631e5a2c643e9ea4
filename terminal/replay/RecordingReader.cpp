#include "terminal/replay/RecordingReader.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace Terminal {

namespace {

/// Changes merged ahead of the owner where no clock holds the reading back.
constexpr std::size_t MaximumAhead = 512;

/// How long the last moment stands, in recorded time, before the recording starts over.
constexpr std::chrono::seconds StartOverGap(1);

ReplayClock::TMoment Now() { return std::chrono::steady_clock::now(); }

} // namespace

RecordingReader::RecordingReader(RecordingSource source, std::function<void()> wake)
    : wake_(std::move(wake)), source_(std::move(source)),
      thread_([this](const std::stop_token& stop) { Work(stop); }) {}

RecordingReader::~RecordingReader() = default;

// What the owner asks for

TReaderNews RecordingReader::Take() {
  const TLock lock(mutex_);
  isAnnounced_ = false;
  TReaderNews news = std::exchange(news_, {});
  if (IsSeeking()) { // halfway there, the market is at neither moment
    news_.Reset = std::exchange(news.Reset, false);
    news_.Finished = std::exchange(news.Finished, false);
  } else {
    news.Changes = conflator_.Take();
  }
  news.Time = CurrentPosition();
  Command();
  return news;
}

void RecordingReader::Play() {
  const TLock lock(mutex_);
  if (!clock_.IsRunning && IsPastLast())
    seekRequest_ = index_->Start;
  SetClock(CurrentPosition(), true);
  Command();
}

void RecordingReader::Pause() {
  const TLock lock(mutex_);
  SetClock(CurrentPosition(), false);
  Command();
}

void RecordingReader::SetSpeed(double speed) {
  const TLock lock(mutex_);
  SetClock(CurrentPosition(), clock_.IsRunning);
  clock_.Speed = speed;
  Command();
}

void RecordingReader::SetAtEnd(TAtEnd atEnd) {
  const TLock lock(mutex_);
  atEnd_ = atEnd;
  Command();
}

void RecordingReader::Seek(TTimeOfDay time) {
  const TLock lock(mutex_);
  seekRequest_ = time;
  Command();
}

void RecordingReader::Step(std::chrono::milliseconds by) {
  TLock lock(mutex_);
  SetClock(CurrentPosition(), false);
  Settle(lock);
  SetClock(std::min<TTimeOfDay>(CurrentPosition() + by, index_->End), false);
  Settle(lock);
}

bool RecordingReader::IsPlaying() const {
  const TLock lock(mutex_);
  return clock_.IsRunning;
}

bool RecordingReader::IsAtEnd() const {
  const TLock lock(mutex_);
  return IsPastLast();
}

TTimeOfDay RecordingReader::Position() const {
  const TLock lock(mutex_);
  return CurrentPosition();
}

void RecordingReader::Command() {
  hasCommand_ = true;
  isSettled_ = false;
  commanded_.notify_all();
}

void RecordingReader::Settle(TLock& lock) {
  Command();
  settled_.wait(lock, [this] { return isSettled_; });
}

void RecordingReader::SetClock(TTimeOfDay position, bool isRunning) {
  clock_ = {position, Now(), clock_.Speed, isRunning};
}

TTimeOfDay RecordingReader::CurrentPosition() const {
  if (!index_)
    return {};
  if (IsSeeking())
    return std::clamp(seekRequest_ ? *seekRequest_ : *seekTarget_, index_->Start, index_->End);
  return std::min(clock_.At(Now()), next_ ? next_->Time : index_->End);
}

// The reading thread

void RecordingReader::Work(const std::stop_token& stop) {
  if (!BuildIndex(stop))
    return;
  TLock lock(mutex_);
  while (!stop.stop_requested()) {
    if (seekRequest_)
      StartSeek(lock);
    else if (IsNextDue() && !MustWaitForTake())
      MergeNext(lock);
    else if (seekTarget_)
      EndSeek(lock);
    else if (!next_ && atEnd_ == TAtEnd::Stop && !isFinishTold_)
      TellFinished(lock);
    else if (MayStartOver() && clock_.At(Now()) >= index_->End + StartOverGap)
      seekRequest_ = index_->Start;
    else
      Wait(lock, stop);
  }
}

bool RecordingReader::BuildIndex(const std::stop_token& stop) {
  int perCent = -1;
  const auto goOn = [this, &stop, &perCent](std::uint64_t bytes) {
    const int now = static_cast<int>(bytes * 100 / std::max<std::uint64_t>(source_.Size(), bytes));
    if (std::exchange(perCent, now) != now) {
      TLock lock(mutex_);
      TellProgress({TActivity::Indexing, now}, lock);
    }
    return !stop.stop_requested();
  };
  auto index = IndexRecording(source_, goOn);
  if (!index)
    return false;
  TLock lock(mutex_);
  index_ = std::make_shared<const TRecordingIndex>(*std::move(index));
  news_.Index = index_;
  if (!seekRequest_)
    seekRequest_ = index_->Start;
  if (perCent != 100)
    TellProgress({TActivity::Indexing, 100}, lock);
  return true;
}

void RecordingReader::StartSeek(TLock& lock) {
  seekTarget_ = CurrentPosition();
  seekRequest_.reset();
  const TTimeOfDay target = *seekTarget_;
  lock.unlock();
  const auto& checkpoint = CheckpointFor(*index_, target);
  source_.MoveTo(checkpoint.Place);
  Conflator market;
  for (const TRecordChange& change : checkpoint.State)
    market.Merge(change);
  auto next = ReadEvent();
  lock.lock();
  seekFrom_ = std::max(checkpoint.Place.Time, index_->Start);
  seekPerCent_ = 0;
  conflator_ = std::move(market);
  next_ = std::move(next);
  isFinishTold_ = false;
  news_.Reset = true;
  news_.Finished = false;
}

void RecordingReader::EndSeek(TLock& lock) {
  SetClock(*seekTarget_, clock_.IsRunning);
  const bool wasLong = *std::exchange(seekTarget_, std::nullopt) > seekFrom_;
  if (wasLong)
    TellProgress({TActivity::Seeking, 100}, lock);
  Announce(lock);
}

/// The line after the next is read first, so that there is no moment without a next one.
void RecordingReader::MergeNext(TLock& lock) {
  lock.unlock();
  auto following = ReadEvent();
  lock.lock();
  conflator_.Merge(std::move(next_->Change));
  next_ = std::move(following);
  if (seekTarget_)
    TellSeekProgress(lock);
  else
    Announce(lock);
}

std::optional<TRecordedEvent> RecordingReader::ReadEvent() {
  while (auto line = source_.Next()) {
    if (auto* const event = std::get_if<TRecordedEvent>(&*line))
      return std::move(*event);
  }
  return std::nullopt;
}

void RecordingReader::TellFinished(TLock& lock) {
  SetClock(index_->End, false);
  isFinishTold_ = true;
  news_.Finished = true;
  Announce(lock);
}

void RecordingReader::TellSeekProgress(TLock& lock) {
  if (!next_ || next_->Time > *seekTarget_ || *seekTarget_ <= seekFrom_)
    return;
  const int perCent = static_cast<int>((next_->Time - seekFrom_) * 99 / (*seekTarget_ - seekFrom_));
  if (std::exchange(seekPerCent_, perCent) != perCent)
    TellProgress({TActivity::Seeking, perCent}, lock);
}

void RecordingReader::TellProgress(TReaderProgress progress, TLock& lock) {
  if (!news_.Progress.empty() && news_.Progress.back().Activity == progress.Activity)
    news_.Progress.back() = progress;
  else
    news_.Progress.push_back(progress);
  Announce(lock);
}

void RecordingReader::Announce(TLock& lock) {
  if (std::exchange(isAnnounced_, true))
    return;
  lock.unlock();
  wake_();
  lock.lock();
}

void RecordingReader::Wait(TLock& lock, const std::stop_token& stop) {
  isSettled_ = true;
  settled_.notify_all();
  hasCommand_ = false;
  const auto isCommanded = [this] { return hasCommand_; };
  if (const auto moment = NextMoment())
    commanded_.wait_until(lock, stop, *moment, isCommanded);
  else
    commanded_.wait(lock, stop, isCommanded);
}

bool RecordingReader::IsNextDue() const {
  return next_ && next_->Time <= (seekTarget_ ? *seekTarget_ : clock_.At(Now()));
}

bool RecordingReader::MustWaitForTake() const {
  return !seekTarget_ && clock_.IsRunning && std::isinf(clock_.Speed) &&
         conflator_.MergedCount() >= MaximumAhead;
}

bool RecordingReader::MayStartOver() const {
  const bool isTaken = !std::isinf(clock_.Speed) || conflator_.MergedCount() == 0;
  return !next_ && atEnd_ == TAtEnd::StartOver && clock_.IsRunning && index_->Events > 0 && isTaken;
}

/// When something will be due unless a command comes first; empty when only a command helps.
std::optional<ReplayClock::TMoment> RecordingReader::NextMoment() const {
  if (next_)
    return MustWaitForTake() ? std::nullopt : clock_.Due(next_->Time);
  return MayStartOver() ? clock_.Due(index_->End + StartOverGap) : std::nullopt;
}

} // namespace Terminal
