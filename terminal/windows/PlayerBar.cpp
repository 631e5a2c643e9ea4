#include "terminal/windows/PlayerBar.h"

#include "host/BaseLookAndFeelService.h"
#include "host/ConstDef.h"
#include "platform/Colour.h"
#include "terminal/windows/WindowTexts.h"

#include <QEvent>
#include <QMenu>
#include <QPainter>
#include <QProxyStyle>

namespace Terminal {

namespace {

constexpr int AgeInterval = 200; // milliseconds
constexpr double QuietAfter = 5; // seconds without data while playing
constexpr double speeds[] = {0.1, 0.5, 1, 2, 5, 10, 20, 50, 100, 200, 1000};

struct TJumpChoice {
  Market::TJump To;
  const char* Text;
};
constexpr TJumpChoice jumps[] = {{Market::TJump::Opening, "Term_JumpOpening"},
                                 {Market::TJump::CoolingOff, "Term_JumpCoolingOff"},
                                 {Market::TJump::ClosingAuction, "Term_JumpClosingAuction"}};

/// A click beside the handle goes there, instead of a page on.
class TSeekStyle : public QProxyStyle {
public:
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* data) const override {
    if (hint == SH_Slider_AbsoluteSetButtons)
      return Qt::LeftButton;
    return QProxyStyle::styleHint(hint, option, widget, data);
  }
};

qint64 Milliseconds(TTimeOfDay time) {
  return std::chrono::duration_cast<std::chrono::milliseconds>(time).count();
}

QString ClockText(TTimeOfDay time) {
  return QString::fromStdString(TimeOfDayText(time).substr(0, 10)); // to the tenth of a second
}

QString SpeedText(double speed) { return QStringLiteral("%1×").arg(speed); }

/// A triangle for play, two bars for pause, in the colour of texts.
QIcon PlayIcon(bool isPlaying, const QColor& colour) {
  QPixmap picture(32, 32);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(colour);
  if (isPlaying) {
    painter.drawRect(8, 6, 6, 20);
    painter.drawRect(18, 6, 6, 20);
  } else {
    painter.drawPolygon(QPolygon({{9, 5}, {27, 16}, {9, 27}}));
  }
  return QIcon(picture);
}

/// Two triangles and a bar in the colour of texts.
QIcon JumpIcon(const QColor& colour) {
  QPixmap picture(32, 32);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(colour);
  painter.drawPolygon(QPolygon({{3, 6}, {14, 16}, {3, 26}}));
  painter.drawPolygon(QPolygon({{14, 6}, {25, 16}, {14, 26}}));
  painter.drawRect(25, 6, 4, 20);
  return QIcon(picture);
}

void SetColours(QLabel* label, const char* background, const char* text) {
  label->setStyleSheet(
      QStringLiteral("background:%1;color:%2;border-radius:3px;padding:2px 8px;font-weight:bold")
          .arg(QLatin1String(background), QLatin1String(text)));
}

QString WarningStyle() {
  auto* skin = Baselookandfeelservice::TCustomLookAndFeelService::GetInstance();
  return QStringLiteral("color:%1")
      .arg(Platform::ToQColor(skin->GetColour(0, "coWarningText")).name());
}

} // namespace

TPlayerBar::TPlayerBar(MarketPlayer& player, const TMarketFeed& feed, QWidget* parent)
    : QToolBar(parent), player_(player), feed_(feed), mark_(new QLabel), snapshots_(new QLabel),
      play_(new QToolButton), speed_(new QComboBox), jump_(new QToolButton),
      position_(new QSlider(Qt::Horizontal)), progress_(new QProgressBar), clock_(new QLabel),
      age_(new QLabel), skipped_(new QLabel) {
  setObjectName(QStringLiteral("playerBar"));
  setMovable(false);
  play_->setFocusPolicy(Qt::NoFocus);
  connect(play_, &QToolButton::clicked, this, &TPlayerBar::PlayOrPause);
  BuildSpeeds();
  BuildPosition();
  BuildJumps();
  addWidget(mark_);
  addSeparator();
  for (QWidget* widget :
       {static_cast<QWidget*>(play_), static_cast<QWidget*>(speed_), static_cast<QWidget*>(jump_),
        static_cast<QWidget*>(position_), static_cast<QWidget*>(progress_),
        static_cast<QWidget*>(clock_), static_cast<QWidget*>(age_),
        static_cast<QWidget*>(snapshots_), static_cast<QWidget*>(skipped_)})
    addWidget(widget);
  FollowPlayer();
  SetTexts();
}

void TPlayerBar::BuildSpeeds() {
  speed_->setFocusPolicy(Qt::ClickFocus);
  for (const double speed : speeds)
    speed_->addItem(SpeedText(speed), speed);
  connect(speed_, &QComboBox::activated, this,
          [this] { player_.SetSpeed(speed_->currentData().toDouble()); });
}

void TPlayerBar::BuildPosition() {
  auto* style = new TSeekStyle;
  style->setParent(position_);
  position_->setStyle(style);
  position_->setFocusPolicy(Qt::NoFocus);
  position_->setMinimumWidth(120);
  connect(position_, &QSlider::sliderMoved, this,
          [this] { clock_->setText(ClockText(SliderTime())); });
  connect(position_, &QSlider::sliderReleased, this, [this] { player_.Seek(SliderTime()); });
  progress_->setMaximumWidth(90);
  progress_->setTextVisible(false);
  progress_->hide();
  QFont digits = clock_->font();
  digits.setBold(true);
  clock_->setFont(digits);
  clock_->setMargin(6);
  age_->setMargin(2);
  skipped_->setMargin(2);
  snapshots_->setMargin(2);
}

