#pragma once

#include "terminal/windows/OrderTicket.h"
#include "terminal/windows/TradeBars.h"

#include <QDockWidget>
#include <QKeySequence>
#include <QMainWindow>

#include <vector>

namespace Terminal {

class TBlotter;
class TChart;
class TSymbolList;

/// The docks that stand beside the price views: symbol list, order ticket, chart, orders and
/// trades. The window owns them.
class TToolDocks : public QObject {
  Q_OBJECT

public:
  struct TTool {
    QDockWidget* Dock;
    const char* CaptionKey;
    QKeySequence Toggle; ///< shows and hides the dock
    QKeySequence GoTo;   ///< shows it and puts the keyboard there
    std::function<void()> Focus;
  };

  /// Adds the docks to `window`: orders and trades at the left, where the views go above them, the
  /// others at the right. All outlive the docks.
  TToolDocks(TServices& services, TOrderDesk& desk, TOrderTicket::TSourceName sourceName,
             QMainWindow& window);
  ~TToolDocks() override;

  const std::vector<TTool>& All() const { return tools_; }
  void GoTo(const TTool& tool);

  /// Takes the texts of the present language.
  void SetTexts();
  /// Says in every dock's title which market it shows; empty: nothing.
  void SetMark(const QString& mark);
  /// The skin has changed, or the colours of prices alone.
  void SetSkin();

  /// Shows the day's chart of the symbol in front.
  void ShowChart(const QString& symbol);
  /// The same where no symbol was asked for yet; the dock stays as it is.
  void OfferChart(const QString& symbol);

  /// Puts a view's dock where views stand: above orders and trades, beside the views before it, or
  /// behind the last of them where there is no room beside it. `width` is the view's.
  void AddView(QDockWidget* view, const std::vector<QDockWidget*>& before, int width);
  /// Gives every dock its share of the window as it stands.
  void ShareRoom(QDockWidget* view);

  /// Whether the keyboard is in the symbol list.
  bool IsInSymbolList() const;
  /// Lets the user choose the symbol list's linking group by keyboard.
  void ChooseListGroup();

private:
  QDockWidget* Add(const char* name, QWidget* content);
  void BuildSymbolList();
  void SetListGroup(const QString& group);
  void CaptionDocks();
  void Caption(QDockWidget* dock, const QString& caption);

  TServices& services_;
  QMainWindow& window_;
  TTradeBars bars_;
  TSymbolList* symbols_;
  TOrderTicket* ticket_;
  TChart* chart_;
  TBlotter* blotter_;
  QDockWidget *symbolsDock_, *ticketDock_, *chartDock_, *blotterDock_;
  class TCaptionBar* symbolsBar_;
  QString mark_;
  std::vector<TTool> tools_;
};

} // namespace Terminal
