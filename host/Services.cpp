#include "host/BaseConfigManager.h"
#include "host/BaseFormatter.h"
#include "host/BaseGlobalChannelManager.h"
#include "host/BaseLanguageManager.h"
#include "host/BaseLookAndFeelService.h"
#include "host/BaseMarketAdapter.h"
#include "host/BaseOrderAdapter.h"
#include "host/BaseSubscribeAdapter.h"
#include "host/BaseTimerControl.h"
#include "host/BaseUserAppProfile.h"
#include "host/BaseVendorDDSModel.h"
#include "host/DataDef.h"
#include "host/ICommon.h"
#include "host/MarketTradeSideDetector.h"
#include "host/ServiceSlot.h"

// The one slot of each service, and the destructors that give each interface one identity across
// the program and its packages.

template class Host::TService<Baseconfigmanager::TCustomConfigManager>;
template class Host::TService<Baseformatter::TCustomFormatter>;
template class Host::TService<Baseglobalchannelmanager::TCustomGlobalChannelManager>;
template class Host::TService<Baselanguagemanager::TCustomLanguageManager>;
template class Host::TService<Baselookandfeelservice::TCustomLookAndFeelService>;
template class Host::TService<Basemarketadapter::TCustomMarketAdapter>;
template class Host::TService<Baseorderadapter::TCustomOrderAdapter>;
template class Host::TService<Basesubscribeadapter::TCustomSubscribeAdapter>;
template class Host::TService<Basetimercontrol::TCustomTimerControl>;
template class Host::TService<Baseuserappprofile::TCustomUserAppProfile>;
template class Host::TService<Basevendorddsmodel::TCustomVendorDDSModel>;
template class Host::TService<Icommon::TCustomMarketDataFormatter>;
template class Host::TService<Markettradesidedetector::TMarketTradeSideDetector>;

Baseconfigmanager::TCustomConfigManager::~TCustomConfigManager() = default;
Baseformatter::TCustomFormatter::~TCustomFormatter() = default;
Baseglobalchannelmanager::TCustomListObject::~TCustomListObject() = default;
Baseglobalchannelmanager::TCustomGroupData::~TCustomGroupData() = default;
Baseglobalchannelmanager::TCustomGlobalChannelManager::~TCustomGlobalChannelManager() = default;
Baselanguagemanager::TCustomLanguageManager::~TCustomLanguageManager() = default;
Baselookandfeelservice::TCustomLookAndFeelService::~TCustomLookAndFeelService() = default;
Basemarketadapter::TChangedKeys::~TChangedKeys() = default;
Basemarketadapter::TCustomSpreadTable::~TCustomSpreadTable() = default;
Basemarketadapter::TCustomBroker::~TCustomBroker() = default;
Basemarketadapter::TCustomInstrument::~TCustomInstrument() = default;
Basemarketadapter::TCustomMarketAdapter::~TCustomMarketAdapter() = default;
Baseorderadapter::TCustomOrderAdapter::~TCustomOrderAdapter() = default;
Baseorderdata::TCustomOrder::~TCustomOrder() = default;
Baseorderdata::TCustomClientOrder::~TCustomClientOrder() = default;
Baseorderdata::TCustomViewParameters::~TCustomViewParameters() = default;
Basesubscribeadapter::TCustomSubscribeAdapter::~TCustomSubscribeAdapter() = default;
Basesubscribedata::TCustomSubItem::~TCustomSubItem() = default;
Basetimercontrol::TCustomTimerControl::~TCustomTimerControl() = default;
Baseuserappprofile::TCustomUserAppProfile::~TCustomUserAppProfile() = default;
Basevendorddsmodel::TCustomVendorDDSModel::~TCustomVendorDDSModel() = default;
Datadef::TCopyOrderRecord::~TCopyOrderRecord() = default;
Icommon::TCustomMarketDataFormatter::~TCustomMarketDataFormatter() = default;
Markettradesidedetector::TSymbolMarketTrade::~TSymbolMarketTrade() = default;
Markettradesidedetector::TMarketTradeSideDetector::~TMarketTradeSideDetector() = default;

std::string Baselanguagemanager::TCustomLanguageManager::GetResource(std::string_view key) {
  std::string text;
  GetText(text, Constdef::Const_ResourceStringTag, key, 3, 0, 0);
  return text;
}

std::string_view Basemarketadapter::TCustomBroker::NameIn(int language) const {
  const auto name = language == Constdef::Language_TraditionalChinese  ? Name1()
                    : language == Constdef::Language_SimplifiedChinese ? Name2()
                                                                       : Name();
  if (!name.empty())
    return name;
  return Name().empty() ? OtherName() : Name();
}
