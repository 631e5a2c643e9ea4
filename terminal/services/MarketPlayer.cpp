#include "terminal/services/MarketPlayer.h"

#include <cmath>
#include <utility>

namespace Terminal {

TMarketPlayer::TMarketPlayer(QObject* parent) : QObject(parent) {
  positionTimer_.setInterval(100);
  connect(&positionTimer_, &QTimer::timeout, this, &TMarketPlayer::TellPosition);
}

TMarketPlayer::~TMarketPlayer() = default;

std::optional<Data::TProblem> TMarketPlayer::Open(const Feed::TSourceKind& kind,
                                                  const Feed::TSourceOptions& options) {
  auto opened = kind.Open(options, [this] { Wake(); });
  if (const auto* problem = std::get_if<Data::TProblem>(&opened))
    return *problem;
  Close();
  reader_ = std::get<std::unique_ptr<Feed::TMarketReader>>(std::move(opened));
  if (delay_ > Text::TTimeOfDay{})
    SetDelay(delay_);
  reader_->SetSpeed(speed_);
  reader_->SetAtEnd(Traits().HasEnd ? Feed::TAtEnd::Stop : Feed::TAtEnd::StartOver);
  TellState();
  return {};
}

void TMarketPlayer::Close() {
  reader_.reset();
  index_.reset();
  toldPosition_ = {};
  TellState();
}

void TMarketPlayer::Play() {
  if (!reader_)
    return;
  reader_->Play();
  TellState();
}

void TMarketPlayer::Pause() {
  if (!reader_)
    return;
  reader_->Pause();
  TellPosition();
  TellState();
}

void TMarketPlayer::SetSpeed(double speed) {
  speed_ =
      speed == AsFastAsPossible ? speed : std::fmin(std::fmax(speed, SlowestSpeed), FastestSpeed);
  if (reader_)
    reader_->SetSpeed(speed_);
}

Feed::TSourceTraits TMarketPlayer::Traits() const {
  return reader_ ? reader_->Traits() : Feed::TSourceTraits();
}

void TMarketPlayer::Seek(Text::TTimeOfDay time) {
  if (auto* source = Traits().Seekable)
    source->Seek(time);
  TellState();
}

void TMarketPlayer::Step(int milliseconds) {
  if (!reader_)
    return;
  reader_->Step(std::chrono::milliseconds(milliseconds));
  Deliver();
}

void TMarketPlayer::Jump(Feed::TJump to) {
  if (auto* source = Traits().Jumpable)
    source->Jump(to);
  TellState();
}

void TMarketPlayer::Request(const Data::TOrderRequest& request) {
  if (auto* source = Traits().Orders)
    source->Request(request);
}

void TMarketPlayer::SetDelay(Text::TTimeOfDay delay) {
  delay_ = delay;
  if (auto* source = Traits().Delayable)
    source->SetDelay(delay);
}

TMarketPlayer::TState TMarketPlayer::State() const {
  if (!reader_)
    return TState::Closed;
  if (!index_)
    return TState::Indexing;
  if (reader_->IsPlaying())
    return TState::Playing;
  return reader_->IsAtEnd() ? TState::Finished : TState::Paused;
}

Text::TTimeOfDay TMarketPlayer::Position() const {
  return index_ ? reader_->Position() : Text::TTimeOfDay{};
}
Text::TTimeOfDay TMarketPlayer::Start() const {
  return index_ ? index_->Start : Text::TTimeOfDay{};
}
Text::TTimeOfDay TMarketPlayer::End() const { return index_ ? index_->End : Text::TTimeOfDay{}; }

/// On the reader's thread.
void TMarketPlayer::Wake() {
  QMetaObject::invokeMethod(this, &TMarketPlayer::Deliver, Qt::QueuedConnection);
}

/// Tells the news of the reading thread. A slot may open, close or seek meanwhile: what is told
/// here is this function's own, and the rest of it is dropped when its reader is gone.
void TMarketPlayer::Deliver() {
  if (!reader_)
    return;
  const std::weak_ptr<Feed::TMarketReader> teller = reader_;
  const auto tell = [this, &teller](auto signal, const auto&... what) {
    if (!teller.expired())
      (this->*signal)(what...);
  };
  const Feed::TReaderNews news = reader_->Take();
  batchTime_ = news.Time;
  for (const Feed::TReaderProgress& progress : news.Progress)
    tell(&TMarketPlayer::Progress, progress.Activity, progress.PerCent);
  if (news.Index && !teller.expired()) {
    index_ = news.Index;
    emit HeaderRead(news.Index->Header);
  }
  if (news.Reset)
    tell(&TMarketPlayer::Reset);
  if (!news.Changes.empty())
    tell(&TMarketPlayer::Batch, news.Changes);
  for (const Data::TOrderReport& report : news.Reports)
    tell(&TMarketPlayer::Reported, report);
  if (!news.CoolingOff.empty())
    tell(&TMarketPlayer::CoolingOffReached, QString::fromStdString(news.CoolingOff));
  if (news.Reset || State() != TState::Playing)
    TellPosition();
  if (news.Finished)
    tell(&TMarketPlayer::Finished);
  TellState();
}

void TMarketPlayer::TellPosition() {
  const Text::TTimeOfDay position = Position();
  if (std::exchange(toldPosition_, position) != position)
    emit PositionChanged(position);
}

void TMarketPlayer::TellState() {
  const TState state = State();
  if (state != TState::Playing)
    positionTimer_.stop();
  else if (!positionTimer_.isActive())
    positionTimer_.start();
  if (std::exchange(toldState_, state) != state)
    emit StateChanged(state);
}

} // namespace Terminal
