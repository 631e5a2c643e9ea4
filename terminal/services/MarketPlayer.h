#pragma once

#include "feed/SourceKind.h"

#include <QObject>
#include <QString>
#include <QTimer>

#include <memory>
#include <optional>
#include <vector>

namespace Terminal {

/// Plays a source to the user-interface thread, on which all of this runs. The source has a thread
/// of its own; what a slow screen could not take yet is merged, not queued.
///
/// A recording is indexed first, with Progress; what is asked for meanwhile (play, seek, speed)
/// happens when that is done. A player must not be deleted from one of its own signals, except
/// with deleteLater().
class TMarketPlayer : public QObject {
  Q_OBJECT
public:
  enum class TState {
    Closed,
    Indexing, ///< times, header and malformed lines are not known yet
    Paused,
    Playing,
    Finished, ///< paused at the end; Play starts from the beginning
  };
  Q_ENUM(TState)

  /// The speed that follows no clock: on as soon as the last batch was taken.
  static constexpr double AsFastAsPossible = Feed::TMarketReader::AsFastAsPossible;
  static constexpr double SlowestSpeed = 0.1;
  static constexpr double FastestSpeed = 1000;

  explicit TMarketPlayer(QObject* parent = nullptr);
  /// May come at any moment, in the midst of indexing or seeking too.
  ~TMarketPlayer() override;

  /// Opens a source, paused at its first moment, in place of what was open. Empty when it could be
  /// opened; otherwise nothing has changed.
  std::optional<Data::TProblem> Open(const Feed::TSourceKind& kind,
                                     const Feed::TSourceOptions& options);
  void Close();
  /// Of what is open; while closed, of what can do nothing.
  Feed::TSourceTraits Traits() const;

  void Play();
  void Pause();
  /// Times the market's own speed; a figure outside slowest to fastest becomes the nearer of them.
  /// Kept from one source to the next.
  void SetSpeed(double speed);
  double Speed() const { return speed_; }

  /// Pauses, carries out what was asked for before, moves on by `milliseconds` (0 or more) of
  /// the market's time and delivers everything up to there before it returns. Follows no clock.
  void Step(int milliseconds);

  // Of sources that can; others take no notice.

  /// Goes to `time`, within start and end: Reset, then one batch with the state at that moment,
  /// then on as before. Returns at once; a long seek shows Progress.
  void Seek(Text::TTimeOfDay time);
  /// Runs on at full speed, with Progress, then goes on as before: Reset, and one batch.
  void Jump(Feed::TJump to);
  void Request(const Data::TOrderRequest& request);
  /// Batches come that far behind the market: Reset, then one batch with the state of that moment.
  /// Kept from one market to the next; zero unless told.
  void SetDelay(Text::TTimeOfDay delay);

  TState State() const;
  /// Times of day; zero while closed or indexing.
  Text::TTimeOfDay Position() const;
  /// The moment that the last batch led to.
  Text::TTimeOfDay BatchTime() const { return batchTime_; }
  Text::TTimeOfDay Start() const;
  Text::TTimeOfDay End() const;
  Text::TTimeOfDay Duration() const { return End() - Start(); }
  /// What is known of the market as a whole; null while closed or indexing.
  /// Valid until the next Open or Close.
  const Feed::TMarketIndex* Index() const { return index_.get(); }

signals:
  /// Once per market or day of it, before its first batch; an empty header when it has none.
  void HeaderRead(const Data::TReferenceData& header);
  /// Every record that a batch named loses all it holds, trades too; the state follows as a Batch.
  void Reset();
  /// Changes in the market's order, one per symbol.
  void Batch(const std::vector<Data::TRecordChange>& changes);
  /// What the market says to the user's orders.
  void Reported(const Data::TOrderReport& report);
  /// A jump has led to the cooling-off of `symbol`, after its batch.
  void CoolingOffReached(const QString& symbol);
  /// At most ten times a second while playing, and after every jump.
  void PositionChanged(Text::TTimeOfDay position);
  /// The last change was delivered, and the market is not to start over.
  void Finished();
  /// 0 to 100; 100 once, when done.
  void Progress(Feed::TLongTask activity, int perCent);
  void StateChanged(Terminal::TMarketPlayer::TState state);

private:
  void Wake();
  void Deliver();
  void TellPosition();
  void TellState();

  double speed_ = 1;
  TState toldState_ = TState::Closed;
  Text::TTimeOfDay toldPosition_{};
  Text::TTimeOfDay batchTime_{};
  Text::TTimeOfDay delay_{};
  std::shared_ptr<const Feed::TMarketIndex> index_;
  std::shared_ptr<Feed::TMarketReader> reader_; ///< nobody else keeps it
  QTimer positionTimer_;
};

} // namespace Terminal
