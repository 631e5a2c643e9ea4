// The boxes of warrants, related instruments and liquidity providers, and choosing from them.

#include "host/RecordFields.h"
#include "view/ViewFixture.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QWheelEvent>

using Platform::TcxPopupEdit;

namespace {

namespace Field = Host::Field;

using TItems = std::vector<std::string>;

/// A box, its layout item and the record field of its list.
struct TBox {
  const char* box;
  const char* item;
  int field;
};

constexpr TBox Boxes[] = {{"cmbWarrant", "liWarrant", 135},
                          {"cmbRelated", "liRelated", 136},
                          {"cmbLiqProvider", "liLiqProvider", 3200}};

class TRelatedTest : public TViewTest {
protected:
  TRelatedTest() { host.editors.listed.insert({"10002", "10003"}); }

  void Follow() {
    Open();
    Type("700");
    frame->resize(frame->GetWidth(), frame->GetHeight());
    frame->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(frame.get()));
    host.viewHost.notifications.clear();
    host.subscriptions.subscribed.clear();
  }

  void Update(int field, const char* text) { host.Record("700").Set(field, text).Update(); }

  QComboBox& Box(const char* name) { return Find<QComboBox>(name); }

  TItems Items(const char* box) {
    TItems items;
    for (int i = 0; i < Box(box).count(); ++i)
      items.push_back(Box(box).itemText(i).toStdString());
    return items;
  }
  std::string Hint(const char* box) { return Box(box).placeholderText().toStdString(); }

  std::string Symbol() { return Find<TcxPopupEdit>("edtSymbol").Hint().toStdString(); }
  std::string Typed() { return Find<TcxPopupEdit>("edtSymbol").text().toStdString(); }

  /// As a user chooses: opens the list, goes down and takes the entry.
  void Choose(const char* name, int index) {
    auto& box = Box(name);
    box.setFocus();
    QTest::keyClick(&box, Qt::Key_F4);
    QTest::keyClick(box.view(), Qt::Key_Home);
    for (int i = 0; i < index; ++i)
      QTest::keyClick(box.view(), Qt::Key_Down);
    QTest::keyClick(box.view(), Qt::Key_Return);
  }
};

struct TList {
  const char* text;
  TItems items;
};

class TListTest : public TRelatedTest,
                  public testing::WithParamInterface<std::tuple<TBox, TList>> {};

TEST_P(TListTest, FillsItsBoxAndShowsItWhenThereIsAnItem) {
  const auto& [box, list] = GetParam();
  Follow();
  Update(box.field, list.text);
  EXPECT_EQ(Items(box.box), list.items);
  EXPECT_EQ(Box(box.box).currentIndex(), -1) << "nothing is preselected";
  for (const auto& [name, item, field] : Boxes)
    EXPECT_EQ(IsShown(item), field == box.field && !list.items.empty()) << name;
  EXPECT_EQ(Symbol(), "700");
  EXPECT_TRUE(host.viewHost.TakeNotifications().empty());
}

INSTANTIATE_TEST_SUITE_P(
    Lists, TListTest,
    testing::Combine(testing::ValuesIn(Boxes),
                     testing::Values(TList{"", {}}, TList{"   ", {}}, TList{"5", {"5"}},
                                     TList{"10002 5 10001", {"10002", "5", "10001"}},
                                     TList{"  5   10001 ", {"5", "10001"}},
                                     TList{"5 \t10001\n 5", {"5", "10001", "5"}},
                                     TList{"5,10001", {"5,10001"}})));

TEST_F(TRelatedTest, ABoxWithoutTextHintHasNothingPreselectedEither) {
  for (const char* key : {"Res_ProdType_Warrant", "Res_Related", "Res_LiqProvider"})
    host.language.SetText(key, "");
  Follow();
  for (const auto& [name, item, field] : Boxes) {
    Update(field, "5 10001");
    EXPECT_EQ(Box(name).currentIndex(), -1) << name;
    EXPECT_EQ(Symbol(), "700") << name;
  }
  EXPECT_TRUE(host.viewHost.TakeNotifications().empty());
}

TEST_F(TRelatedTest, TheThreeListsHaveTheirOwnBoxes) {
  Follow();
  host.Record("700")
      .Set({{Field::WarrantList, "1 2"},
            {Field::RelatedList, "3"},
            {Field::LiquidityProviderList, "4 5 6"}})
      .Update();
  EXPECT_EQ(Items("cmbWarrant"), (TItems{"1", "2"}));
  EXPECT_EQ(Items("cmbRelated"), (TItems{"3"}));
  EXPECT_EQ(Items("cmbLiqProvider"), (TItems{"4", "5", "6"}));
  for (const auto& [name, item, field] : Boxes)
    EXPECT_TRUE(IsShown(item)) << name;
}

