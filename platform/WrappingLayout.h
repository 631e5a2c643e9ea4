#pragma once

#include <QLayout>

#include <memory>
#include <vector>

namespace Platform {

/// Elements side by side, from the left, that go on in another line where they do not fit. An
/// element is as wide as its content, or as it is at least when it takes what is free in its line.
class TWrappingLayout : public QLayout {
public:
  /// In pixels, between elements of a line and between lines.
  TWrappingLayout(int spacing, int lineSpacing);
  ~TWrappingLayout() override;

  /// Of the element that was added last: it grows into the room that its line leaves.
  void SetTakesFreeWidth() { growing_.back() = true; }

  int LineCount(int width) const { return static_cast<int>(Lines(width).size()); }

  void addItem(QLayoutItem* item) override;
  /// Between elements of a line.
  void setSpacing(int pixels) override;
  int spacing() const override { return spacing_; }
  int count() const override { return static_cast<int>(items_.size()); }
  QLayoutItem* itemAt(int index) const override;
  QLayoutItem* takeAt(int index) override;
  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override;
  QSize sizeHint() const override;
  QSize minimumSize() const override;
  void setGeometry(const QRect& bounds) override;
  Qt::Orientations expandingDirections() const override { return Qt::Horizontal; }

private:
  using TLine = std::vector<std::size_t>;

  std::vector<TLine> Lines(int width) const;
  int LineHeight(const TLine& line) const;
  int WidthOf(std::size_t index) const;
  int WidthOf(const TLine& line) const;

  int spacing_;
  const int lineSpacing_;
  std::vector<std::unique_ptr<QLayoutItem>> items_;
  std::vector<bool> growing_; ///< which of the items take the free width
};

} // namespace Platform
