#pragma once

#include "terminal/replay/Conflator.h"
#include "terminal/replay/MarketReader.h"
#include "terminal/replay/ReplayClock.h"

#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <stop_token>
#include <thread>

namespace Terminal {

/// Reads one recording on a thread of its own and merges what is due by the clock until the owner
/// takes it. Holds one decoded line ahead of the clock and one merged change per symbol, however
/// slowly they are taken. Starts paused at the recording's first moment.
class RecordingReader : public MarketReader {
public:
  /// `wake` is called on the reading thread when there is news and none was announced since the
  /// last Take. It must not call back.
  RecordingReader(RecordingSource source, std::function<void()> wake);
  ~RecordingReader() override;

  TReaderNews Take() override;

  void Play() override;
  void Pause() override;
  void SetSpeed(double speed) override;
  void SetAtEnd(TAtEnd atEnd) override;
  void Seek(TTimeOfDay time) override;
  void Step(std::chrono::milliseconds by) override;

  bool IsPlaying() const override;
  bool IsAtEnd() const override;
  TTimeOfDay Position() const override;

private:
  using TLock = std::unique_lock<std::mutex>;

  void Work(const std::stop_token& stop);
  bool BuildIndex(const std::stop_token& stop);
  void StartSeek(TLock& lock);
  void EndSeek(TLock& lock);
  void MergeNext(TLock& lock);
  void TellFinished(TLock& lock);
  void TellProgress(TReaderProgress progress, TLock& lock);
  void TellSeekProgress(TLock& lock);
  void Announce(TLock& lock);
  void Wait(TLock& lock, const std::stop_token& stop);
  std::optional<TRecordedEvent> ReadEvent();

  // All of these with the lock held.
  void Command();
  void Settle(TLock& lock);
  void SetClock(TTimeOfDay position, bool isRunning);
  TTimeOfDay CurrentPosition() const;
  bool IsSeeking() const { return seekRequest_ || seekTarget_; }
  bool IsPastLast() const { return index_ && !next_ && !IsSeeking(); }
  bool IsNextDue() const;
  bool MustWaitForTake() const;
  bool MayStartOver() const;
  std::optional<ReplayClock::TMoment> NextMoment() const;

  const std::function<void()> wake_;
  RecordingSource source_; ///< the reading thread's

  mutable std::mutex mutex_; ///< guards all below
  std::condition_variable_any commanded_;
  std::condition_variable settled_;
  bool hasCommand_ = false;
  bool isSettled_ = false; ///< all that was asked for is done and nothing is due
  bool isAnnounced_ = false;
  bool isFinishTold_ = false;
  TAtEnd atEnd_ = TAtEnd::Stop;
  ReplayClock clock_;
  std::shared_ptr<const TRecordingIndex> index_; ///< set once, by the reading thread
  std::optional<TTimeOfDay> seekRequest_;
  std::optional<TTimeOfDay> seekTarget_; ///< being carried out
  TTimeOfDay seekFrom_{};                ///< where reading began for it
  int seekPerCent_ = 0;                  ///< told last
  std::optional<TRecordedEvent> next_;   ///< decoded, not yet due
  Conflator conflator_;
  TReaderNews news_;

  std::jthread thread_; ///< last: joined before anything else goes
};

} // namespace Terminal
