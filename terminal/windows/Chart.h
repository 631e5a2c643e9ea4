#pragma once

#include "terminal/windows/TradeBars.h"

#include <QWidget>

class QPainter;

namespace Terminal {

class TChartLayout;
class TServices;

/// The day's prices of one symbol: a candle a minute with its volume, the last price marked.
/// Painted anew only when the symbol is traded. Plus and minus, or the wheel with the control key,
/// change how much of the day is in the picture.
class TChart : public QWidget {
  Q_OBJECT

public:
  /// Both outlive the chart.
  TChart(TServices& services, const TTradeBars& bars, QWidget* parent = nullptr);

  void SetSymbol(const QString& symbol);
  const QString& Symbol() const { return symbol_; }

  /// Pixels that a minute takes.
  double MinuteWidth() const { return minuteWidth_; }

  QSize sizeHint() const override { return {480, 300}; }
  QSize minimumSizeHint() const override { return {160, 120}; }

protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

private:
  enum class TZoom { In, Out };

  void Zoom(TZoom zoom);
  QRectF Area() const;
  QString PriceText(double price) const;
  QColor ColourOf(const TTradeBar& bar) const;
  /// The day's figures, as the record has them.
  void PaintFigures(QPainter& painter) const;
  void PaintGrid(QPainter& painter, const TChartLayout& layout) const;
  void PaintBars(QPainter& painter, const TChartLayout& layout) const;
  void PaintLast(QPainter& painter, const TChartLayout& layout) const;

  TServices& services_;
  const TTradeBars& bars_;
  QString symbol_;
  double minuteWidth_;
};

} // namespace Terminal
