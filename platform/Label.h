#pragma once

#include "platform/Colour.h"

#include <QLabel>

#include <optional>

namespace Platform {

/// A line of text, or a colour swatch when it has a colour and no text.
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

private:
  std::optional<TColor> colour_;
  std::optional<TColor> textColour_;
};

} // namespace Platform
