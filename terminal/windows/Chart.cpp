#include "terminal/windows/Chart.h"

#include "host/RecordFields.h"
#include "platform/Colour.h"
#include "terminal/services/Services.h"
#include "terminal/trading/OrderFigures.h"
#include "terminal/windows/ChartLayout.h"
#include "terminal/windows/WindowTexts.h"

#include <QKeyEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <array>

namespace Terminal {

namespace {

constexpr std::array<double, 7> minuteWidths{1, 2, 3, 5, 8, 12, 20}; // pixels
constexpr std::size_t FirstWidth = 4;
constexpr double LineBelow = 3; // pixels: narrower minutes are a line, not candles
constexpr const char* widestPrice = "88888.888";
constexpr int Margin = 4;

constexpr std::array<std::pair<const char*, int>, 4> dayFigures{
    {{"Res_OpenPrc", Host::Field::Open},
     {"Res_HighPrice", Host::Field::High},
     {"Res_LowPrice", Host::Field::Low},
     {"Res_Volume", Host::Field::Volume}}};

QColor Faded(QColor colour, double share) {
  colour.setAlphaF(static_cast<float>(share));
  return colour;
}

} // namespace

TChart::TChart(TServices& services, const TTradeBars& bars, QWidget* parent)
    : QWidget(parent), services_(services), bars_(bars), minuteWidth_(minuteWidths[FirstWidth]) {
  setObjectName(QStringLiteral("chart"));
  setFocusPolicy(Qt::StrongFocus);
  connect(&bars, &TTradeBars::Changed, this, [this](const std::string& symbol) {
    if (symbol == symbol_.toStdString())
      update();
  });
}

void TChart::SetSymbol(const QString& symbol) {
  symbol_ = symbol;
  update();
}

void TChart::Zoom(TZoom zoom) {
  const auto present = std::find(minuteWidths.begin(), minuteWidths.end(), minuteWidth_);
  if (zoom == TZoom::In && present + 1 != minuteWidths.end())
    minuteWidth_ = *(present + 1);
  if (zoom == TZoom::Out && present != minuteWidths.begin())
    minuteWidth_ = *(present - 1);
  update();
}

void TChart::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Plus || event->key() == Qt::Key_Equal)
    Zoom(TZoom::In);
  else if (event->key() == Qt::Key_Minus)
    Zoom(TZoom::Out);
  else
    QWidget::keyPressEvent(event);
}

void TChart::wheelEvent(QWheelEvent* event) {
  if (!event->modifiers().testFlag(Qt::ControlModifier) || event->angleDelta().y() == 0)
    return QWidget::wheelEvent(event);
  Zoom(event->angleDelta().y() > 0 ? TZoom::In : TZoom::Out);
}

// Figures above, times below, prices at the right.
QRectF TChart::Area() const {
  const int line = fontMetrics().height();
  const int prices = fontMetrics().horizontalAdvance(QLatin1String(widestPrice)) + 2 * Margin;
  return QRectF(rect()).adjusted(Margin, 2 * line, -prices, -line - 2 * Margin);
}

QString TChart::PriceText(double price) const {
  return Terminal::PriceText(services_, symbol_.toStdString(), price);
}

QColor TChart::ColourOf(const TTradeBar& bar) const {
  const auto& skin = services_.Skin;
  return Platform::ToQColor((bar.Close < bar.Open ? skin.Down() : skin.Up()).Text);
}

void TChart::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), palette().color(QPalette::Base));
  const auto& bars = bars_.Of(symbol_.toStdString());
  const TChartLayout layout(bars, Area(), minuteWidth_);
  if (layout.Bars().empty()) {
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(rect(), Qt::AlignCenter, WindowText("Term_NoTrades"));
    return;
  }
  PaintGrid(painter, layout);
  PaintBars(painter, layout);
  PaintLast(painter, layout);
  PaintFigures(painter);
}

