#include "terminal/windows/PlayerBar.h"

#include "host/BaseLookAndFeelService.h"
#include "host/ConstDef.h"
#include "platform/Colour.h"
#include "platform/DrawnIcon.h"
#include "terminal/services/Skins.h"
#include "terminal/windows/Chip.h"
#include "terminal/windows/SkippedLines.h"
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
  Feed::TJump To;
  const char* Text;
};
constexpr TJumpChoice jumps[] = {{Feed::TJump::Opening, "Term_JumpOpening"},
                                 {Feed::TJump::CoolingOff, "Term_JumpCoolingOff"},
                                 {Feed::TJump::ClosingAuction, "Term_JumpClosingAuction"}};

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

qint64 Milliseconds(Text::TTimeOfDay time) {
  return std::chrono::duration_cast<std::chrono::milliseconds>(time).count();
}

QString PositionText(Text::TTimeOfDay time) {
  return QString::fromStdString(
      Text::TimeOfDayText(time).substr(0, 10)); // to the tenth of a second
}

QString SpeedText(double speed) { return QStringLiteral("%1×").arg(speed); }

// Solid, in the colour of texts.

QIcon PlayIcon() {
  return Platform::DrawnIcon([](QPainter& painter) {
    painter.setBrush(painter.pen().color());
    painter.setPen(Qt::NoPen);
    painter.drawPolygon(QPolygonF({{4.5, 2.5}, {13.5, 8}, {4.5, 13.5}}));
  });
}

QIcon PauseIcon() {
  return Platform::DrawnIcon([](QPainter& painter) {
    const QColor colour = painter.pen().color();
    for (const double left : {4.0, 9.0})
      painter.fillRect(QRectF(left, 3, 3, 10), colour);
  });
}

/// Two triangles and a bar.
QIcon JumpIcon() {
  return Platform::DrawnIcon([](QPainter& painter) {
    painter.setBrush(painter.pen().color());
    painter.setPen(Qt::NoPen);
    for (const double left : {1.5, 7.0})
      painter.drawPolygon(QPolygonF({{left, 3}, {left + 5.5, 8}, {left, 13}}));
    painter.drawRect(QRectF(12.5, 3, 2, 10));
  });
}

QString WarningStyle() {
  auto* skin = Baselookandfeelservice::TCustomLookAndFeelService::GetInstance();
  return QStringLiteral("color:%1")
      .arg(Platform::ToQColor(skin->GetColour(0, Colour_WarningText)).name());
}

} // namespace

TPlayerBar::TPlayerBar(TMarketPlayer& player, const TMarketFeed& feed, QWidget* parent)
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
          [this] { clock_->setText(PositionText(SliderTime())); });
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
  jump_->setObjectName(QStringLiteral("jump"));
  jump_->setIcon(JumpIcon());
  jump_->setPopupMode(QToolButton::InstantPopup);
  jump_->setMenu(new QMenu(jump_));
  for (const auto& jump : jumps)
    connect(jump_->menu()->addAction(QString()), &QAction::triggered, this,
            [this, to = jump.To] { player_.Jump(to); });
}

void TPlayerBar::FollowPlayer() {
  connect(&player_, &TMarketPlayer::StateChanged, this, &TPlayerBar::ShowState);
  connect(&player_, &TMarketPlayer::HeaderRead, this, [this] {
    ShowMark();
    ShowSkippedLines();
    ShowState();
  });
  connect(&feed_, &TMarketFeed::SnapshotTaken, this, &TPlayerBar::ShowSnapshots);
  connect(&player_, &TMarketPlayer::PositionChanged, this, &TPlayerBar::ShowPosition);
  connect(&player_, &TMarketPlayer::Progress, this, [this](Feed::TLongTask, int perCent) {
    progress_->setValue(perCent);
    for (auto* action : actions())
      if (widgetForAction(action) == progress_)
        action->setVisible(perCent < 100);
  });
  connect(&ageTimer_, &QTimer::timeout, this, &TPlayerBar::ShowAge);
  ageTimer_.start(AgeInterval);
}

void TPlayerBar::PlayOrPause() {
  if (player_.State() == TMarketPlayer::TState::Playing)
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

void TPlayerBar::changeEvent(QEvent* event) {
  if (event->type() == QEvent::FontChange)
    for (auto* label : {mark_, age_}) // their style sheets keep the bar's font from them
      label->setFont(font());
  if (event->type() == QEvent::PaletteChange)
    ShowAge(); // a warning is in a colour of the skin
  QToolBar::changeEvent(event);
}

void TPlayerBar::ShowState() {
  const bool isPlaying = player_.State() == TMarketPlayer::TState::Playing;
  play_->setIcon(isPlaying ? PauseIcon() : PlayIcon());
  play_->setToolTip(WindowText(isPlaying ? "Term_Pause" : "Term_Play"));
  ShowSpeed();
  jump_->setEnabled(player_.Traits().Jumpable != nullptr);
  position_->setEnabled(player_.Traits().Seekable != nullptr);
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
  mark_->setText(MarketText(feed_));
  mark_->setStyleSheet(ChipStyle(feed_.IsSimulated() ? SimulatedColour : MarketColour, "2px 8px"));
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
  skipped_->setText(count > 0 ? WindowText("Term_SkippedLines").arg(count) : QString());
  skipped_->setToolTip(lines.join(QLatin1Char('\n')));
}

void TPlayerBar::ShowPosition(Text::TTimeOfDay position) {
  if (position_->isSliderDown())
    return;
  position_->setValue(static_cast<int>(Milliseconds(position - player_.Start())));
  clock_->setText(PositionText(position));
}

void TPlayerBar::ShowAge() {
  const auto age = feed_.Age();
  const bool isPlaying = player_.State() == TMarketPlayer::TState::Playing;
  const bool isStopped = !isPlaying || !age;
  const bool isQuiet = isPlaying && age.value_or(0) > QuietAfter;
  const QString figure = age ? QStringLiteral(" %1 s").arg(*age, 0, 'f', 1) : QString();
  age_->setText(WindowText(isStopped ? "Term_FeedStopped"
                           : isQuiet ? "Term_FeedGap"
                                     : "Term_DataAge") +
                figure);
  age_->setStyleSheet(isStopped || isQuiet ? WarningStyle() : QString());
}

Text::TTimeOfDay TPlayerBar::SliderTime() const {
  return player_.Start() + std::chrono::milliseconds(position_->value());
}

} // namespace Terminal
