#include "terminal/windows/OrderTicket.h"

#include "host/BaseFormatter.h"
#include "host/ConstDef.h"
#include "host/DataDef.h"
#include "terminal/services/ChannelManager.h"
#include "terminal/services/OrderAdapter.h"
#include "terminal/windows/WindowTexts.h"

#include <QFormLayout>
#include <QHeaderView>
#include <QTime>
#include <QVBoxLayout>

namespace Terminal {

namespace {

enum TRecentColumn { TimeColumn, SideColumn, SymbolColumn, PriceColumn, QuantityColumn, Columns };

constexpr int MinimumWidth = 300; // five columns of the list

constexpr const char* bidColour = "#4fa3d9";
constexpr const char* otherColour = "#d99a4f";

/// A figure that the click did not give.
QString NotGiven() { return QStringLiteral("–"); }

QString SideText(bool isFromBid) {
  return WindowText(isFromBid ? "Term_FromBid" : "Term_NotFromBid");
}

QString PriceText(const TOrder& order) {
  if (!order.Price())
    return NotGiven();
  constexpr int everyDecimal = 8;
  auto* formatter = Baseformatter::TCustomFormatter::GetInstance();
  return QString::fromStdString(
      formatter->FormatPrice(order.Symbol(), everyDecimal, *order.Price()));
}

QString QuantityText(const TOrder& order) {
  if (!order.Quantity())
    return NotGiven();
  return QString::fromStdString(
      Baseformatter::TCustomFormatter::GetInstance()->FormatQuantity(*order.Quantity()));
}

bool IsFromBid(const TOrder& order) {
  const auto flags = order.Values().find("OrderFlags");
  return flags != order.Values().end() && flags->second == "1";
}

QLabel* NewFigure() {
  auto* label = new QLabel;
  QFont font = label->font();
  font.setPointSize(font.pointSize() + 3);
  font.setBold(true);
  label->setFont(font);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  return label;
}

} // namespace

TOrderTicket::TOrderTicket(TChannelManager& channels, TSourceName sourceName, QWidget* parent)
    : QWidget(parent), channels_(channels), sourceName_(std::move(sourceName)), side_(new QLabel),
      symbolCaption_(new QLabel), priceCaption_(new QLabel), quantityCaption_(new QLabel),
      sourceCaption_(new QLabel), symbol_(NewFigure()), price_(NewFigure()), quantity_(NewFigure()),
      source_(new QLabel), clear_(new QPushButton), recent_(new QTableWidget(0, Columns)) {
  BuildForm();
  Clear();
  SetTexts();
  channels_.Subscribe(
      Constdef::Channel_CopyOrder,
      [this](System::TObject* from, System::TObject* carried) { Receive(from, carried); }, &owner_);
}

TOrderTicket::~TOrderTicket() { channels_.Unsubscribe(Constdef::Channel_CopyOrder, &owner_); }

void TOrderTicket::BuildForm() {
  auto* form = new QFormLayout;
  form->setHorizontalSpacing(14);
  form->addRow(symbolCaption_, symbol_);
  form->addRow(priceCaption_, price_);
  form->addRow(quantityCaption_, quantity_);
  form->addRow(sourceCaption_, source_);
  side_->setAlignment(Qt::AlignCenter);
  clear_->setFocusPolicy(Qt::TabFocus);
  connect(clear_, &QPushButton::clicked, this, &TOrderTicket::Clear);
  recent_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  recent_->setSelectionMode(QAbstractItemView::NoSelection);
  recent_->setFocusPolicy(Qt::NoFocus);
  recent_->setShowGrid(false);
  recent_->verticalHeader()->hide();
  recent_->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
  recent_->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
  recent_->horizontalHeader()->setHighlightSections(false);
  setMinimumWidth(MinimumWidth);
  auto* column = new QVBoxLayout(this);
  column->addWidget(side_);
  column->addLayout(form);
  column->addWidget(clear_, 0, Qt::AlignLeft);
  column->addWidget(recent_, 1);
}

void TOrderTicket::SetTexts() {
  symbolCaption_->setText(WindowText("Term_Symbol"));
  priceCaption_->setText(WindowText("Term_Price"));
  quantityCaption_->setText(WindowText("Term_Quantity"));
  sourceCaption_->setText(WindowText("Term_CopiedFrom"));
  clear_->setText(WindowText("Term_ClearOrder"));
  recent_->setHorizontalHeaderLabels({WindowText("Term_Time"), WindowText("Term_Side"),
                                      WindowText("Term_Symbol"), WindowText("Term_Price"),
                                      WindowText("Term_Quantity")});
}

void TOrderTicket::Receive(System::TObject* from, System::TObject* carried) {
  const auto* record = dynamic_cast<Datadef::TCopyOrderRecord*>(carried);
  const auto* order = record ? dynamic_cast<TOrder*>(record->Order) : nullptr;
  if (!order)
    return;
  const TShown shown{IsFromBid(*order), QString::fromStdString(order->Symbol()), PriceText(*order),
                     QuantityText(*order), sourceName_(from)};
  Show(shown);
  Remember(shown);
}

void TOrderTicket::Show(const TShown& order) {
  side_->setText(SideText(order.IsFromBid));
  side_->setStyleSheet(
      QStringLiteral("background:%1;color:#14171c;font-weight:bold;padding:4px;border-radius:3px")
          .arg(QLatin1String(order.IsFromBid ? bidColour : otherColour)));
  symbol_->setText(order.Symbol);
  price_->setText(order.Price);
  quantity_->setText(order.Quantity);
  source_->setText(order.Source);
}

void TOrderTicket::Remember(const TShown& order) {
  recent_->insertRow(0);
  const QString texts[Columns] = {QTime::currentTime().toString(QStringLiteral("HH:mm:ss")),
                                  order.IsFromBid ? WindowText("Res_Bid") : NotGiven(),
                                  order.Symbol, order.Price, order.Quantity};
  for (int column = 0; column < Columns; ++column) {
    auto* item = new QTableWidgetItem(texts[column]);
    if (column >= PriceColumn)
      item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    if (column == SideColumn)
      item->setForeground(QColor(QLatin1String(order.IsFromBid ? bidColour : otherColour)));
    recent_->setItem(0, column, item);
  }
  recent_->setRowCount(std::min(recent_->rowCount(), RecentOrders));
}

void TOrderTicket::Clear() {
  side_->setText(QStringLiteral(" "));
  side_->setStyleSheet(QStringLiteral("padding:4px"));
  for (auto* figure : {symbol_, price_, quantity_})
    figure->setText(NotGiven());
  source_->clear();
}

} // namespace Terminal
