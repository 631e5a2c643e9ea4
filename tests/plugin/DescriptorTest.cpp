#include "host/RecordFields.h"
// The package as a second host meets it: loaded from its file, known only by the contract.

#include "fakes/ViewFakes.h"
#include "host/LayoutData.h"
#include "platform/Grid.h"
#include "tests/Paths.h"

#include <QTest>
#include <dlfcn.h>
#include <gtest/gtest.h>

namespace {

namespace Field = Host::Field;

using Baseview::TIBaseView;

class TDescriptorTest : public testing::Test {
protected:
  static void SetUpTestSuite() {
    package = dlopen(QUOR_BINARY_DIR "/bin/quorprice.so", RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(package, nullptr) << dlerror();
    const auto version = Function<int()>(Constdef::PackageVersionSymbol);
    ASSERT_NE(version, nullptr);
    ASSERT_EQ(version(), Constdef::ContractVersion);
    Function<void()>(Constdef::PackageInitializeSymbol)();
  }

  template <typename TSignature> static TSignature* Function(const char* name) {
    return reinterpret_cast<TSignature*>(dlsym(package, name));
  }

  void SetUp() override {
    component = System::Classes::CreateRegistered("TIQuorPrice", nullptr);
    descriptor = dynamic_cast<TIBaseView*>(component.get());
    ASSERT_NE(descriptor, nullptr);
  }

  static inline void* package = nullptr;
  Fakes::TViewFakes host;
  std::unique_ptr<System::Classes::TComponent> component;
  TIBaseView* descriptor = nullptr;
};

TEST_F(TDescriptorTest, SaysWhatItIs) {
  EXPECT_EQ(descriptor->GetName(), "QuorPrice_502");
  EXPECT_EQ(descriptor->GetViewID(), 502);
  EXPECT_EQ(descriptor->GetMenuLevel(), 2);
  std::string caption;
  EXPECT_TRUE(descriptor->GetDefaultCaption(caption));
  EXPECT_EQ(caption, "Res_QuorPrice");
  int width = 0;
  int height = 0;
  EXPECT_TRUE(descriptor->GetDefaultSize(width, height));
  EXPECT_EQ(width, 705);
  EXPECT_EQ(height, 320);
}

struct TMenuEntry {
  int entry, index, id;
  const char* caption;
};

class TMenuTest : public TDescriptorTest, public testing::WithParamInterface<TMenuEntry> {};

TEST_P(TMenuTest, EntriesStandInTheMenu) {
  const auto& expected = GetParam();
  EXPECT_EQ(descriptor->GetMenuIndex(expected.entry), expected.index);
  EXPECT_EQ(descriptor->GetMenuID(expected.entry), expected.id);
  EXPECT_EQ(descriptor->GetMenuCaption(expected.entry), expected.caption);
  EXPECT_EQ(descriptor->GetMenuGroupIndex(expected.entry), 0);
}

INSTANTIATE_TEST_SUITE_P(Entries, TMenuTest,
                         testing::Values(TMenuEntry{0, 2100, 102, "Res_Market"},
                                         TMenuEntry{1, 2150, 502, "Res_QuorPrice"},
                                         TMenuEntry{2, -1, 0, ""}, TMenuEntry{-1, -1, 0, ""}));

TEST_F(TDescriptorTest, VisibleWhenGrantedOrFed) {
  EXPECT_FALSE(descriptor->GetIsVisible()) << "no grant, no vendor model";
  host.SetFeedType(0);
  EXPECT_FALSE(descriptor->GetIsVisible()) << "a vendor model without feed";
  for (const int feedType : {1, 2, 3}) {
    host.SetFeedType(feedType);
    EXPECT_TRUE(descriptor->GetIsVisible()) << feedType;
  }
  host.SetFeedType(std::nullopt);
  host.profile.granted = {"ProChart"};
  EXPECT_FALSE(descriptor->GetIsVisible());
  host.profile.granted = {"QuorPrice"};
  EXPECT_TRUE(descriptor->GetIsVisible());
}

TEST_F(TDescriptorTest, OffersOneShortcutWithoutKey) {
  std::vector<Viewinterface::TCustomViewShortcut> shortcuts;
  descriptor->GetShortCutList(shortcuts);
  descriptor->GetShortCutList(shortcuts);
  ASSERT_EQ(shortcuts.size(), 1u);
  EXPECT_EQ(shortcuts[0].Name, "Res_ActiveQuorPrice");
  EXPECT_EQ(shortcuts[0].Key, 0);
}

TEST_F(TDescriptorTest, KeepsOnePreferenceDescriptorAndOnePage) {
  auto* preference = descriptor->GetPreferenceView();
  ASSERT_NE(preference, nullptr);
  EXPECT_EQ(descriptor->GetPreferenceView(), preference);
  EXPECT_EQ(preference->GetName(), "Res_QuorPrice");
  EXPECT_EQ(preference->GetViewID(), 502);
  EXPECT_EQ(preference->GetWidth(), 500);
  EXPECT_EQ(preference->GetHeight(), 500) << "no page yet";

  const auto pages = preference->GetView();
  ASSERT_EQ(pages.size(), 1u);
  EXPECT_EQ(preference->GetView(), pages);
  EXPECT_EQ(preference->GetHeight(), pages[0]->GetHeight());
}

TEST_F(TDescriptorTest, AnotherHostOpensAViewAndSeesItsBook) {
  const auto before = host.Registrations();
  host.editors.listed = {"700"};
  host.Record("700").Set({{Field::BestBid, "318.2"},
                          {Field::BestAsk, "318.4"},
                          {Field::BestBidSize, "1200"},
                          {Field::BestAskSize, "800"}});

  const auto handle = descriptor->OpenNewInstance();
  ASSERT_NE(handle, 0);
  EXPECT_TRUE(descriptor->ContainView(handle));
  descriptor->SetLayoutData(handle, "Symbol=700,DisplayMode=1");
  EXPECT_EQ(host.subscriptions.SubscriptionCount("700"), 1);
  EXPECT_TRUE(descriptor->GetLayoutData(handle).starts_with("Symbol=700,DisplayMode=1,"));
  std::string caption;
  descriptor->GetViewCaption(handle, caption);
  EXPECT_EQ(caption, "Res_QuorPrice - 700");

  auto* const view = reinterpret_cast<TIBaseView*>(handle);
  const auto* grid = view->Widget()->findChild<Platform::TcxGrid*>("PriceGrid");
  ASSERT_NE(grid, nullptr);
  const auto bests = [&] {
    std::vector<std::string> texts;
    for (const auto& column : grid->View()->Columns())
      if (const auto* cell = grid->View()->Cell(1, column.get()); cell && !cell->Text.empty())
        texts.push_back(cell->Text);
    return texts;
  };
  const std::vector<std::string> expected = {"Res_HighPrice", "Res_Bid", "318.200", "Res_Ask",
                                             "318.400"};
  EXPECT_TRUE(QTest::qWaitFor([&] { return bests() == expected; }))
      << testing::PrintToString(bests());

  descriptor->CloseInstance(handle);
  EXPECT_FALSE(descriptor->ContainView(handle));
  EXPECT_EQ(host.Registrations(), before);
}

TEST_F(TDescriptorTest, CaptionButtonsHaveTheNamesOfTheContract) {
  const auto names = [this] {
    std::vector<Viewinterface::TCaptionButton*> buttons;
    descriptor->GetViewCaptionButtons(descriptor->OpenNewInstance(), buttons);
    std::vector<std::string> list;
    for (const auto* button : buttons)
      list.push_back(button->Name);
    return list;
  };
  host.profile.granted = {"ProChart"};
  host.config.Set("QuorPrcBtnCaption", "Btn1", "1,000");
  EXPECT_EQ(names(), (std::vector<std::string>{"display-mode", "show-hide", "lock", "chart",
                                               "broker-queue", "quantity"}));
  host.SetFeedType(Constdef::FeedType_PerClick);
  EXPECT_EQ(names(),
            (std::vector<std::string>{"refresh", "show-hide", "lock", "chart", "quantity"}));
}

TEST_F(TDescriptorTest, ComponentsHaveTheNamesOfTheContract) {
  auto* const view = reinterpret_cast<TIBaseView*>(descriptor->OpenNewInstance())->Widget();
  const auto has = [view](const char* kind, const QString& name) {
    const auto* found = view->findChild<QObject*>(name);
    return found && found->inherits(kind);
  };
  EXPECT_TRUE(has("QLineEdit", Constdef::Component_SymbolBox));
  for (const char* name : {Constdef::Component_LiqProviderBox, Constdef::Component_WarrantBox,
                           Constdef::Component_RelatedBox})
    EXPECT_TRUE(has("QComboBox", name)) << name;
  EXPECT_TRUE(has("Platform::TcxGrid", Constdef::Component_PriceGrid));
  for (const char* name : {Constdef::Component_BrokerNameItem, Constdef::Component_DetailItem})
    EXPECT_TRUE(has("QAction", name)) << name;
  for (int i = 1; i <= 10; ++i)
    EXPECT_TRUE(has("QPushButton", Constdef::ComponentPrefix_QtyButton + QString::number(i))) << i;
}

TEST_F(TDescriptorTest, LayoutDataHasTheItemsOfTheContract) {
  host.config.Set("QuorPrcBtnCaption", "Btn1", "1,000");
  Host::TLayoutData expected;
  expected.Add(Constdef::Layout_Symbol, "");
  expected.Add(Constdef::Layout_DisplayMode, Constdef::DisplayMode_TenLevels);
  for (const auto name :
       {Constdef::Layout_ShowHideState, Constdef::Layout_ShowBrokerName, Constdef::Layout_LockState,
        Constdef::Layout_BrokerQueueState, Constdef::Layout_QtyButtonState})
    expected.Add(name, 0);
  const auto handle = descriptor->OpenNewInstance();
  descriptor->SetLayoutData(handle, expected.CommaText());
  EXPECT_EQ(descriptor->GetLayoutData(handle), expected.CommaText());
  auto* const view = reinterpret_cast<TIBaseView*>(handle)->Widget();
  const auto* grid = view->findChild<Platform::TcxGrid*>(Constdef::Component_PriceGrid);
  EXPECT_TRUE(QTest::qWaitFor([grid] { return grid->View()->RecordCount() == 18; }));
}

TEST_F(TDescriptorTest, AHandleThatIsNotOpenIsIgnored) {
  int width = -1;
  descriptor->GetWidth(4711, width);
  descriptor->SetLanguage(4711, 1);
  descriptor->CloseInstance(4711);
  EXPECT_EQ(width, -1);
  EXPECT_FALSE(descriptor->ContainView(4711));
  EXPECT_EQ(descriptor->GetLayoutData(4711), "");
}

TEST_F(TDescriptorTest, UnloadingUnregistersNothing) {
  Function<void()>(Constdef::PackageInitializeSymbol)();
  Function<void()>(Constdef::PackageFinalizeSymbol)();
  EXPECT_NE(System::Classes::CreateRegistered("TIQuorPrice", nullptr), nullptr);
  Function<void()>(Constdef::PackageFinalizeSymbol)();
  EXPECT_NE(System::Classes::CreateRegistered("TIQuorPrice", nullptr), nullptr);
  Function<void()>(Constdef::PackageInitializeSymbol)();
}

TEST_F(TDescriptorTest, LoadingTwiceRegistersOnce) {
  bool foundOther = false;
  System::Classes::RegisterClass("TIQuorPrice", [&foundOther](System::Classes::TComponent*) {
    foundOther = true;
    return std::unique_ptr<System::Classes::TComponent>();
  });
  Function<void()>(Constdef::PackageInitializeSymbol)();
  (void)System::Classes::CreateRegistered("TIQuorPrice", nullptr);
  EXPECT_TRUE(foundOther) << "the second load registered the class again";
  Function<void()>(Constdef::PackageFinalizeSymbol)();
  Function<void()>(Constdef::PackageFinalizeSymbol)();
  Function<void()>(Constdef::PackageInitializeSymbol)();
}

TEST_F(TDescriptorTest, TheDescriptorClosesWhatIsStillOpen) {
  const auto before = host.Registrations();
  descriptor->OpenNewInstance();
  descriptor->OpenNewInstance();
  EXPECT_NE(host.Registrations(), before);
  component.reset();
  EXPECT_EQ(host.Registrations(), before);
}

} // namespace
