#pragma once

#include "feed/Conflator.h"
#include "feed/MarketIndex.h"
#include "feed/ReplayClock.h"
#include "feed/SourceTraits.h"

#include <condition_variable>
#include <functional>
#include <limits>
#include <memory>
#include <mutex>
#include <stop_token>
#include <thread>

namespace Feed {

/// What a playing market does after its last change. One that lasts no time does not start over.
enum class TAtEnd { Stop, StartOver };

/// What takes long enough to show its progress.
enum class TLongTask { Indexing, Seeking };

struct TReaderProgress {
  TLongTask Activity = TLongTask::Indexing;
  int PerCent = 0;
};

/// What has happened since it was last taken, to be told in the order of the members.
struct TReaderNews {
  std::vector<TReaderProgress> Progress;
  /// Once a market or a day of it, when header, start and end are known; otherwise null.
  std::shared_ptr<const TMarketIndex> Index;
  bool Reset = false;                      ///< the market starts over before Changes
  std::vector<TRecordChange> Changes;      ///< one per symbol
  TTimeOfDay Time{};                       ///< the moment that Changes lead to
  std::vector<Data::TOrderReport> Reports; ///< to the user's orders
  std::string CoolingOff; ///< symbol whose cooling-off a jump has led to; otherwise empty
  bool Finished = false;
};

/// A source: a market that a thread of its own reads or makes, merging what is due by the clock
/// until the owner takes it: one merged change per symbol, however slowly they are taken. Starts
/// paused.
///
/// The operations belong to one thread, the owner's. Here are the clock and all that passes between
/// the two threads; what the market is, and how it goes on, is the implementation's.
class TMarketReader {
public:
  static constexpr double AsFastAsPossible = std::numeric_limits<double>::infinity();

  TMarketReader(const TMarketReader&) = delete;
  TMarketReader& operator=(const TMarketReader&) = delete;
  virtual ~TMarketReader(); ///< stops at once, in the midst of whatever is going on

  virtual TSourceTraits Traits() = 0;

  TReaderNews Take();

  void Play(); ///< at the end from the beginning, where it can seek
  void Pause();
  void SetSpeed(double speed); ///< above 0
  void SetAtEnd(TAtEnd atEnd);
  /// Pauses and moves on by 0 or more; returns when all that is due by then has been merged.
  void Step(std::chrono::milliseconds by);

  bool IsPlaying() const;
  bool IsAtEnd() const; ///< the last change has been merged
  /// How far the merged changes go: the clock's time, or less while the thread lags behind it.
  TTimeOfDay Position() const;

protected:
  using TLock = std::unique_lock<std::mutex>;

  /// `wake` is called on the reader's thread when there is news and none was announced since the
  /// last Take. It must not call back.
  explicit TMarketReader(std::function<void()> wake,
                         std::size_t maximumTrades = TConflator::MaximumTrades);
  /// For the implementation's last member, so that the thread has ended before anything else goes.
  std::jthread StartThread();

  static TReplayClock::TMoment Now() { return std::chrono::steady_clock::now(); }

  // Everything from here on with the lock held.

  void Command(); ///< wakes the thread for what the owner has asked for
  void SetClock(bool isRunning);
  bool HasNoClock() const; ///< plays as fast as possible
  /// There is news. Like whatever else is given the lock, it opens it for a while.
  void Announce(TLock& lock);
  void TellProgress(TReaderProgress progress, TLock& lock);
  void TellSeekProgress(TTimeOfDay from, TTimeOfDay at, TTimeOfDay to, TLock& lock);
  void TellSeekDone(TLock& lock);

  mutable std::mutex mutex_;
  TReplayClock clock_;
  TConflator conflator_;
  TReaderNews news_;                      ///< but for what the conflator holds
  std::optional<TTimeOfDay> seekRequest_; ///< not begun yet
  bool hasCommand_ = false;               ///< since the thread last looked
  bool isAnnounced_ = false;              ///< and not taken yet

private:
  /// On the thread: does the next piece of work. False when there is none now.
  virtual bool DoNext(TLock& lock, const std::stop_token& stop) = 0;
  /// When there will be some, before the end, unless a command comes first; empty when only a
  /// command helps.
  virtual std::optional<TReplayClock::TMoment> NextDue() const = 0;
  virtual TTimeOfDay CurrentPosition() const = 0;
  /// On the way to another moment, so that what was told last stands until that is reached.
  virtual bool IsUnderway() const = 0;
  virtual bool IsPastEnd() const = 0;
  // Of the market's hours; not asked for before there is a market.
  virtual TTimeOfDay Beginning() const = 0;
  virtual TTimeOfDay End() const = 0;

  void Work(const std::stop_token& stop);
  void TellFinished(TLock& lock);
  void Wait(TLock& lock, const std::stop_token& stop);
  std::optional<TReplayClock::TMoment> NextMoment() const;
  void Settle(TLock& lock);
  bool IsToStartOver() const { return atEnd_ == TAtEnd::StartOver && Beginning() < End(); }
  bool MayStartOver() const;

  const std::function<void()> wake_;
  std::condition_variable_any commanded_;
  std::condition_variable settled_;
  bool isSettled_ = false; ///< all that was asked for is done and nothing is due
  bool isFinishTold_ = false;
  int toldPerCent_ = 0;
  TAtEnd atEnd_ = TAtEnd::Stop;
};

} // namespace Feed
