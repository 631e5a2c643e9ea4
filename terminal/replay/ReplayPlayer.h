#pragma once

#include "terminal/replay/RecordingReader.h"

#include <QObject>
#include <QString>
#include <QTimer>

#include <memory>
#include <vector>

namespace Terminal {

/// Plays a recording to the user-interface thread, on which all of this runs. Reading and decoding
/// happen on a worker thread; what a slow screen could not take yet is merged, not queued.
///
/// Opening indexes the file first, with Progress; what is asked for meanwhile (play, seek, speed)
/// happens when that is done. A player must not be deleted from one of its own signals, except
/// with deleteLater().
class ReplayPlayer : public QObject {
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
  static constexpr double AsFastAsPossible = RecordingReader::AsFastAsPossible;
  static constexpr double SlowestSpeed = 0.1;
  static constexpr double FastestSpeed = 1000;

  explicit ReplayPlayer(QObject* parent = nullptr);
  /// May come at any moment, in the midst of indexing or seeking too.
  ~ReplayPlayer() override;

  /// Opens the recording paused at its first moment, in place of the one that was open. Empty when
  /// it could be opened; otherwise what is wrong, in one sentence, and nothing has changed.
  QString Open(const QString& path);
  void Close();
  QString Path() const { return path_; } ///< empty while closed

  void Play();
  void Pause();
  /// Times the recorded speed; a figure outside slowest to fastest becomes the nearer of them.
  /// Kept from one recording to the next.
  void SetSpeed(double speed);
  double Speed() const { return speed_; }
  /// Kept from one recording to the next; Stop unless told.
  void SetAtEnd(TAtEnd atEnd);
  TAtEnd AtEnd() const { return atEnd_; }

  /// Goes to `time`, clamped to the recording: Reset, then one batch with the state at that
  /// moment, then on as before. Returns at once; a long seek shows Progress.
  void Seek(TTimeOfDay time);
  /// Pauses, carries out what was asked for before, moves on by `milliseconds` (0 or more) of
  /// recorded time and delivers everything up to there before it returns. Follows no clock.
  void Step(int milliseconds);

  TState State() const;
  /// Times of day; zero while closed or indexing.
  TTimeOfDay Position() const;
  TTimeOfDay Start() const;
  TTimeOfDay End() const;
  TTimeOfDay Duration() const { return End() - Start(); }
  /// What indexing found; null while closed or indexing. Valid until the next Open or Close.
  const TRecordingIndex* Index() const { return index_.get(); }

signals:
  /// Once per recording, before the first batch; an empty header when the recording has none.
  void HeaderRead(const Terminal::TRecordingHeader& header);
  /// Every record that a batch named loses all it holds, trades too; the state follows as a Batch.
  void Reset();
  /// Changes in recorded order, one per symbol.
  void Batch(const std::vector<Terminal::TRecordChange>& changes);
  /// At most ten times a second while playing, and after every jump.
  void PositionChanged(Terminal::TTimeOfDay position);
  /// The last change was delivered, and the recording is not to start over.
  void Finished();
  /// 0 to 100; 100 once, when done.
  void Progress(Terminal::TActivity activity, int perCent);
  void StateChanged(Terminal::ReplayPlayer::TState state);

private:
  void Deliver();
  void TellPosition();
  void TellState();

  QString path_;
  double speed_ = 1;
  TAtEnd atEnd_ = TAtEnd::Stop;
  TState toldState_ = TState::Closed;
  TTimeOfDay toldPosition_{};
  std::shared_ptr<const TRecordingIndex> index_;
  std::unique_ptr<RecordingReader> reader_;
  QTimer positionTimer_;
};

} // namespace Terminal
