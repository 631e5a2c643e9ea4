#include "terminal/windows/OrderTicket.h"

#include "data/Orders.h"
#include "host/ConstDef.h"
#include "host/DataDef.h"
#include "platform/Colour.h"
#include "terminal/windows/Chip.h"
#include "terminal/windows/WindowTexts.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QVBoxLayout>

namespace Terminal {

using namespace Data;

namespace {

/// A second click of a double click would send what the first one showed, unseen.
class TSendButton : public QPushButton {
protected:
  void mouseDoubleClickEvent(QMouseEvent* event) override { event->accept(); }
};

bool IsFromBid(const TOrder& order) {
  const auto flags = order.Values().find(Constdef::OrderValue_Flags);
  return flags != order.Values().end() && flags->second == "1";
}

QPushButton* NewSideButton() {
  auto* button = new QPushButton;
  button->setCheckable(true);
  return button;
}

} // namespace

TOrderTicket::TOrderTicket(TServices& services, TOrderDesk& desk, TSourceName sourceName,
                           QWidget* parent)
    : QWidget(parent), services_(services), desk_(desk), sourceName_(std::move(sourceName)),
      figures_(services), paper_(new QLabel), symbolCaption_(new QLabel), nameCaption_(new QLabel),
      priceCaption_(new QLabel), quantityCaption_(new QLabel), amountCaption_(new QLabel),
      sourceCaption_(new QLabel), sides_(new QButtonGroup(this)), buy_(NewSideButton()),
      sell_(NewSideButton()), symbolBox_(new Platform::TcxPopupEdit), name_(new QLabel),
      price_(new TStepEdit), quantity_(new TStepEdit), amount_(new QLabel), source_(new QLabel),
      message_(new QLabel), send_(new TSendButton), clear_(new QPushButton) {
  auto* column = new QVBoxLayout(this);
  column->addWidget(paper_);
  BuildSides();
  BuildForm();
  BuildButtons();
  SetSkin();
  SetTexts();
  FollowDesk();
  services_.Editors.RegisterSymbolEditor(symbolBox_, {}, true, true);
  services_.Channels.Subscribe(
      Constdef::Channel_CopyOrder,
      [this](System::TObject* from, System::TObject* carried) { Receive(from, carried); }, &owner_);
}

TOrderTicket::~TOrderTicket() {
  services_.Channels.Unsubscribe(Constdef::Channel_CopyOrder, &owner_);
  services_.Editors.RemoveSymbolEditor(symbolBox_);
}

void TOrderTicket::BuildSides() {
  paper_->setObjectName(QStringLiteral("paperTrading"));
  paper_->setAlignment(Qt::AlignCenter);
  paper_->setWordWrap(true);
  paper_->setStyleSheet(ChipStyle(SimulatedColour, "3px"));
  buy_->setObjectName(QStringLiteral("buy"));
  sell_->setObjectName(QStringLiteral("sell"));
  auto* row = new QHBoxLayout;
  for (auto* button : {buy_, sell_}) {
    sides_->addButton(button);
    row->addWidget(button);
    connect(button, &QPushButton::clicked, this, &TOrderTicket::FormChanged);
  }
  static_cast<QVBoxLayout*>(layout())->addLayout(row);
}

void TOrderTicket::BuildForm() {
  symbolBox_->setObjectName(QStringLiteral("symbol"));
  price_->setObjectName(QStringLiteral("price"));
  quantity_->setObjectName(QStringLiteral("quantity"));
  amount_->setObjectName(QStringLiteral("amount"));
  source_->setObjectName(QStringLiteral("source"));
  source_->setWordWrap(true);
  auto* form = new QFormLayout;
  form->setHorizontalSpacing(14);
  form->addRow(symbolCaption_, symbolBox_);
  form->addRow(nameCaption_, name_);
  form->addRow(priceCaption_, price_);
  form->addRow(quantityCaption_, quantity_);
  form->addRow(amountCaption_, amount_);
  form->addRow(sourceCaption_, source_);
  amount_->setAlignment(Qt::AlignRight);
  symbolCaption_->setBuddy(symbolBox_);
  priceCaption_->setBuddy(price_);
  quantityCaption_->setBuddy(quantity_);
  static_cast<QVBoxLayout*>(layout())->addLayout(form);
  connect(symbolBox_, &Platform::TcxPopupEdit::Exited, this, &TOrderTicket::ApplyEnteredSymbol);
  connect(symbolBox_, &Platform::TcxPopupEdit::KeyDown, this, [this](int key) {
    if (key != Platform::TcxPopupEdit::EnterKey)
      return;
    ApplyEnteredSymbol();
    if (!symbol_.empty() && symbolBox_->text().toStdString() == symbol_)
      price_->setFocus(Qt::TabFocusReason);
  });
  for (QLineEdit* edit : {static_cast<QLineEdit*>(symbolBox_), static_cast<QLineEdit*>(price_),
                          static_cast<QLineEdit*>(quantity_)})
    connect(edit, &QLineEdit::textChanged, this, &TOrderTicket::FormChanged);
  connect(price_, &TStepEdit::Stepped, this, &TOrderTicket::StepPrice);
  connect(quantity_, &TStepEdit::Stepped, this, &TOrderTicket::StepQuantity);
}

void TOrderTicket::BuildButtons() {
  send_->setObjectName(QStringLiteral("send"));
  clear_->setObjectName(QStringLiteral("clear"));
  message_->setObjectName(QStringLiteral("message"));
  message_->setWordWrap(true);
  message_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  connect(send_, &QPushButton::clicked, this, &TOrderTicket::Advance);
  connect(clear_, &QPushButton::clicked, this, &TOrderTicket::Clear);
  auto* row = new QHBoxLayout;
  row->addWidget(send_, 2);
  row->addWidget(clear_, 1);
  auto* column = static_cast<QVBoxLayout*>(layout());
  column->addLayout(row);
  column->addWidget(message_, 1);
}

// A style sheet keeps the window's font from the widget that has it.
void TOrderTicket::FollowFont() {
  for (QWidget* widget : std::initializer_list<QWidget*>{paper_, buy_, sell_})
    widget->setFont(font());
  const int width = fontMetrics().horizontalAdvance(QStringLiteral("8,888,888")) + 16;
  for (QWidget* box : std::initializer_list<QWidget*>{symbolBox_, price_, quantity_})
    box->setMinimumWidth(width);
}

void TOrderTicket::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange)
    FollowFont();
}

