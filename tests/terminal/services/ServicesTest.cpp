#include "terminal/services/Services.h"

#include "host/BaseDCDataControl.h"
#include "platform/PopupEdit.h"

#include <QTest>

#include <gtest/gtest.h>

namespace {

using Terminal::TServices;

class TOwner : public System::TObject {};

TEST(Services, AreInstalledForAsLongAsTheyLive) {
  {
    TServices services;
    EXPECT_EQ(Baseconfigmanager::TCustomConfigManager::GetInstance(), &services.Config);
    EXPECT_EQ(Baselanguagemanager::TCustomLanguageManager::GetInstance(), &services.Languages);
    EXPECT_EQ(Baselookandfeelservice::TCustomLookAndFeelService::GetInstance(), &services.Skin);
    EXPECT_EQ(Basetimercontrol::TCustomTimerControl::GetInstance(), &services.Timer);
    EXPECT_EQ(Baseglobalchannelmanager::TCustomGlobalChannelManager::GetInstance(),
              &services.Channels);
    EXPECT_EQ(Basemarketadapter::TCustomMarketAdapter::GetInstance(), &services.Market);
    EXPECT_EQ(Basesubscribeadapter::TCustomSubscribeAdapter::GetInstance(),
              &services.Subscriptions);
    EXPECT_EQ(Baseorderadapter::TCustomOrderAdapter::GetInstance(), &services.Orders);
    EXPECT_EQ(Baseuserappprofile::TCustomUserAppProfile::GetInstance(), &services.Profile);
    EXPECT_EQ(Baseformatter::TCustomFormatter::GetInstance(), &services.Formatter);
    EXPECT_EQ(Icommon::TCustomMarketDataFormatter::GetInstance(), &services.MarketDataFormatter);
    EXPECT_EQ(Markettradesidedetector::TMarketTradeSideDetector::GetInstance(),
              &services.TradeSides);
    EXPECT_EQ(Editormanager::TEditorManager::GetInstance(), &services.Editors);
    EXPECT_EQ(Iimageresource::TIImageResourceList::GetInstance(), &services.Images);
  }
  EXPECT_EQ(Baseconfigmanager::TCustomConfigManager::GetInstance(), nullptr);
  EXPECT_EQ(Icommon::TCustomMarketDataFormatter::GetInstance(), nullptr);
  EXPECT_EQ(Iimageresource::TIImageResourceList::GetInstance(), nullptr);
}

TEST(Services, ThereIsAVendorModelOnlyWhileItHasAFeedType) {
  using Basevendorddsmodel::TCustomVendorDDSModel;
  {
    TServices services;
    EXPECT_EQ(TCustomVendorDDSModel::GetInstance(), nullptr);
    services.Vendor.SetFeedType(2);
    ASSERT_EQ(TCustomVendorDDSModel::GetInstance(), &services.Vendor);
    EXPECT_EQ(TCustomVendorDDSModel::GetInstance()->FeedType(), 2);
    services.Vendor.SetFeedType(std::nullopt);
    EXPECT_EQ(TCustomVendorDDSModel::GetInstance(), nullptr);
    services.Vendor.SetFeedType(0);
    EXPECT_EQ(TCustomVendorDDSModel::GetInstance(), &services.Vendor);
  }
  EXPECT_EQ(TCustomVendorDDSModel::GetInstance(), nullptr);
}

TEST(Services, TheProfileGrantsWhatItWasGivenLast) {
  TServices services;
  EXPECT_FALSE(services.Profile.IsFunctionGranted("QuorPrice"));
  services.Profile.Grant({"QuorPrice", "ProChart"});
  EXPECT_TRUE(services.Profile.IsFunctionGranted("QuorPrice"));
  EXPECT_FALSE(services.Profile.IsFunctionGranted("quorprice"));
  services.Profile.Grant({"ProChart"});
  EXPECT_FALSE(services.Profile.IsFunctionGranted("QuorPrice"));
}

TEST(Services, CountTheRegistrationsOfEachKind) {
  TServices services;
  TOwner owner;
  const auto ignore = [](System::TObject*, System::TObject*) {};
  services.Config.RegisterListener(ignore, &owner);
  for (const int channel : {0, 104})
    services.Channels.Subscribe(channel, ignore, &owner);
  for (const auto* group : {"A", "B", "C"})
    services.Channels.JoinGroup(group, ignore, &owner);
  const TOwner timerOwners[4];
  for (const auto& timerOwner : timerOwners)
    services.Timer.Register(&timerOwner, [](System::TObject*) {});
  Platform::TcxPopupEdit edits[5];
  for (auto& edit : edits)
    services.Editors.RegisterSymbolEditor(&edit, "", true, true);
  for (int i = 0; i < 6; ++i)
    services.Subscriptions.Subscribe("700", "PRCDDS", true);
  for (int i = 0; i < 7; ++i)
    services.TradeSides.AddSymbol("700");
  const auto counts = services.Registrations();
  EXPECT_EQ(counts.Configuration, 1U);
  EXPECT_EQ(counts.Channels, 2U);
  EXPECT_EQ(counts.Groups, 3U);
  EXPECT_EQ(counts.Timers, 4U);
  EXPECT_EQ(counts.Editors, 5U);
  EXPECT_EQ(counts.Records, 6U);
  EXPECT_EQ(counts.TradeSides, 7U);
}

TEST(Services, ASymbolThatTheUserEntersReachesTheMembersOfTheGroup) {
  TServices services;
  services.Symbols.Add("700");
  TOwner member, stranger;
  std::vector<std::string> heard;
  services.Channels.JoinGroup(
      "A",
      [&](System::TObject*, System::TObject* data) {
        const auto* message = dynamic_cast<Baseglobalchannelmanager::TCustomGroupData*>(data);
        ASSERT_NE(message, nullptr);
        EXPECT_EQ(message->GroupID(), "A");
        EXPECT_FALSE(message->IsRefused());
        heard.push_back(message->Symbol());
      },
      &member);
  services.Channels.JoinGroup(
      "B", [&](System::TObject*, System::TObject*) { heard.push_back("stranger"); }, &stranger);
  Platform::TcxPopupEdit edit;
  services.Editors.RegisterSymbolEditor(&edit, "A", true, true);
  QTest::keyClicks(&edit, "0700.HK");
  QTest::keyClick(&edit, Qt::Key_Return);
  EXPECT_EQ(heard, std::vector<std::string>{"700"});
}

TEST(Services, ADataControlFollowsTheConfigurationThroughThem) {
  class TControl : public Basedcdatacontrol::TCustomDataControl {
  public:
    TControl() : TCustomDataControl(nullptr) {}
    void ConfigUpdate(System::TObject*, System::TObject*) override { ++Updates; }
    int GetCount() const override { return 0; }
    std::string GetDisplayValue(int, int) const override { return {}; }
    int Updates = 0;
  };
  TServices services;
  {
    TControl control;
    services.Config.WriteString("USER", "CopyPriceStyle", "L", true);
    EXPECT_EQ(control.Updates, 1);
    EXPECT_EQ(services.Registrations().Configuration, 1U);
  }
  EXPECT_EQ(services.Registrations().Configuration, 0U);
}

TEST(Orders, RememberWhatWasSetUntilTheyAreCleared) {
  Terminal::TOrderAdapter adapter;
  const auto made = adapter.NewOrder();
  const auto* order = dynamic_cast<Terminal::TOrder*>(made.get());
  ASSERT_NE(order, nullptr);
  EXPECT_EQ(order->Price(), std::nullopt);
  EXPECT_EQ(order->Quantity(), std::nullopt);
  made->SetSymbol("700");
  made->SetPrice(318.2);
  made->SetQuantity(0);
  made->SetValue("OrderFlags", "1");
  EXPECT_EQ(order->Symbol(), "700");
  EXPECT_EQ(order->Price(), 318.2);
  EXPECT_EQ(order->Quantity(), 0) << "set to nothing is set";
  EXPECT_EQ(order->Values(), (Terminal::TOrder::TValues{{"OrderFlags", "1"}}));
  made->Clear();
  EXPECT_EQ(order->Symbol(), "");
  EXPECT_EQ(order->Price(), std::nullopt);
  EXPECT_EQ(order->Quantity(), std::nullopt);
  EXPECT_TRUE(order->Values().empty());
}

TEST(Orders, ViewParametersCarryASymbol) {
  Terminal::TOrderAdapter adapter;
  const auto made = adapter.NewViewParameters();
  made->SetSymbol("5");
  EXPECT_EQ(dynamic_cast<Terminal::TViewParameters&>(*made).Symbol(), "5");
  EXPECT_EQ(Terminal::TClientOrder("700").Symbol(), "700");
}

/// The part of the image that is drawn on, in per cent.
double Coverage(const QImage& image) {
  int drawn = 0;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x)
      drawn += image.pixelColor(x, y).alpha() > 0 ? 1 : 0;
  return 100.0 * drawn / (image.width() * image.height());
}

TEST(Images, TheDeleteImageIsDrawnAtEverySize) {
  Terminal::TImageResources resources;
  EXPECT_EQ(resources.Images()->Count(), 4);
  const auto icon = resources.Images()->Image(Iimageresource::TIImageResourceList::DeleteImage);
  for (const int side : {12, 16, 24, 48, 96}) {
    const auto image = icon.pixmap(QSize(side, side), 1.0).toImage();
    ASSERT_EQ(image.size(), QSize(side, side));
    EXPECT_GT(Coverage(image), 10) << side;
    EXPECT_LT(Coverage(image), 70) << side;
  }
  EXPECT_EQ(icon.pixmap(QSize(16, 16), 2.0).toImage().size(), QSize(32, 32)) << "dense screens";
}

TEST(Images, TheImagesDiffer) {
  Terminal::TImageResources resources;
  for (int i = 1; i < resources.Images()->Count(); ++i)
    EXPECT_NE(resources.Images()->Image(i - 1).pixmap(16).toImage(),
              resources.Images()->Image(i).pixmap(16).toImage())
        << i;
}

} // namespace
