#include "platform/WrappingLayout.h"

#include <algorithm>

namespace Platform {

TWrappingLayout::TWrappingLayout(int spacing, int lineSpacing)
    : spacing_(spacing), lineSpacing_(lineSpacing) {
  setContentsMargins({});
}

TWrappingLayout::~TWrappingLayout() = default;

void TWrappingLayout::setSpacing(int pixels) {
  spacing_ = pixels;
  invalidate();
}

void TWrappingLayout::addItem(QLayoutItem* item) {
  items_.emplace_back(item);
  growing_.push_back(false);
}

QLayoutItem* TWrappingLayout::itemAt(int index) const {
  return index >= 0 && index < count() ? items_[static_cast<std::size_t>(index)].get() : nullptr;
}

QLayoutItem* TWrappingLayout::takeAt(int index) {
  if (!itemAt(index))
    return nullptr;
  QLayoutItem* taken = items_[static_cast<std::size_t>(index)].release();
  items_.erase(items_.begin() + index);
  growing_.erase(growing_.begin() + index);
  return taken;
}

int TWrappingLayout::WidthOf(std::size_t index) const {
  const auto& item = *items_[index];
  return growing_[index] ? item.minimumSize().width() : item.sizeHint().width();
}

int TWrappingLayout::WidthOf(const TLine& line) const {
  int width = -spacing_;
  for (const std::size_t index : line)
    width += WidthOf(index) + spacing_;
  return width;
}

int TWrappingLayout::LineHeight(const TLine& line) const {
  int height = 0;
  for (const std::size_t index : line)
    height = std::max(height, items_[index]->sizeHint().height());
  return height;
}

std::vector<TWrappingLayout::TLine> TWrappingLayout::Lines(int width) const {
  std::vector<TLine> lines;
  for (std::size_t index = 0; index < items_.size(); ++index) {
    if (items_[index]->isEmpty())
      continue;
    const bool fits = !lines.empty() && WidthOf(lines.back()) + spacing_ + WidthOf(index) <= width;
    if (!fits)
      lines.emplace_back();
    lines.back().push_back(index);
  }
  return lines;
}

int TWrappingLayout::heightForWidth(int width) const {
  const auto lines = Lines(width);
  int height = lines.empty() ? 0 : -lineSpacing_;
  for (const TLine& line : lines)
    height += LineHeight(line) + lineSpacing_;
  return height;
}

QSize TWrappingLayout::sizeHint() const {
  const auto lines = Lines(QLAYOUTSIZE_MAX);
  return lines.empty() ? QSize(0, 0) : QSize(WidthOf(lines.front()), LineHeight(lines.front()));
}

QSize TWrappingLayout::minimumSize() const {
  QSize size(0, 0);
  for (std::size_t index = 0; index < items_.size(); ++index)
    if (!items_[index]->isEmpty())
      size = size.expandedTo({WidthOf(index), items_[index]->sizeHint().height()});
  return size;
}

void TWrappingLayout::setGeometry(const QRect& bounds) {
  QLayout::setGeometry(bounds);
  int top = bounds.top();
  for (const TLine& line : Lines(bounds.width())) {
    const int height = LineHeight(line);
    const auto takers = static_cast<int>(
        std::ranges::count_if(line, [this](auto index) { return growing_[index]; }));
    const int share = takers > 0 ? std::max(bounds.width() - WidthOf(line), 0) / takers : 0;
    int left = bounds.left();
    for (const std::size_t index : line) {
      const int width = WidthOf(index) + (growing_[index] ? share : 0);
      items_[index]->setGeometry({left, top, width, height});
      left += width + spacing_;
    }
    top += height + lineSpacing_;
  }
}

} // namespace Platform
