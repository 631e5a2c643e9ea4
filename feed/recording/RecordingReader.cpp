#include "feed/recording/RecordingReader.h"

#include <algorithm>
#include <utility>

namespace Feed {

namespace {

/// Changes merged ahead of the owner where no clock holds the reading back.
constexpr std::size_t MaximumAhead = 512;

} // namespace

TRecordingReader::TRecordingReader(TRecordingSource source, std::function<void()> wake)
    : TMarketReader(std::move(wake)), source_(std::move(source)), thread_(StartThread()) {}

void TRecordingReader::Seek(TTimeOfDay time) {
  const TLock lock(mutex_);
  seekRequest_ = time;
  Command();
}

TTimeOfDay TRecordingReader::CurrentPosition() const {
  if (!index_)
    return {};
  if (IsUnderway())
    return std::clamp(seekRequest_ ? *seekRequest_ : *seekTarget_, index_->Start, index_->End);
  return std::min(clock_.At(Now()), next_ ? next_->Time : index_->End);
}

bool TRecordingReader::DoNext(TLock& lock, const std::stop_token& stop) {
  if (!index_)
    BuildIndex(lock, stop);
  else if (seekRequest_)
    StartSeek(lock);
  else if (IsNextDue() && !MustWaitForTake())
    MergeNext(lock);
  else if (seekTarget_)
    EndSeek(lock);
  else
    return false;
  return true;
}

std::optional<TReplayClock::TMoment> TRecordingReader::NextDue() const {
  return MustWaitForTake() ? std::nullopt : clock_.Due(next_->Time);
}

/// Leaves no index behind when it was stopped.
void TRecordingReader::BuildIndex(TLock& lock, const std::stop_token& stop) {
  lock.unlock();
  int perCent = 0;
  const auto goOn = [this, &lock, &stop, &perCent](std::uint64_t bytes) {
    const int now = static_cast<int>(bytes * 100 / std::max<std::uint64_t>(source_.Size(), bytes));
    if (std::exchange(perCent, now) != now) {
      lock.lock();
      TellProgress({TLongTask::Indexing, now}, lock);
      lock.unlock();
    }
    return !stop.stop_requested();
  };
  auto index = IndexRecording(source_, goOn);
  lock.lock();
  if (!index)
    return;
  index_ = std::make_shared<const TRecordingIndex>(*std::move(index));
  news_.Index = index_;
  if (!seekRequest_)
    seekRequest_ = index_->Start;
  TellProgress({TLongTask::Indexing, 100}, lock);
}

void TRecordingReader::StartSeek(TLock& lock) {
  seekTarget_ = CurrentPosition();
  seekRequest_.reset();
  const TTimeOfDay target = *seekTarget_;
  lock.unlock();
  const auto& checkpoint = CheckpointFor(*index_, target);
  source_.MoveTo(checkpoint.Place);
  TConflator market;
  for (const TRecordChange& change : checkpoint.State)
    market.Merge(change);
  auto next = ReadEvent();
  lock.lock();
  seekFrom_ = std::max(checkpoint.Place.Time, index_->Start);
  conflator_ = std::move(market);
  next_ = std::move(next);
  news_.Reset = true;
}

void TRecordingReader::EndSeek(TLock& lock) {
  SetClock(clock_.IsRunning);
  seekTarget_.reset();
  TellSeekDone(lock);
  Announce(lock);
}

/// The line after the next is read first, so that there is no moment without a next one.
void TRecordingReader::MergeNext(TLock& lock) {
  lock.unlock();
  auto following = ReadEvent();
  lock.lock();
  conflator_.Merge(std::move(next_->Change));
  next_ = std::move(following);
  if (!seekTarget_)
    Announce(lock);
  else if (next_ && next_->Time < *seekTarget_)
    TellSeekProgress(seekFrom_, next_->Time, *seekTarget_, lock);
}

std::optional<TRecordedEvent> TRecordingReader::ReadEvent() {
  while (auto line = source_.Next()) {
    if (auto* const event = std::get_if<TRecordedEvent>(&*line))
      return std::move(*event);
  }
  return std::nullopt;
}

bool TRecordingReader::IsNextDue() const {
  return next_ && next_->Time <= (seekTarget_ ? *seekTarget_ : clock_.At(Now()));
}

bool TRecordingReader::MustWaitForTake() const {
  return !seekTarget_ && HasNoClock() && conflator_.MergedCount() >= MaximumAhead;
}

} // namespace Feed
