#include "terminal/MarketPlayer.h"

#include <QFile>

#include <cmath>
#include <utility>

namespace Terminal {

MarketPlayer::MarketPlayer(QObject* parent) : QObject(parent) {
  positionTimer_.setInterval(100);
  connect(&positionTimer_, &QTimer::timeout, this, &MarketPlayer::TellPosition);
}

MarketPlayer::~MarketPlayer() = default;

QString MarketPlayer::Open(const QString& path) {
  RecordingSource source;
  const std::string problem = source.Open(QFile::encodeName(path).toStdString());
  if (!problem.empty())
    return QString::fromStdString(problem);
  Close();
  path_ = path;
  Begin(std::make_unique<RecordingReader>(std::move(source), [this] { Wake(); }));
  return {};
}

void MarketPlayer::Simulate(const TSimulation& simulation) {
  lastSimulation_ = simulation;
  Close();
  auto reader = std::make_unique<SimulationReader>(lastSimulation_, [this] { Wake(); });
  simulation_ = reader.get();
  if (delay_ > TTimeOfDay{})
    simulation_->SetDelay(delay_);
  Begin(std::move(reader));
}

void MarketPlayer::Begin(std::shared_ptr<MarketReader> reader) {
  reader_ = std::move(reader);
  reader_->SetSpeed(speed_);
  reader_->SetAtEnd(atEnd_);
  TellState();
}

void MarketPlayer::Close() {
  simulation_ = nullptr;
  reader_.reset();
  index_.reset();
  path_.clear();
  toldPosition_ = {};
  TellState();
}

void MarketPlayer::Play() {
  if (!reader_)
    return;
  reader_->Play();
  TellState();
}

void MarketPlayer::Pause() {
  if (!reader_)
    return;
  reader_->Pause();
  TellPosition();
  TellState();
}

void MarketPlayer::SetSpeed(double speed) {
  speed_ =
      speed == AsFastAsPossible ? speed : std::fmin(std::fmax(speed, SlowestSpeed), FastestSpeed);
  if (reader_)
    reader_->SetSpeed(speed_);
}

void MarketPlayer::SetAtEnd(TAtEnd atEnd) {
  atEnd_ = atEnd;
  if (reader_)
    reader_->SetAtEnd(atEnd_);
}

void MarketPlayer::Seek(TTimeOfDay time) {
  if (!reader_)
    return;
  reader_->Seek(time);
  TellState();
}

void MarketPlayer::Step(int milliseconds) {
  if (!reader_)
    return;
  reader_->Step(std::chrono::milliseconds(milliseconds));
  Deliver();
}

void MarketPlayer::Jump(TJump to) {
  if (!simulation_)
    return;
  simulation_->Jump(to);
  TellState();
}

void MarketPlayer::Request(const Market::TOrderRequest& request) {
  if (simulation_)
    simulation_->Request(request);
}

void MarketPlayer::SetDelay(TTimeOfDay delay) {
  delay_ = delay;
  if (simulation_)
    simulation_->SetDelay(delay);
}

MarketPlayer::TState MarketPlayer::State() const {
  if (!reader_)
    return TState::Closed;
  if (!index_)
    return TState::Indexing;
  if (reader_->IsPlaying())
    return TState::Playing;
  return reader_->IsAtEnd() ? TState::Finished : TState::Paused;
}

TTimeOfDay MarketPlayer::Position() const { return index_ ? reader_->Position() : TTimeOfDay{}; }
TTimeOfDay MarketPlayer::Start() const { return index_ ? index_->Start : TTimeOfDay{}; }
TTimeOfDay MarketPlayer::End() const { return index_ ? index_->End : TTimeOfDay{}; }

/// On the reader's thread.
void MarketPlayer::Wake() {
  QMetaObject::invokeMethod(this, &MarketPlayer::Deliver, Qt::QueuedConnection);
}

/// Tells the news of the reading thread. A slot may open, close or seek meanwhile: what is told
/// here is this function's own, and the rest of it is dropped when its reader is gone.
void MarketPlayer::Deliver() {
  if (!reader_)
    return;
  const std::weak_ptr<MarketReader> teller = reader_;
  const auto tell = [this, &teller](auto signal, const auto&... what) {
    if (!teller.expired())
      (this->*signal)(what...);
  };
  const TReaderNews news = reader_->Take();
  batchTime_ = news.Time;
  for (const TReaderProgress& progress : news.Progress)
    tell(&MarketPlayer::Progress, progress.Activity, progress.PerCent);
  if (news.Index && !teller.expired()) {
    index_ = news.Index;
    emit HeaderRead(news.Index->Header);
  }
  if (news.Reset)
    tell(&MarketPlayer::Reset);
  if (!news.Changes.empty())
    tell(&MarketPlayer::Batch, news.Changes);
  for (const Market::TOrderReport& report : news.Reports)
    tell(&MarketPlayer::Reported, report);
  if (!news.CoolingOff.empty())
    tell(&MarketPlayer::CoolingOffReached, QString::fromStdString(news.CoolingOff));
  if (news.Reset || State() != TState::Playing)
    TellPosition();
  if (news.Finished)
    tell(&MarketPlayer::Finished);
  TellState();
}

void MarketPlayer::TellPosition() {
  const TTimeOfDay position = Position();
  if (std::exchange(toldPosition_, position) != position)
    emit PositionChanged(position);
}

void MarketPlayer::TellState() {
  const TState state = State();
  if (state != TState::Playing)
    positionTimer_.stop();
  else if (!positionTimer_.isActive())
    positionTimer_.start();
  if (std::exchange(toldState_, state) != state)
    emit StateChanged(state);
}

} // namespace Terminal