TEST_F(TRelatedTest, AListThatGoesHidesItsBoxAgain) {
  Follow();
  for (const auto& [name, item, field] : Boxes) {
    Update(field, "5 10001");
    EXPECT_TRUE(IsShown(item));
    Update(field, "");
    EXPECT_FALSE(IsShown(item));
    EXPECT_TRUE(Items(name).empty());
  }
}

TEST_F(TRelatedTest, AnotherSymbolBringsItsOwnLists) {
  host.Record("5").Set(Field::RelatedList, "700");
  Follow();
  host.Record("700")
      .Set({{Field::WarrantList, "1"},
            {Field::RelatedList, "3"},
            {Field::LiquidityProviderList, "4"}})
      .Update();
  frame->SetSymbol("5");
  EXPECT_TRUE(Items("cmbWarrant").empty());
  EXPECT_EQ(Items("cmbRelated"), TItems{"700"});
  EXPECT_FALSE(IsShown("liWarrant"));
  EXPECT_TRUE(IsShown("liRelated"));
  EXPECT_FALSE(IsShown("liLiqProvider"));
}

struct TTextHint {
  const char* productType;
  const char* list;
  const char* hint;
};

class TTextHintTest : public TRelatedTest, public testing::WithParamInterface<TTextHint> {};

TEST_P(TTextHintTest, TheWarrantBoxIsCaptionedByProductType) {
  host.Record("700").Set(Field::ProductType, GetParam().productType);
  Follow();
  Box("cmbWarrant").setPlaceholderText("as it was");
  Update(135, GetParam().list);
  EXPECT_EQ(Hint("cmbWarrant"), GetParam().hint);
  EXPECT_EQ(Hint("cmbRelated"), "Res_Related");
  EXPECT_EQ(Hint("cmbLiqProvider"), "Res_LiqProvider");
}

INSTANTIATE_TEST_SUITE_P(
    ProductTypes, TTextHintTest,
    testing::Values(TTextHint{"1", "5", "Res_ProdType_Warrant"}, TTextHint{"4", "5", "Res_Linked"},
                    TTextHint{"", "5", "Res_ProdType_Warrant"}, TTextHint{"4", "  ", "Res_Linked"},
                    TTextHint{"1", "  ", "Res_ProdType_Warrant"}, TTextHint{"4", "", "as it was"}));

TEST_F(TRelatedTest, BlanksOnlyHideTheWarrantBoxAndStillCaptionIt) {
  host.Record("700").Set(Field::ProductType, "4");
  Follow();
  Update(135, "   ");
  EXPECT_FALSE(IsShown("liWarrant"));
  EXPECT_EQ(Hint("cmbWarrant"), "Res_Linked");
}

TEST_F(TRelatedTest, AnEmptyListLeavesTheCaptionOfTheSymbolBefore) {
  host.Record("700").Set({{Field::ProductType, "4"}, {Field::WarrantList, "5"}});
  Follow();
  EXPECT_EQ(Hint("cmbWarrant"), "Res_Linked");
  frame->SetSymbol("5");
  EXPECT_EQ(Hint("cmbWarrant"), "Res_Linked");
  frame->SetLanguage(2);
  EXPECT_EQ(Hint("cmbWarrant"), "Res_ProdType_Warrant");
}

TEST_F(TRelatedTest, ChoosingAWarrantOrARelatedInstrumentShowsIt) {
  for (const char* name : {"cmbWarrant", "cmbRelated"}) {
    host.Record("700").Set(
        {{Field::WarrantList, "5 10001 10002"}, {Field::RelatedList, "5 10001 10002"}});
    Follow();
    Choose(name, 1);
    EXPECT_EQ(Typed(), "10001") << name;
    EXPECT_EQ(Symbol(), "10001") << name;
    EXPECT_EQ(host.subscriptions.subscribed, std::vector<std::string>{"10001"}) << name;
    EXPECT_EQ(host.viewHost.TakeNotifications(), std::vector{Constdef::Notify_SymbolChanged});
    EXPECT_EQ(Box(name).count(), 0) << "rebuilt while its own choice was carried out";
    EXPECT_FALSE(IsShown("liWarrant"));
    EXPECT_FALSE(IsShown("liRelated"));
  }
}

TEST_F(TRelatedTest, FromWarrantToWarrantTheBoxIsRebuiltEachTime) {
  for (const char* symbol : {"700", "10001", "10002", "10003"})
    host.Record(symbol).Set(Field::WarrantList, "10001 10002 10003 700");
  Follow();
  for (const auto& [index, symbol] : {std::pair{0, "10001"}, {1, "10002"}, {2, "10003"}}) {
    Choose("cmbWarrant", index);
    EXPECT_EQ(Symbol(), symbol);
    EXPECT_EQ(Box("cmbWarrant").currentIndex(), -1);
    EXPECT_EQ(Box("cmbWarrant").count(), 4);
  }
  EXPECT_EQ(host.subscriptions.SubscriptionCount("10003"), 1);
  EXPECT_EQ(host.subscriptions.SubscriptionCount(), 1);
}