void TOrderTicket::FollowDesk() {
  connect(&desk_, &TOrderDesk::Reopened, this, [this] {
    sent_ = 0;
    ShowOpen();
  });
  connect(&desk_, &TOrderDesk::OrderChanged, this, &TOrderTicket::ShowOutcome);
  ShowOpen();
}

void TOrderTicket::SetTexts() {
  paper_->setText(WindowText("Term_PaperTrading"));
  buy_->setText(WithMnemonic(WindowText("Term_Buy"), u'B'));
  sell_->setText(WithMnemonic(WindowText("Term_Sell"), u'S'));
  symbolCaption_->setText(WindowText("Term_Symbol"));
  nameCaption_->setText(WindowText("Term_Name"));
  priceCaption_->setText(WindowText("Term_Price"));
  quantityCaption_->setText(WindowText("Term_Quantity"));
  amountCaption_->setText(WindowText("Term_Amount"));
  sourceCaption_->setText(WindowText("Term_CopiedFrom"));
  name_->setText(InstrumentName(services_, QString::fromStdString(symbol_)));
  clear_->setText(WindowText("Term_ClearOrder"));
  ShowOpen();
}

// As the price views have the side that the order goes to.
void TOrderTicket::SetSkin() {
  const auto dress = [](QPushButton* button, const TToneColours& side) {
    button->setStyleSheet(
        QStringLiteral("QPushButton:checked{background:%1;color:%2;"
                       "font-weight:bold;border-radius:3px;padding:5px}"
                       "QPushButton:checked:focus{border:2px solid palette(text)}")
            .arg(Platform::ToQColor(side.Label).name(), Platform::ToQColor(side.Text).name()));
  };
  dress(buy_, services_.Skin.Up());
  dress(sell_, services_.Skin.Down());
  FollowFont();
}

void TOrderTicket::FocusForm() {
  symbolBox_->setFocus(Qt::ShortcutFocusReason);
  symbolBox_->selectAll();
}

void TOrderTicket::Receive(System::TObject* from, System::TObject* carried) {
  const auto* record = dynamic_cast<Datadef::TCopyOrderRecord*>(carried);
  const auto* order = record ? dynamic_cast<TOrder*>(record->Order) : nullptr;
  if (!order)
    return;
  Fill(*order);
  const QString side = WindowText(IsFromBid(*order) ? "Term_FromBid" : "Term_NotFromBid");
  const QString name = sourceName_(from);
  source_->setText(name.isEmpty() ? side : side + QStringLiteral(", ") + name);
}

// Of another symbol, nothing of the former order can stay. A click on the bid sells to it, any
// other price is one to buy at; without a price the side is the user's as before.
void TOrderTicket::Fill(const TOrder& order) {
  if (order.Symbol() != symbol_) {
    SetSymbol(order.Symbol());
    SetSide({});
  }
  if (order.Price() && *order.Price() > 0) {
    price_->setText(PriceText(services_, order.Symbol(), *order.Price()));
    SetSide(IsFromBid(order) ? TSide::Ask : TSide::Bid);
  }
  if (const double quantity = order.Quantity().value_or(0); quantity > 0)
    quantity_->setText(QString::fromStdString(services_.Formatter.FormatQuantity(quantity)));
  FormChanged();
}

void TOrderTicket::ApplyEnteredSymbol() {
  const std::string entered = symbolBox_->Hint().toStdString();
  if (entered == symbol_)
    return;
  SetSymbol(entered);
  source_->clear();
  Announce();
}

