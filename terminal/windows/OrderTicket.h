#pragma once

#include "host/System.h"

#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QWidget>

#include <functional>

namespace Terminal {

class TChannelManager;

/// Order entry: shows plainly what the order is that was copied last, and those before it, so that
/// a surprise is seen before anything is sent. Empty until an order is copied.
class TOrderTicket : public QWidget {
  Q_OBJECT

public:
  /// Caption of the view that the sender of a copied order belongs to.
  using TSourceName = std::function<QString(System::TObject* sender)>;

  /// Copied orders that are remembered.
  static constexpr int RecentOrders = 50;

  /// Listens to copied orders until it is destroyed. The channels outlive the ticket.
  TOrderTicket(TChannelManager& channels, TSourceName sourceName, QWidget* parent = nullptr);
  ~TOrderTicket() override;

  /// Takes the texts of the present language.
  void SetTexts();

private:
  /// What a copied order says, as shown.
  struct TShown {
    bool IsFromBid = false;
    QString Symbol, Price, Quantity, Source;
  };

  struct TOwner : System::TObject {};

  void BuildForm();
  void Receive(System::TObject* from, System::TObject* carried);
  void Show(const TShown& order);
  void Remember(const TShown& order);
  void Clear();

  TChannelManager& channels_;
  TSourceName sourceName_;
  TOwner owner_;
  QLabel* side_;
  QLabel *symbolCaption_, *priceCaption_, *quantityCaption_, *sourceCaption_;
  QLabel *symbol_, *price_, *quantity_, *source_;
  QPushButton* clear_;
  QTableWidget* recent_;
};

} // namespace Terminal
