#pragma once

#include "platform/Label.h"

#include <QBoxLayout>
#include <QWidget>

namespace Platform {

class TWrappingLayout;

/// A group or an item of a layout control. Its name is its object name; its own visible flag is
/// not isHidden(), whatever its parents show.
class Q_DECL_EXPORT TdxLayoutElement : public QWidget {
  Q_OBJECT

public:
  TdxLayoutElement(const QString& name, QWidget* parent);

  virtual QString Caption() const = 0;
  virtual void SetCaption(const QString& caption) = 0;

  bool IsVisibleFlag() const { return !isHidden(); }
  void SetVisibleFlag(bool visible) { setVisible(visible); }
};

/// One control with an optional caption before it.
class Q_DECL_EXPORT TdxLayoutItem : public TdxLayoutElement {
  Q_OBJECT

public:
  /// Takes the control over. The caption is not shown while it is empty.
  TdxLayoutItem(const QString& name, QWidget* control, QWidget* parent);

  QString Caption() const override;
  void SetCaption(const QString& caption) override;
  QWidget* Control() const { return control_; }

private:
  TcxLabel* caption_;
  QWidget* control_;
};

/// Wrapping: horizontal, in as many lines as the width asks for.
enum class TLayoutDirection { Horizontal, Vertical, Wrapping };

/// Elements side by side or one below the other. A hidden element takes no room, and an element
/// is as wide as its content unless it takes the free width; a group is as wide as its place.
class Q_DECL_EXPORT TdxLayoutGroup : public TdxLayoutElement {
  Q_OBJECT

public:
  TdxLayoutGroup(const QString& name, TLayoutDirection direction, QWidget* parent);

  QString Caption() const override { return caption_; }
  /// A group shows its caption, above its elements, only when ShowCaption was called.
  void SetCaption(const QString& caption) override;
  void ShowCaption();

  TdxLayoutGroup* AddGroup(const QString& name, TLayoutDirection direction);
  /// `takesFreeWidth`: the control grows into the room that the others leave.
  TdxLayoutItem* AddItem(const QString& name, QWidget* control, bool takesFreeWidth = false);
  /// Room at the end that nothing grows into; a wrapping group leaves it anyway.
  void AddStretch();
  /// Places an element of this group by itself: left, centred, at the top, ...
  void Align(TdxLayoutElement* element, Qt::Alignment alignment);
  /// Lets an element of this group grow to the group's height.
  static void FillHeight(TdxLayoutElement* element);
  /// In how many lines a group that wraps shows its visible elements at that width.
  int LineCount(int width) const;
  /// Room between elements that are side by side, in pixels.
  void SetSpacing(int pixels);

private:
  void Add(TdxLayoutElement* element, int stretch, Qt::Alignment alignment);

  QString caption_;
  QLabel* captionLabel_ = nullptr;
  QBoxLayout* box_ = nullptr;
  TWrappingLayout* lines_ = nullptr; ///< in place of the box when the group wraps
};

/// Lays a tree of groups out from the top; its size is that of its content.
class Q_DECL_EXPORT TdxLayoutControl : public QWidget {
  Q_OBJECT

public:
  /// The root group is named `name` + "Group_Root".
  TdxLayoutControl(const QString& name, QWidget* parent);

  TdxLayoutGroup* Root() const { return root_; }

  /// The room that the visible elements ask for, in pixels, as they stand now: nothing that waits
  /// for an event is missing, also while the control is not on the screen. The height is that at
  /// `width`.
  int ContentWidth();
  int ContentHeight(int width);

private:
  TdxLayoutGroup* root_;
};

} // namespace Platform
