#include "fakes/HostFakes.h"

namespace Fakes {

THostFakes::THostFakes() {
  Baseconfigmanager::TCustomConfigManager::Install(&config);
  Baselanguagemanager::TCustomLanguageManager::Install(&language);
  Baselookandfeelservice::TCustomLookAndFeelService::Install(&lookAndFeel);
  Basetimercontrol::TCustomTimerControl::Install(&timers);
  Baseglobalchannelmanager::TCustomGlobalChannelManager::Install(&channels);
  Basemarketadapter::TCustomMarketAdapter::Install(&market);
  Basesubscribeadapter::TCustomSubscribeAdapter::Install(&subscriptions);
  Baseorderadapter::TCustomOrderAdapter::Install(&orders);
  Baseuserappprofile::TCustomUserAppProfile::Install(&profile);
  Baseformatter::TCustomFormatter::Install(&formatter);
  Icommon::TCustomMarketDataFormatter::Install(&marketDataFormatter);
  Markettradesidedetector::TMarketTradeSideDetector::Install(&trades);
}

THostFakes::~THostFakes() {
  Baseconfigmanager::TCustomConfigManager::Install(nullptr);
  Baselanguagemanager::TCustomLanguageManager::Install(nullptr);
  Baselookandfeelservice::TCustomLookAndFeelService::Install(nullptr);
  Basetimercontrol::TCustomTimerControl::Install(nullptr);
  Baseglobalchannelmanager::TCustomGlobalChannelManager::Install(nullptr);
  Basemarketadapter::TCustomMarketAdapter::Install(nullptr);
  Basesubscribeadapter::TCustomSubscribeAdapter::Install(nullptr);
  Baseorderadapter::TCustomOrderAdapter::Install(nullptr);
  Baseuserappprofile::TCustomUserAppProfile::Install(nullptr);
  Baseformatter::TCustomFormatter::Install(nullptr);
  Icommon::TCustomMarketDataFormatter::Install(nullptr);
  Markettradesidedetector::TMarketTradeSideDetector::Install(nullptr);
  SetFeedType(std::nullopt);
}

void THostFakes::SetFeedType(std::optional<int> feedType) {
  vendorModel_.feedType = feedType.value_or(0);
  Basevendorddsmodel::TCustomVendorDDSModel::Install(feedType ? &vendorModel_ : nullptr);
}

TRegistrations THostFakes::Registrations() const {
  TRegistrations live;
  live.configuration = config.ListenerCount();
  live.channels = channels.ChannelCount();
  live.groups = channels.GroupCount();
  live.timers = timers.ListenerCount();
  live.records = subscriptions.SubscriptionCount();
  live.listeners = subscriptions.ListenerCount();
  live.brokers = market.BrokerListenerCount();
  live.spreads = market.SpreadListenerCount();
  live.tradeSides = static_cast<int>(trades.followed.size());
  live.orders = orders.liveOrders;
  return live;
}

} // namespace Fakes
