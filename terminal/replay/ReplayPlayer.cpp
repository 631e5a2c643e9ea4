#include "terminal/replay/ReplayPlayer.h"

#include <QFile>

#include <cmath>
#include <utility>

namespace Terminal {

ReplayPlayer::ReplayPlayer(QObject* parent) : QObject(parent) {
  positionTimer_.setInterval(100);
  connect(&positionTimer_, &QTimer::timeout, this, &ReplayPlayer::TellPosition);
}

ReplayPlayer::~ReplayPlayer() = default;

QString ReplayPlayer::Open(const QString& path) {
  RecordingSource source;
  const std::string problem = source.Open(QFile::encodeName(path).toStdString());
  if (!problem.empty())
    return QString::fromStdString(problem);
  Close();
  path_ = path;
  reader_ = std::make_unique<RecordingReader>(std::move(source), [this] {
    QMetaObject::invokeMethod(this, &ReplayPlayer::Deliver, Qt::QueuedConnection);
  });
  reader_->SetSpeed(speed_);
  reader_->SetAtEnd(atEnd_);
  TellState();
  return {};
}

void ReplayPlayer::Close() {
  reader_.reset();
  index_.reset();
  path_.clear();
  toldPosition_ = {};
  TellState();
}

void ReplayPlayer::Play() {
  if (!reader_)
    return;
  reader_->Play();
  TellState();
}

void ReplayPlayer::Pause() {
  if (!reader_)
    return;
  reader_->Pause();
  TellPosition();
  TellState();
}

void ReplayPlayer::SetSpeed(double speed) {
  speed_ =
      speed == AsFastAsPossible ? speed : std::fmin(std::fmax(speed, SlowestSpeed), FastestSpeed);
  if (reader_)
    reader_->SetSpeed(speed_);
}

void ReplayPlayer::SetAtEnd(TAtEnd atEnd) {
  atEnd_ = atEnd;
  if (reader_)
    reader_->SetAtEnd(atEnd_);
}

void ReplayPlayer::Seek(TTimeOfDay time) {
  if (!reader_)
    return;
  reader_->Seek(time);
  TellState();
}

void ReplayPlayer::Step(int milliseconds) {
  if (!reader_)
    return;
  reader_->Step(std::chrono::milliseconds(milliseconds));
  Deliver();
}

ReplayPlayer::TState ReplayPlayer::State() const {
  if (!reader_)
    return TState::Closed;
  if (!index_)
    return TState::Indexing;
  if (reader_->IsPlaying())
    return TState::Playing;
  return reader_->IsAtEnd() ? TState::Finished : TState::Paused;
}

TTimeOfDay ReplayPlayer::Position() const { return index_ ? reader_->Position() : TTimeOfDay{}; }
TTimeOfDay ReplayPlayer::Start() const { return index_ ? index_->Start : TTimeOfDay{}; }
TTimeOfDay ReplayPlayer::End() const { return index_ ? index_->End : TTimeOfDay{}; }

/// Tells the news of the reading thread. A slot may open, close or seek meanwhile: what is told
/// here is this function's own.
void ReplayPlayer::Deliver() {
  if (!reader_)
    return;
  const TReaderNews news = reader_->Take();
  for (const TReaderProgress& progress : news.Progress)
    emit Progress(progress.Activity, progress.PerCent);
  if (news.Index) {
    index_ = news.Index;
    emit HeaderRead(news.Index->Header);
  }
  if (news.Reset)
    emit Reset();
  if (!news.Changes.empty())
    emit Batch(news.Changes);
  if (news.Reset || State() != TState::Playing)
    TellPosition();
  if (news.Finished)
    emit Finished();
  TellState();
}

void ReplayPlayer::TellPosition() {
  const TTimeOfDay position = Position();
  if (std::exchange(toldPosition_, position) != position)
    emit PositionChanged(position);
}

void ReplayPlayer::TellState() {
  const TState state = State();
  if (state != TState::Playing)
    positionTimer_.stop();
  else if (!positionTimer_.isActive())
    positionTimer_.start();
  if (std::exchange(toldState_, state) != state)
    emit StateChanged(state);
}

} // namespace Terminal
