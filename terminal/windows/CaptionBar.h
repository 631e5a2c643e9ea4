#pragma once

#include "host/view/ViewInterface.h"

#include <QColor>
#include <QLabel>
#include <QString>
#include <QToolButton>
#include <QWidget>

#include <array>
#include <vector>

class QBoxLayout;

namespace Platform {
class TcxImageList;
}

namespace Terminal {

/// A linking group that a user can put a view in.
struct TLinkingGroup {
  const char* Id;
  QRgb Colour;
};

inline constexpr std::array<TLinkingGroup, 6> LinkingGroups = {{
    {"1", 0xffd9a441},
    {"2", 0xff4fa3d9},
    {"3", 0xff5fbf77},
    {"4", 0xffc678c6},
    {"5", 0xffd96b5f},
    {"6", 0xff4db6ac},
}};

/// The bar above a view: its caption and caption buttons, its linking group, and a button that
/// closes it. Takes no keyboard focus, so that a click leaves the view's symbol box alone.
class TCaptionBar : public QWidget {
  Q_OBJECT

public:
  explicit TCaptionBar(QWidget* parent);

  void SetCaption(const QString& caption);
  /// What is said beside the caption of the market that the view shows; empty: nothing.
  void SetMark(const QString& mark);
  /// `images` may be null; the buttons are read during the call only.
  void SetButtons(const std::vector<Viewinterface::TCaptionButton*>& buttons,
                  const Platform::TcxImageList* images);
  /// Empty: in no group. A group that a user cannot choose is shown by its name.
  void SetGroup(const QString& group);

  /// Drops the choice of groups down, for the keyboard too.
  void ChooseGroup();

  /// The button shown at `index`; null when there is none.
  QToolButton* Button(int index) const;

protected:
  void changeEvent(QEvent* event) override;

signals:
  void ButtonClicked(int index);
  /// Empty: in no group.
  void GroupChosen(const QString& group);
  void CloseClicked();

private:
  QToolButton* AddTool(QBoxLayout* layout);
  void BuildGroupMenu();
  void FitButtons(std::size_t count);

  QLabel* caption_;
  QLabel* mark_;
  QBoxLayout* buttonRow_;
  std::vector<QToolButton*> buttons_;
  QToolButton* group_;
  QToolButton* close_;
};

} // namespace Terminal
