#pragma once

#include "platform/Colour.h"

#include <QLabel>

#include <optional>

namespace Platform {

/// A line of text, or a colour swatch when it has a colour and no text. Texts of all scripts stand
/// on the line that the font's own letters stand on, so that labels side by side are even.
class Q_DECL_EXPORT TcxLabel : public QLabel {
  Q_OBJECT

public:
  explicit TcxLabel(const QString& text = {}, QWidget* parent = nullptr);

  /// Background; transparent until set.
  void SetColor(TColor colour);
  std::optional<TColor> Color() const { return colour_; }

  /// Text colour; the palette's until set.
  void SetTextColor(TColor colour);
  std::optional<TColor> TextColor() const { return textColour_; }

  /// Font size in points.
  void SetFontSize(int points);

  /// May be narrower than its text from now on, which then ends with an ellipsis and is shown as a
  /// whole by the tool tip.
  void SetShortened();

  QSize minimumSizeHint() const override;

protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

private:
  bool IsTooNarrow() const;

  std::optional<TColor> colour_;
  std::optional<TColor> textColour_;
  bool isShortened_ = false;
};

} // namespace Platform
