#pragma once

#include <QColor>
#include <QObject>

#include <optional>

namespace Platform {

/// The starting colours of a skin's grid cells.
struct TSkinPainter {
  QColor ContentColor;
  QColor ContentTextColor;

  bool operator==(const TSkinPainter&) const = default;
};

/// The look and feel that every component starts from. One per process.
class Q_DECL_EXPORT TcxRootLookAndFeel : public QObject {
  Q_OBJECT

public:
  static TcxRootLookAndFeel& Instance();

  /// Empty while the platform's own palette is in use.
  const std::optional<TSkinPainter>& SkinPainter() const { return painter_; }
  void SetSkinPainter(std::optional<TSkinPainter> painter);

signals:
  /// The skin painter is another one now.
  void Changed();

private:
  TcxRootLookAndFeel() = default;

  std::optional<TSkinPainter> painter_;
};

} // namespace Platform
