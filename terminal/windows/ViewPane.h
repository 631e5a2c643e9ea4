#pragma once

#include "host/view/BaseView.h"

#include <QPointer>
#include <QWidget>

#include <string>
#include <vector>

class QToolButton;

namespace Terminal {

class TCaptionBar;
class TServices;

/// One open view on the screen: the view's widget at the size that the view prefers, under its
/// caption bar. Destroying the pane closes the view and its pop-ups.
class TViewPane : public QWidget {
  Q_OBJECT

public:
  /// A tool window that the view asked for. `Index` is unique within the view and never reused.
  struct TPopup {
    int Index;
    QPointer<QWidget> Window; ///< null once it is closed and gone
  };

  /// `handle` names an open instance of `descriptor`, which outlives the pane, as do the services.
  TViewPane(int number, const TServices& services, Baseview::TIBaseView& descriptor,
            Baseview::TInstanceHandle handle);
  ~TViewPane() override;

  int Number() const { return number_; }
  Baseview::TInstanceHandle Handle() const { return handle_; }
  Baseview::TIBaseView& Descriptor() { return descriptor_; }
  /// The view itself, for comparing: what a view is asked for goes through the descriptor.
  Baseview::TIBaseView* Instance() const;
  /// Never null.
  QWidget* View() const { return view_; }

  /// The view's own.
  std::string Caption() const;
  /// What the user knows the view by: code and name of the instrument that it shows, in the user's
  /// language; the view's own caption where it shows none.
  QString Title() const;
  std::vector<Viewinterface::TCaptionButton*> CaptionButtons() const;
  /// The button on the caption bar for the one at `index`; null when there is none.
  QToolButton* CaptionTool(int index) const;
  std::string Group() const;
  void SetGroup(const std::string& group);
  /// Lets the user choose the linking group by keyboard.
  void ChooseGroup();
  std::string LayoutData() const;

  /// The caption bar, to stand elsewhere; it stays the view's.
  QWidget* ReleaseCaptionBar();

  /// Asks the view for its preferred size and gives it that size.
  void ApplyPreferredSize();
  QSize PreferredSize() const { return preferred_; }

  /// Says in the caption bar, in the pane's title and in the titles of its pop-ups which market
  /// they show; empty: nothing.
  void SetMark(const QString& mark);

  /// Shows title, caption buttons and group as they are now. The pane's window title is the title
  /// with the mark, for a window that shows the view by itself.
  void RefreshCaption();

  /// Makes the view and its pop-ups paint everything anew.
  void RepaintView();

  QWidget* OpenPopup();
  /// Those that are still open, in the order opened.
  std::vector<TPopup> Popups() const;

signals:
  void CloseAsked();

private:
  const int number_;
  const TServices& services_;
  Baseview::TIBaseView& descriptor_;
  const Baseview::TInstanceHandle handle_;
  TCaptionBar* bar_;
  QWidget* view_;
  QSize preferred_;
  QString mark_;
  std::vector<TPopup> popups_;
};

} // namespace Terminal