void TOrderTicket::SetSymbol(const std::string& symbol) {
  symbol_ = symbol;
  const QString text = QString::fromStdString(symbol);
  symbolBox_->SetHint(text);
  symbolBox_->setText(text);
  price_->clear();
  quantity_->clear();
  name_->setText(InstrumentName(services_, text));
}

void TOrderTicket::Announce() {
  TClientOrder order(symbol_);
  Datadef::TCopyOrderRecord record;
  record.Order = &order;
  services_.Channels.Send(Constdef::Channel_CopyOrder, &owner_, &record);
}

void TOrderTicket::StepPrice(int steps) {
  const auto price = TOrderFigures::ParsePrice(price_->text());
  const auto next = price ? figures_.StepPrice(symbol_, *price, steps)
                          : figures_.PresentPrice(symbol_).value_or(0);
  if (next > 0)
    price_->setText(figures_.PriceText(symbol_, next));
}

void TOrderTicket::StepQuantity(int steps) {
  const auto quantity = TOrderFigures::ParseQuantity(quantity_->text());
  quantity_->setText(
      figures_.QuantityText(figures_.StepQuantity(symbol_, quantity.value_or(0), steps)));
}

std::optional<TSide> TOrderTicket::Side() const {
  const auto* checked = sides_->checkedButton();
  if (!checked)
    return {};
  return checked == buy_ ? TSide::Bid : TSide::Ask;
}

void TOrderTicket::SetSide(std::optional<TSide> side) {
  sides_->setExclusive(false); // or none could be unchecked
  buy_->setChecked(side == TSide::Bid);
  sell_->setChecked(side == TSide::Ask);
  sides_->setExclusive(true);
}

std::optional<TOrderTicket::TDraft> TOrderTicket::Draft() {
  const auto side = Side();
  const auto price = TOrderFigures::ParsePrice(price_->text());
  const auto quantity = TOrderFigures::ParseQuantity(quantity_->text());
  const auto miss = [this](const char* key, QWidget* where) {
    message_->setText(WindowText(key));
    where->setFocus(Qt::TabFocusReason);
    return std::nullopt;
  };
  if (symbol_.empty() || symbolBox_->text().toStdString() != symbol_)
    return miss("Term_NeedSymbol", symbolBox_);
  if (!side)
    return miss("Term_NeedSide", buy_);
  if (!price)
    return miss("Term_NeedPrice", price_);
  if (!quantity)
    return miss("Term_NeedQuantity", quantity_);
  return TDraft{*side, *price, *quantity};
}

void TOrderTicket::Advance() {
  if (!desk_.IsOpen())
    return;
  if (shown_)
    return Send(*shown_);
  const auto draft = Draft();
  if (!draft)
    return;
  shown_ = draft;
  const QString instrument = InstrumentText(services_, QString::fromStdString(symbol_));
  message_->setText(QStringLiteral("<b>%1 %2: %3 @ %4</b><br>%5")
                        .arg(SideText(draft->Side).toUpper(), instrument.toHtmlEscaped(),
                             figures_.QuantityText(draft->Quantity),
                             figures_.PriceText(symbol_, draft->Price),
                             WindowText("Term_EnterSends")));
  send_->setText(WindowText("Term_ConfirmSend"));
  send_->setFocus(Qt::TabFocusReason);
}

void TOrderTicket::Send(TDraft draft) {
  Disarm();
  price_->setFocus(Qt::TabFocusReason);
  sent_ = desk_.Submit(symbol_, draft.Side, draft.Price, draft.Quantity);
  message_->setText(WindowText("Term_OrderSent").arg(sent_));
}

void TOrderTicket::Disarm() {
  shown_.reset();
  message_->clear();
  send_->setText(WindowText("Term_Send"));
}

void TOrderTicket::FormChanged() {
  const auto price = TOrderFigures::ParsePrice(price_->text());
  const auto quantity = TOrderFigures::ParseQuantity(quantity_->text());
  amount_->setText(price && quantity ? figures_.AmountText(symbol_, *price, *quantity) : QString());
  ShowOpen();
}

void TOrderTicket::Clear() {
  SetSymbol({});
  SetSide({});
  source_->clear();
  FormChanged();
  symbolBox_->setFocus(Qt::TabFocusReason);
}

void TOrderTicket::ShowOpen() {
  Disarm();
  send_->setEnabled(desk_.IsOpen());
  if (!desk_.IsOpen())
    message_->setText(WindowText(Refused_NoMarket));
}

void TOrderTicket::ShowOutcome(const TUserOrder& order) {
  if (order.Number != sent_ || shown_)
    return;
  const char* key =
      order.Status == TOrderStatus::Rejected ? order.Reason.c_str() : StatusKey(order.Status);
  message_->setText(WindowText("Term_OrderOutcome").arg(order.Number).arg(WindowText(key)));
}

void TOrderTicket::keyPressEvent(QKeyEvent* event) {
  const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (isEnter && !event->isAutoRepeat()) {
    Advance();
  } else if (event->key() == Qt::Key_Escape && shown_) {
    Disarm();
    price_->setFocus(Qt::TabFocusReason);
  } else {
    QWidget::keyPressEvent(event);
  }
}

} // namespace Terminal
