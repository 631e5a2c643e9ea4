#include "view/SymbolFollowing.h"

#include "host/BaseConfigManager.h"
#include "host/BaseGlobalChannelManager.h"
#include "host/BaseOrderData.h"
#include "host/ConstDef.h"
#include "host/DataDef.h"
#include "model/RecordText.h"
#include "text/Numbers.h"

#include <QEvent>

namespace Quorpriceview {

using Baseglobalchannelmanager::TCustomGroupData;
using Baseglobalchannelmanager::TCustomListObject;
using Baseorderdata::TCustomClientOrder;

namespace {

class TPressFilter : public QObject {
public:
  explicit TPressFilter(QWidget* pressed) : QObject(pressed) { pressed->installEventFilter(this); }

protected:
  bool eventFilter(QObject* pressed, QEvent* event) override {
    if (event->type() != QEvent::MouseButtonPress && event->type() != QEvent::MouseButtonDblClick)
      return false;
    pressed->removeEventFilter(this);
    deleteLater();
    return true;
  }
};

} // namespace

void DropPress(QWidget* pressed) { new TPressFilter(pressed); }

std::string AppliedSymbol(const Platform::TcxPopupEdit& box) { return box.Hint().toStdString(); }

void EnterSymbol(Platform::TcxPopupEdit& box, const std::string& symbol) {
  box.setText(QString::fromStdString(symbol));
  box.PerformExit();
}

void TSymbolFollowing::ReadConfiguration() {
  const auto mode = Baseconfigmanager::TCustomConfigManager::GetInstance()->ReadString(
      Constdef::Section_TradePlatform, Constdef::Key_DefaultGroupDataMode);
  GroupDataMode = Text::ParseInteger(mode).value_or(-1);
}

bool TSymbolFollowing::FollowsBroadcast() const {
  return FollowsEverybody() || (GroupID.empty() && UnlinkedFollows());
}

bool TSymbolFollowing::FollowsGroup(std::string_view group) const {
  return FollowsEverybody() || group == GroupID;
}

bool TSymbolFollowing::FollowsOrder(std::string_view group) const {
  return FollowsEverybody() || (GroupID.empty() ? UnlinkedFollows() : group == GroupID);
}

void TSymbolFollowing::Apply(Platform::TcxPopupEdit& box, System::TObject* message) const {
  if (!box.isEnabled())
    return;
  std::string symbol;
  if (const auto* broadcast = dynamic_cast<TCustomListObject*>(message)) {
    if (FollowsBroadcast() && !broadcast->IsEmpty())
      symbol = broadcast->Symbol();
  } else if (const auto* linked = dynamic_cast<TCustomGroupData*>(message)) {
    if (FollowsGroup(linked->GroupID()) && !linked->IsRefused())
      symbol = linked->Symbol();
  }
  if (!symbol.empty() && symbol != AppliedSymbol(box))
    EnterSymbol(box, symbol);
}

void TSymbolFollowing::ApplyOrder(Platform::TcxPopupEdit& box, System::TObject* message,
                                  const std::string& shown) const {
  const auto* record = dynamic_cast<Datadef::TCopyOrderRecord*>(message);
  const auto* order = record ? dynamic_cast<TCustomClientOrder*>(record->Order) : nullptr;
  if (!order || !FollowsOrder(record->Source))
    return;
  const auto symbol = order->Symbol();
  if (symbol.empty() || symbol == shown)
    return;
  box.SetHint(QString::fromStdString(symbol));
  EnterSymbol(box, symbol);
}

} // namespace Quorpriceview