void TChart::PaintFigures(QPainter& painter) const {
  const auto* record = services_.Subscriptions.Find(symbol_.toStdString());
  if (!record)
    return;
  QStringList figures;
  for (const auto& [key, field] : dayFigures) {
    std::string text;
    auto& formatter = services_.MarketDataFormatter;
    if (field == Host::Field::Volume ? formatter.FormatVolume(*record, field, text)
                                     : formatter.FormatPrice(*record, field, text))
      figures.append(WindowText(key) + u' ' + QString::fromStdString(text));
  }
  const QRect room = rect().adjusted(Margin, Margin, -Margin, 0);
  painter.setPen(palette().color(QPalette::Text));
  painter.drawText(
      room, Qt::AlignLeft | Qt::AlignTop,
      fontMetrics().elidedText(figures.join(QStringLiteral("   ")), Qt::ElideRight, room.width()));
}

void TChart::PaintGrid(QPainter& painter, const TChartLayout& layout) const {
  const QRectF area = Area();
  const QColor text = palette().color(QPalette::Text);
  const int line = fontMetrics().height();
  for (const auto& mark : layout.PriceMarks(2.5 * line)) {
    painter.setPen(Faded(text, 0.15));
    painter.drawLine(QPointF(area.left(), mark.Place), QPointF(area.right(), mark.Place));
    painter.setPen(Faded(text, 0.75));
    painter.drawText(QPointF(area.right() + Margin, mark.Place + line / 3.0),
                     PriceText(mark.Price));
  }
  const double widest = fontMetrics().horizontalAdvance(QStringLiteral("88:88"));
  for (const auto& mark : layout.TimeMarks(widest * 1.8)) {
    painter.setPen(Faded(text, 0.15));
    painter.drawLine(QPointF(mark.Place, area.top()), QPointF(mark.Place, area.bottom()));
    if (mark.Place < widest / 2) // half of it would be beyond the edge
      continue;
    painter.setPen(Faded(text, 0.75));
    const QRectF place(mark.Place - widest, area.bottom() + Margin, 2 * widest, line);
    painter.drawText(place, Qt::AlignHCenter | Qt::AlignTop, mark.Time);
  }
  if (const auto place = layout.SessionBreak()) {
    painter.setPen(QPen(Faded(text, 0.6), 1, Qt::DashLine));
    painter.drawLine(QPointF(*place, area.top()), QPointF(*place, area.bottom()));
  }
}

void TChart::PaintBars(QPainter& painter, const TChartLayout& layout) const {
  QPolygonF closes;
  for (const auto& bar : layout.Bars()) {
    const QColor colour = ColourOf(bar);
    const QRectF range = layout.Range(bar);
    painter.fillRect(layout.Volume(bar), Faded(colour, 0.5));
    closes.append(QPointF(range.center().x(), layout.Y(bar.Close)));
    if (minuteWidth_ < LineBelow)
      continue;
    painter.setPen(colour);
    painter.drawLine(QPointF(range.center().x(), range.top()),
                     QPointF(range.center().x(), range.bottom()));
    painter.fillRect(layout.Body(bar), colour);
  }
  if (minuteWidth_ < LineBelow) {
    painter.setPen(palette().color(QPalette::Text));
    painter.drawPolyline(closes);
  }
}

void TChart::PaintLast(QPainter& painter, const TChartLayout& layout) const {
  const QRectF area = Area();
  const double last = layout.Bars().back().Close;
  const double y = layout.Y(last);
  const int line = fontMetrics().height();
  const QColor colour = palette().color(QPalette::Highlight);
  painter.setPen(QPen(colour, 1, Qt::DashLine));
  painter.drawLine(QPointF(area.left(), y), QPointF(area.right(), y));
  const QRectF tag(area.right(), y - line / 2.0 - 1, width() - area.right(), line + 2);
  painter.fillRect(tag, colour);
  painter.setPen(palette().color(QPalette::HighlightedText));
  painter.drawText(tag.adjusted(Margin, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter,
                   PriceText(last));
}

} // namespace Terminal
