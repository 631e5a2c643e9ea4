#include "platform/HintController.h"

#include <QGuiApplication>
#include <QScreen>
#include <QToolTip>
#include <QWindow>

#include <algorithm>

namespace Platform {

namespace {

constexpr QPoint BelowPointer(12, 20);
constexpr int AbovePointer = 4;
constexpr int Padding = 4;

QString CaptionAboveText(const QFont& font, const QString& caption, const QString& text) {
  return QStringLiteral("<span style=\"font-family:'%1'; font-size:%2pt\"><b>%3</b></span><br>%4")
      .arg(font.family())
      .arg(QFontInfo(font).pointSizeF())
      .arg(caption.toHtmlEscaped(), text.toHtmlEscaped());
}

QPoint KeptOnScreen(const QPoint& pointer, const QSize& size) {
  const QScreen* screen = QGuiApplication::screenAt(pointer);
  if (!screen)
    screen = QGuiApplication::primaryScreen();
  const QRect room = screen->availableGeometry();
  QPoint place = pointer + BelowPointer;
  if (place.y() + size.height() > room.bottom() + 1)
    place.setY(pointer.y() - AbovePointer - size.height());
  return {std::max(room.left(), std::min(place.x(), room.right() + 1 - size.width())),
          std::max(room.top(), std::min(place.y(), room.bottom() + 1 - size.height()))};
}

} // namespace

TcxHintStyleController::TcxHintStyleController(QWidget* parent)
    : QObject(parent), window_(new QLabel(parent, Qt::ToolTip)) {
  window_->setAttribute(Qt::WA_ShowWithoutActivating);
  window_->setAttribute(Qt::WA_TransparentForMouseEvents);
  window_->setFocusPolicy(Qt::NoFocus);
  window_->setBackgroundRole(QPalette::ToolTipBase);
  window_->setForegroundRole(QPalette::ToolTipText);
  window_->setAutoFillBackground(true);
  window_->setFrameShape(QFrame::Box);
  window_->setMargin(Padding);
}

TcxHintStyleController::~TcxHintStyleController() { delete window_.data(); }

void TcxHintStyleController::ShowHint(int x, int y, const QString& caption, const QString& text,
                                      int maxWidth) {
  caption_ = caption.isNull() ? QLatin1String("") : caption;
  window_->setPalette(QToolTip::palette());
  const bool both = !caption.isEmpty() && !text.isEmpty();
  window_->setTextFormat(both ? Qt::RichText : Qt::PlainText);
  window_->setFont(text.isEmpty() ? CaptionFont : Font);
  window_->setText(both             ? CaptionAboveText(CaptionFont, caption, text)
                   : text.isEmpty() ? caption
                                    : text);
  const QSize size = FitText(maxWidth);
  window_->setGeometry(QRect(KeptOnScreen({x, y}, size), size));
  window_->show();
  // The flag has an effect on a window that is there; given to the label, it has none on X11.
  window_->windowHandle()->setFlag(Qt::WindowTransparentForInput);
}

QSize TcxHintStyleController::FitText(int maxWidth) {
  window_->setWordWrap(false);
  const QSize oneLine = window_->sizeHint();
  if (maxWidth <= 0 || oneLine.width() <= maxWidth)
    return oneLine;
  window_->setWordWrap(true);
  return {maxWidth, window_->heightForWidth(maxWidth)};
}

void TcxHintStyleController::HideHint() { window_->hide(); }

QString TcxHintStyleController::VisibleCaption() const {
  return window_ && window_->isVisible() ? caption_ : QString();
}

} // namespace Platform