TEST_F(TRelatedTest, ArrowKeysInAClosedBoxGoThroughItToo) {
  for (const char* symbol : {"700", "10001", "10002"})
    host.Record(symbol).Set(Field::RelatedList, "10001 10002");
  Follow();
  Box("cmbRelated").setFocus();
  QTest::keyClick(&Box("cmbRelated"), Qt::Key_Down);
  EXPECT_EQ(Symbol(), "10001");
  QTest::keyClick(&Box("cmbRelated"), Qt::Key_End);
  EXPECT_EQ(Symbol(), "10002");
}

TEST_F(TRelatedTest, ChoosingTheViewsOwnSymbolDoesNothing) {
  host.Record("700").Set(Field::WarrantList, "5 700");
  Follow();
  Choose("cmbWarrant", 1);
  EXPECT_EQ(Symbol(), "700");
  EXPECT_TRUE(host.subscriptions.subscribed.empty());
  EXPECT_TRUE(host.viewHost.TakeNotifications().empty());
}

TEST_F(TRelatedTest, ASymbolThatDoesNotResolveLeavesTheViewOnItsOwn) {
  host.Record("700").Set(Field::WarrantList, "99999");
  Follow();
  Choose("cmbWarrant", 0);
  EXPECT_EQ(Symbol(), "700");
  EXPECT_EQ(Typed(), "99999");
  EXPECT_TRUE(host.viewHost.TakeNotifications().empty());
}

TEST_F(TRelatedTest, ChoosingALiquidityProviderDoesNothing) {
  host.Record("700").Set(Field::LiquidityProviderList, "5 10001");
  Follow();
  Choose("cmbLiqProvider", 1);
  EXPECT_EQ(Box("cmbLiqProvider").currentText(), "10001");
  EXPECT_EQ(Symbol(), "700");
  EXPECT_EQ(Typed(), "700");
  EXPECT_TRUE(host.subscriptions.subscribed.empty());
}

TEST_F(TRelatedTest, ALockedViewsOwnBoxesStillChangeItsSymbol) {
  host.Record("700").Set({{Field::WarrantList, "5"}, {Field::RelatedList, "10001"}});
  host.Record("5").Set(Field::RelatedList, "10001");
  Follow();
  frame->SetLayoutData("LockState=1");
  Choose("cmbWarrant", 0);
  EXPECT_EQ(Symbol(), "5");
  Choose("cmbRelated", 0);
  EXPECT_EQ(Symbol(), "10001");
  Type("10002");
  EXPECT_EQ(Symbol(), "10002");
}

TEST_F(TRelatedTest, AListThatChangesWhileItIsOpenOffersItsNewEntries) {
  host.Record("700").Set(Field::WarrantList, "5 10001");
  Follow();
  auto& box = Box("cmbWarrant");
  QTest::keyClick(&box, Qt::Key_F4);
  Update(135, "10002 10003");
  EXPECT_EQ(Symbol(), "700");
  QTest::keyClick(box.view(), Qt::Key_Home);
  QTest::keyClick(box.view(), Qt::Key_Down);
  QTest::keyClick(box.view(), Qt::Key_Return);
  EXPECT_EQ(Symbol(), "10003");
}

TEST_F(TRelatedTest, AListThatGoesWhileItIsOpenClosesWithItsBox) {
  host.Record("700").Set(Field::WarrantList, "5 10001");
  Follow();
  auto& box = Box("cmbWarrant");
  QTest::keyClick(&box, Qt::Key_F4);
  ASSERT_TRUE(box.view()->isVisible());
  Update(135, "");
  EXPECT_FALSE(IsShown("liWarrant"));
  EXPECT_FALSE(box.view()->isVisible());
  EXPECT_EQ(Symbol(), "700");
}

TEST_F(TRelatedTest, AViewThatIsClosedWhileAListIsOpen) {
  const auto before = host.Registrations();
  host.Record("700").Set(Field::WarrantList, "5 10001");
  Follow();
  QTest::keyClick(&Box("cmbWarrant"), Qt::Key_F4);
  frame.reset();
  EXPECT_EQ(host.Registrations(), before);
}

TEST_F(TRelatedTest, AWheelThatPassesOverABoxChangesNothing) {
  host.Record("700").Set(Field::WarrantList, "5 10001");
  Follow();
  auto& box = Box("cmbWarrant");
  const auto turn = [&box] {
    const auto at = box.rect().center();
    QWheelEvent wheel(at, box.mapToGlobal(at), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&box, &wheel);
  };
  Find<TcxPopupEdit>("edtSymbol").setFocus();
  turn();
  EXPECT_EQ(Symbol(), "700");
  box.setFocus();
  turn();
  EXPECT_EQ(Symbol(), "700") << "with the focus, too";
}

} // namespace
