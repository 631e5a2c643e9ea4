#include "fakes/HostFakes.h"

#include <gtest/gtest.h>

// Services are found where the host installed them, and nowhere after it removed them.

namespace {

using Basesubscribeadapter::TCustomSubscribeAdapter;
using Basevendorddsmodel::TCustomVendorDDSModel;

TEST(Services, AreTheHostsWhileItHasThemInstalled) {
  EXPECT_EQ(Baseconfigmanager::TCustomConfigManager::GetInstance(), nullptr);
  {
    Fakes::THostFakes host;
    EXPECT_EQ(Baseconfigmanager::TCustomConfigManager::GetInstance(), &host.config);
    EXPECT_EQ(Baseformatter::TCustomFormatter::GetInstance(), &host.formatter);
    EXPECT_EQ(Baseglobalchannelmanager::TCustomGlobalChannelManager::GetInstance(), &host.channels);
    EXPECT_EQ(Baselanguagemanager::TCustomLanguageManager::GetInstance(), &host.language);
    EXPECT_EQ(Baselookandfeelservice::TCustomLookAndFeelService::GetInstance(), &host.lookAndFeel);
    EXPECT_EQ(Basemarketadapter::TCustomMarketAdapter::GetInstance(), &host.market);
    EXPECT_EQ(Baseorderadapter::TCustomOrderAdapter::GetInstance(), &host.orders);
    EXPECT_EQ(TCustomSubscribeAdapter::GetInstance(), &host.subscriptions);
    EXPECT_EQ(Basetimercontrol::TCustomTimerControl::GetInstance(), &host.timers);
    EXPECT_EQ(Baseuserappprofile::TCustomUserAppProfile::GetInstance(), &host.profile);
    EXPECT_EQ(Icommon::TCustomMarketDataFormatter::GetInstance(), &host.marketDataFormatter);
    EXPECT_EQ(Markettradesidedetector::TMarketTradeSideDetector::GetInstance(), &host.trades);
  }
  EXPECT_EQ(Baseconfigmanager::TCustomConfigManager::GetInstance(), nullptr);
  EXPECT_EQ(TCustomSubscribeAdapter::GetInstance(), nullptr);
}

TEST(Services, TheVendorModelMayBeAbsent) {
  Fakes::THostFakes host;
  EXPECT_EQ(TCustomVendorDDSModel::GetInstance(), nullptr);
  host.SetFeedType(Constdef::FeedType_Delayed);
  ASSERT_NE(TCustomVendorDDSModel::GetInstance(), nullptr);
  EXPECT_EQ(TCustomVendorDDSModel::GetInstance()->FeedType(), 3);
  host.SetFeedType(std::nullopt);
  EXPECT_EQ(TCustomVendorDDSModel::GetInstance(), nullptr);
}

TEST(Services, AResourceIsAskedForUnderItsTagWithTheAgreedSelectors) {
  Fakes::THostFakes host;
  host.language.SetText("Res_Bid", "Bid");
  host.language.SetText(Constdef::Const_CurrencyTag, "Res_Ask", "not a resource");
  EXPECT_EQ(host.language.GetResource("Res_Bid"), "Bid");
  EXPECT_EQ(host.language.GetResource("Res_Ask"), "Res_Ask");
  EXPECT_TRUE(host.language.selectorsAsAgreed);
}

} // namespace
