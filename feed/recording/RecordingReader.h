#pragma once

#include "feed/MarketReader.h"
#include "feed/recording/RecordingIndex.h"

namespace Feed {

/// Reads one recording. Holds one decoded line ahead of the clock and one merged change per symbol,
/// however slowly they are taken. Starts paused at the recording's first moment.
class TRecordingReader final : public TMarketReader, public TSeekable {
public:
  TRecordingReader(TRecordingSource source, std::function<void()> wake);

  TSourceTraits Traits() override { return {.Seekable = this}; }
  void Seek(TTimeOfDay time) override;

private:
  bool DoNext(TLock& lock, const std::stop_token& stop) override;
  std::optional<TReplayClock::TMoment> NextDue() const override;
  TTimeOfDay CurrentPosition() const override;
  bool IsUnderway() const override { return seekRequest_ || seekTarget_; }
  bool IsPastEnd() const override { return index_ && !next_ && !IsUnderway(); }
  TTimeOfDay Beginning() const override { return index_->Start; }
  TTimeOfDay End() const override { return index_->End; }

  void BuildIndex(TLock& lock, const std::stop_token& stop);
  void StartSeek(TLock& lock);
  void EndSeek(TLock& lock);
  void MergeNext(TLock& lock);
  std::optional<TRecordedEvent> ReadEvent();
  bool IsNextDue() const;
  bool MustWaitForTake() const;

  TRecordingSource source_; ///< the thread's; all below is guarded by the lock

  std::shared_ptr<const TRecordingIndex> index_; ///< set once, by the thread
  std::optional<TTimeOfDay> seekTarget_;         ///< being carried out
  TTimeOfDay seekFrom_{};                        ///< where reading began for it
  std::optional<TRecordedEvent> next_;           ///< decoded, not yet due

  std::jthread thread_; ///< last: joined before anything else goes
};

} // namespace Feed
