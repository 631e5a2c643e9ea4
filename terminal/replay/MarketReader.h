#pragma once

#include "terminal/market/OrderReport.h"
#include "terminal/replay/RecordingIndex.h"

#include <limits>
#include <memory>

namespace Terminal {

/// What a playing market does after its last change.
enum class TAtEnd { Stop, StartOver };

/// What takes long enough to show its progress.
enum class TActivity { Indexing, Seeking };

struct TReaderProgress {
  TActivity Activity = TActivity::Indexing;
  int PerCent = 0;
};

/// What has happened since it was last taken, to be told in the order of the members.
struct TReaderNews {
  std::vector<TReaderProgress> Progress;
  /// Once, when header, start and end are known; otherwise null. A simulated market has no lines.
  std::shared_ptr<const TRecordingIndex> Index;
  bool Reset = false;                        ///< the market starts over before Changes
  std::vector<TRecordChange> Changes;        ///< one per symbol
  TTimeOfDay Time{};                         ///< the moment that Changes lead to
  std::vector<Market::TOrderReport> Reports; ///< to the user's orders
  std::string CoolingOff; ///< symbol whose cooling-off a jump has led to; otherwise empty
  bool Finished = false;
};

/// A market that a thread of its own reads or makes, merging what is due by the clock until the
/// owner takes it: one merged change per symbol, however slowly they are taken. Starts paused.
///
/// The operations belong to one thread, the owner's. An implementation tells that thread once when
/// there is news, and again only after Take.
class MarketReader {
public:
  static constexpr double AsFastAsPossible = std::numeric_limits<double>::infinity();

  MarketReader() = default;
  MarketReader(const MarketReader&) = delete;
  MarketReader& operator=(const MarketReader&) = delete;
  virtual ~MarketReader(); ///< stops at once, in the midst of whatever is going on

  virtual TReaderNews Take() = 0;

  virtual void Play() = 0;
  virtual void Pause() = 0;
  virtual void SetSpeed(double speed) = 0; ///< above 0
  virtual void SetAtEnd(TAtEnd atEnd) = 0;
  virtual void Seek(TTimeOfDay time) = 0; ///< clamped to the market's hours
  /// Pauses and moves on by 0 or more; returns when all that is due by then has been merged.
  virtual void Step(std::chrono::milliseconds by) = 0;

  virtual bool IsPlaying() const = 0;
  virtual bool IsAtEnd() const = 0; ///< the last change has been merged
  /// How far the merged changes go: the clock's time, or less while the thread lags behind it.
  virtual TTimeOfDay Position() const = 0;
};

} // namespace Terminal