void TPlayerBar::BuildJumps() {
  jump_->setFocusPolicy(Qt::NoFocus);
  jump_->setPopupMode(QToolButton::InstantPopup);
  jump_->setMenu(new QMenu(jump_));
  for (const auto& jump : jumps)
    connect(jump_->menu()->addAction(QString()), &QAction::triggered, this,
            [this, to = jump.To] { player_.Jump(to); });
}

void TPlayerBar::FollowPlayer() {
  connect(&player_, &MarketPlayer::StateChanged, this, &TPlayerBar::ShowState);
  connect(&player_, &MarketPlayer::HeaderRead, this, [this] {
    ShowMark();
    ShowSkippedLines();
    ShowState();
  });
  connect(&feed_, &TMarketFeed::SnapshotTaken, this, &TPlayerBar::ShowSnapshots);
  connect(&player_, &MarketPlayer::PositionChanged, this, &TPlayerBar::ShowPosition);
  connect(&player_, &MarketPlayer::Progress, this, [this](TActivity, int perCent) {
    progress_->setValue(perCent);
    for (auto* action : actions())
      if (widgetForAction(action) == progress_)
        action->setVisible(perCent < 100);
  });
  connect(&ageTimer_, &QTimer::timeout, this, &TPlayerBar::ShowAge);
  ageTimer_.start(AgeInterval);
}

void TPlayerBar::PlayOrPause() {
  if (player_.State() == MarketPlayer::TState::Playing)
    player_.Pause();
  else
    player_.Play();
}

void TPlayerBar::SetTexts() {
  speed_->setToolTip(WindowText("Term_Speed"));
  for (std::size_t i = 0; i < std::size(jumps); ++i)
    jump_->menu()->actions().at(static_cast<qsizetype>(i))->setText(WindowText(jumps[i].Text));
  ShowSnapshots();
  ShowMark();
  ShowSkippedLines();
  ShowState();
  ShowAge();
}

// The play button is drawn in the colours of the skin.
void TPlayerBar::changeEvent(QEvent* event) {
  if (event->type() == QEvent::FontChange)
    for (auto* label : {mark_, age_}) // their style sheets keep the bar's font from them
      label->setFont(font());
  if (event->type() == QEvent::PaletteChange)
    ShowState();
  QToolBar::changeEvent(event);
}

void TPlayerBar::ShowState() {
  const bool isPlaying = player_.State() == MarketPlayer::TState::Playing;
  play_->setIcon(PlayIcon(isPlaying, palette().color(QPalette::WindowText)));
  play_->setToolTip(WindowText(isPlaying ? "Term_Pause" : "Term_Play"));
  ShowSpeed();
  jump_->setIcon(JumpIcon(palette().color(QPalette::WindowText)));
  jump_->setEnabled(player_.IsSimulating());
  position_->setRange(0, static_cast<int>(Milliseconds(player_.Duration())));
  ShowPosition(player_.Position());
  ShowAge();
}

// The speed may have been given on the command line, and be none of those on offer.
void TPlayerBar::ShowSpeed() {
  if (speed_->findData(player_.Speed()) < 0)
    speed_->addItem(SpeedText(player_.Speed()), player_.Speed());
  speed_->setCurrentIndex(speed_->findData(player_.Speed()));
}

void TPlayerBar::ShowMark() {
  mark_->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  mark_->setText(WindowText(feed_.IsSimulated() ? "Term_Simulated" : "Term_Replay").toUpper());
  if (feed_.IsSimulated())
    SetColours(mark_, "#d9a441", "#1b1f24");
  else
    SetColours(mark_, "#4fa3d9", "#1b1f24");
}

void TPlayerBar::ShowSnapshots() {
  const bool isPerClick = feed_.FeedType() == Constdef::FeedType_PerClick;
  snapshots_->setText(
      isPerClick
          ? QStringLiteral("%1: %2").arg(WindowText("Term_Snapshots")).arg(feed_.SnapshotCount())
          : QString());
}

void TPlayerBar::ShowSkippedLines() {
  const auto* index = player_.Index();
  const auto count = index ? index->MalformedCount : 0;
  QStringList lines;
  if (count > 0)
    for (const auto& line : SkippedLines(*index))
      lines.append(QString::fromStdString(line));
  skipped_->setText(count > 0
                        ? QStringLiteral("%1: %2").arg(WindowText("Term_SkippedLines")).arg(count)
                        : QString());
  skipped_->setToolTip(lines.join(QLatin1Char('\n')));
}

void TPlayerBar::ShowPosition(TTimeOfDay position) {
  if (position_->isSliderDown())
    return;
  position_->setValue(static_cast<int>(Milliseconds(position - player_.Start())));
  clock_->setText(ClockText(position));
}

void TPlayerBar::ShowAge() {
  const auto age = feed_.Age();
  const bool isPlaying = player_.State() == MarketPlayer::TState::Playing;
  const bool isStopped = !isPlaying || !age;
  const bool isQuiet = isPlaying && age.value_or(0) > QuietAfter;
  const QString figure = age ? QStringLiteral(" %1 s").arg(*age, 0, 'f', 1) : QString();
  age_->setText(WindowText(isStopped ? "Term_FeedStopped"
                           : isQuiet ? "Term_FeedGap"
                                     : "Term_DataAge") +
                figure);
  age_->setStyleSheet(isStopped || isQuiet ? WarningStyle() : QString());
}

TTimeOfDay TPlayerBar::SliderTime() const {
  return player_.Start() + std::chrono::milliseconds(position_->value());
}

} // namespace Terminal
