#pragma once

#include "platform/PopupEdit.h"
#include "terminal/services/Services.h"
#include "terminal/trading/OrderDesk.h"
#include "terminal/trading/OrderFigures.h"
#include "terminal/windows/StepEdit.h"

#include <QButtonGroup>
#include <QLabel>
#include <QPushButton>

#include <functional>
#include <optional>

class QFormLayout;

namespace Terminal {

/// Order entry on the simulated market. What views copy fills the form, with the source in sight;
/// the user edits it, and nothing is sent before the whole order was shown in one sentence and
/// confirmed: Enter shows it, Enter again sends it, Esc goes back, as does any change.
///
/// A symbol that the user enters is announced as the symbol that order entry works on, so that
/// views follow it. One that a view copied is not: no view follows what another one copies.
class TOrderTicket : public QWidget {
  Q_OBJECT

public:
  /// Caption of the view that the sender of a copied order belongs to.
  using TSourceName = std::function<QString(System::TObject* sender)>;

  /// Listens to copied orders until it is destroyed. Services and desk outlive the ticket.
  TOrderTicket(TServices& services, TOrderDesk& desk, TSourceName sourceName,
               QWidget* parent = nullptr);
  ~TOrderTicket() override;

  /// Takes the texts of the present language.
  void SetTexts();
  /// Takes the colours of the present skin, where they or those of prices have changed.
  void SetSkin();
  /// Puts the keyboard into the first box.
  void FocusForm();

protected:
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;

private:
  struct TDraft {
    Data::TSide Side;
    Data::TPrice Price;
    Data::TQuantity Quantity;
  };

  void BuildSides();
  void BuildForm();
  void BuildButtons();
  void FollowFont();
  void FollowDesk();

  void Receive(System::TObject* from, System::TObject* carried);
  void Fill(const TOrder& order);
  void ApplyEnteredSymbol();
  void SetSymbol(const std::string& symbol);
  void Announce();
  void StepPrice(int steps);
  void StepQuantity(int steps);

  std::optional<Data::TSide> Side() const;
  void SetSide(std::optional<Data::TSide> side);
  /// What the form says; where it says no order, that is told to the user and nothing given.
  std::optional<TDraft> Draft();
  /// Shows the order for confirmation, or sends the one that was shown.
  void Advance();
  void Send(TDraft draft);
  /// The order must be shown again before it can be sent.
  void Disarm();
  void FormChanged();
  void Clear();
  void ShowOpen();
  void ShowOutcome(const Data::TUserOrder& order);

  TServices& services_;
  TOrderDesk& desk_;
  TSourceName sourceName_;
  TOrderFigures figures_;
  System::TObject owner_;
  std::string symbol_;
  std::optional<TDraft> shown_; ///< waits to be confirmed
  int sent_ = 0;                ///< number of the order sent last

  QLabel *paper_, *symbolCaption_, *nameCaption_, *priceCaption_, *quantityCaption_;
  QLabel *amountCaption_, *sourceCaption_;
  QButtonGroup* sides_;
  QPushButton *buy_, *sell_;
  Platform::TcxPopupEdit* symbolBox_;
  QLabel* name_;
  TStepEdit *price_, *quantity_;
  QLabel *amount_, *source_, *message_;
  QPushButton *send_, *clear_;
};

} // namespace Terminal
