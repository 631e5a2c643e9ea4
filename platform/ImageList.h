#pragma once

#include <QIcon>
#include <QObject>

#include <vector>

namespace Platform {

/// Images by index.
class Q_DECL_EXPORT TcxImageList : public QObject {
  Q_OBJECT

public:
  explicit TcxImageList(QObject* parent = nullptr);

  void Add(const QIcon& image) { images_.push_back(image); }
  int Count() const { return static_cast<int>(images_.size()); }
  /// A null icon for an index out of range.
  QIcon Image(int index) const;

private:
  std::vector<QIcon> images_;
};

} // namespace Platform
