// Detail pop-ups: when the menu offers one, what it shows, and every way in which it goes.

#include "host/RecordFields.h"
#include "view/ViewFixture.h"

#include <QAction>
#include <QApplication>
#include <QMenu>

#include <algorithm>

using Platform::TcxGrid;

namespace {

namespace Field = Host::Field;

using TRows = std::vector<std::pair<std::string, std::string>>;

/// Swallows the close events of the window that it watches.
class TRefusal : public QObject {
public:
  bool eventFilter(QObject*, QEvent* event) override { return event->type() == QEvent::Close; }
};

/// How a tool window looked when it was shown.
class TShowWatch : public QObject {
public:
  TShowWatch() { qApp->installEventFilter(this); }

  bool eventFilter(QObject* watched, QEvent* event) override {
    const auto* window = qobject_cast<QWidget*>(watched);
    if (window && event->type() == QEvent::Show && window->windowType() == Qt::Tool) {
      Caption = window->windowTitle().toStdString();
      Size = window->size();
    }
    return false;
  }

  std::string Caption;
  QSize Size;
};

class TDetailsTest : public TViewTest {
protected:
  TDetailsTest() {
    host.Record("700").Set({{Field::ProductType, "1"},
                            {Field::Nominal, "310"},
                            {Field::IssueSize, "2000"},
                            {Field::PriceEarnings, "15.5"},
                            {Field::DividendYield, "2.1"}});
    host.Record("10001").Set({{Field::ProductType, "4"},
                              {Field::ExpiryDate, "2030-06-27"},
                              {Field::StrikePrice, "300"},
                              {Field::CallPut, "C"}});
    host.Record("5").Set(Field::ProductType, "2");
  }

  void Follow(const char* symbol = "700") {
    Open();
    Type(symbol);
  }

  QAction& Entry() { return Find<QAction>("mDetail"); }

  QWidget& OpenPopup() {
    const auto before = host.viewHost.dialogs.size();
    Entry().trigger();
    if (host.viewHost.dialogs.size() != before + 1)
      throw std::runtime_error("no pop-up");
    return *host.viewHost.dialogs.back();
  }

  static Platform::TcxGridTableView& ViewOf(const QWidget& popup) {
    return *popup.findChild<TcxGrid*>(QStringLiteral("PriceGrid"))->View();
  }

  static TRows Rows(const QWidget& popup) {
    const auto& view = ViewOf(popup);
    TRows rows;
    for (int row = 0; row < view.RecordCount(); ++row)
      rows.emplace_back(view.Cell(row, view.Columns()[0].get())->Text,
                        view.Cell(row, view.Columns()[1].get())->Text);
    return rows;
  }

  static std::string Caption(const QWidget& popup) { return popup.windowTitle().toStdString(); }

  /// What a closed window waits for.
  static void FreeClosedWindows() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  int OpenDialogs() const {
    return static_cast<int>(std::count_if(host.viewHost.dialogs.begin(),
                                          host.viewHost.dialogs.end(),
                                          [](const auto& dialog) { return !dialog.isNull(); }));
  }
};

struct TOffer {
  const char* productType;
  bool offered;
};

class TOfferTest : public TDetailsTest, public testing::WithParamInterface<TOffer> {};

TEST_P(TOfferTest, DependsOnTheProductType) {
  host.Record("700").Set(Field::ProductType, GetParam().productType);
  Follow();
  EXPECT_EQ(Entry().isVisible(), GetParam().offered);

  auto& menu = Find<QMenu>("PopUpMenu");
  menu.popup({0, 0});
  const auto place = menu.actionGeometry(&Entry());
  EXPECT_EQ(!place.isEmpty(), GetParam().offered);
  if (GetParam().offered)
    QTest::mouseClick(&menu, Qt::LeftButton, {}, place.center());
  menu.hide();
  EXPECT_EQ(host.viewHost.dialogs.size(), GetParam().offered ? 1u : 0u);
}

INSTANTIATE_TEST_SUITE_P(ProductTypes, TOfferTest,
                         testing::Values(TOffer{"", false}, TOffer{"-1", false}, TOffer{"0", false},
                                         TOffer{"1", true}, TOffer{"2", false}, TOffer{"3", false},
                                         TOffer{"4", true}, TOffer{"5", false}, TOffer{"14", false},
                                         TOffer{"x", false}));

TEST_F(TDetailsTest, TheOfferFollowsTheSymbol) {
  Open();
  EXPECT_FALSE(Entry().isVisible());
  Type("700");
  EXPECT_TRUE(Entry().isVisible());
  Type("5");
  EXPECT_FALSE(Entry().isVisible());
  Type("10001");
  EXPECT_TRUE(Entry().isVisible());
}

TEST_F(TDetailsTest, TheOfferComesWithARecordThatIsLateToArrive) {
  host.Record("700").SetState(Constdef::RecordState_None);
  Follow();
  EXPECT_FALSE(Entry().isVisible());
  host.Record("700").SetState(Constdef::RecordState_Ready).Update();
  EXPECT_TRUE(Entry().isVisible());
}

TEST_F(TDetailsTest, AStockOpensALowWindow) {
  Follow();
  const TShowWatch shown;
  const auto& popup = OpenPopup();
  EXPECT_EQ(popup.size(), QSize(210, 100));
  EXPECT_EQ(Caption(popup), "700 Res_DetailInfo");
  EXPECT_TRUE(popup.isVisible());
  EXPECT_FALSE(popup.isModal());
  EXPECT_EQ(Rows(popup), (TRows{{"Res_IssuedShares", "2,000"},
                                {"Res_MarketCap", "700 $620,000"},
                                {"Res_PE", "15.5"},
                                {"Res_Yield", "2.1"}}));
  EXPECT_EQ(shown.Caption, "700 Res_DetailInfo") << "captioned before it was shown";
  EXPECT_EQ(shown.Size, QSize(210, 100));
}

TEST_F(TDetailsTest, AWarrantOpensAHighWindow) {
  Follow("10001");
  const TShowWatch shown;
  const auto& popup = OpenPopup();
  EXPECT_EQ(popup.size(), QSize(210, 200));
  EXPECT_EQ(shown.Size, QSize(210, 200));
  EXPECT_EQ(Caption(popup), "10001 Res_DetailInfo");
  ASSERT_EQ(Rows(popup).size(), 9u);
  EXPECT_EQ(Rows(popup)[1], std::pair(std::string("Res_ExpiryDate"), std::string("2030-06-27")));
  EXPECT_EQ(Rows(popup)[3], std::pair(std::string("Res_CallPut"), std::string("Res_Call")));
}

TEST_F(TDetailsTest, TheGridFillsTheWindowWithItsTwoColumns) {
  Follow();
  auto& popup = OpenPopup();
  QCoreApplication::processEvents();
  const auto& grid = *popup.findChild<TcxGrid*>(QStringLiteral("PriceGrid"));
  EXPECT_EQ(QRect(grid.mapTo(&popup, QPoint()), grid.size()), popup.rect());
  const auto& columns = ViewOf(popup).Columns();
  ASSERT_EQ(columns.size(), 2u);
  for (std::size_t i = 0; i < 2; ++i) {
    EXPECT_EQ(columns[i]->Tag, static_cast<int>(i));
    EXPECT_EQ(columns[i]->Width, 100);
    EXPECT_EQ(columns[i]->RightAligned, i == 1);
  }
}

TEST_F(TDetailsTest, AnUpdateShowsInThePopupAtOnce) {
  Follow();
  const auto& popup = OpenPopup();
  host.Record("700").Set({{Field::Nominal, "320"}, {Field::PriceEarnings, "16"}}).Update();
  EXPECT_EQ(Rows(popup)[1].second, "700 $640,000");
  EXPECT_EQ(Rows(popup)[2].second, "16");
}

TEST_F(TDetailsTest, APopupKeepsTheSymbolThatItWasOpenedWith) {
  Follow();
  const auto& first = OpenPopup();
  Type("10001");
  const auto& second = OpenPopup();
  EXPECT_EQ(Caption(first), "700 Res_DetailInfo");
  EXPECT_EQ(Rows(first)[0].first, "Res_IssuedShares");
  EXPECT_EQ(Caption(second), "10001 Res_DetailInfo");
  EXPECT_EQ(Rows(second).size(), 9u);
  EXPECT_EQ(host.subscriptions.SubscriptionCount("700"), 1) << "the pop-up's own";
}

TEST_F(TDetailsTest, AChangeOfLanguageTranslatesEveryPopup) {
  Follow();
  const auto& first = OpenPopup();
  Type("10001");
  const auto& second = OpenPopup();
  host.language.SetText("Res_DetailInfo", "Angaben");
  host.language.SetText("Res_IssuedShares", "Aktien");
  host.language.SetText("Res_ExpiryDate", "Ende");
  frame->SetLanguage(2);
  EXPECT_EQ(Caption(first), "700 Angaben");
  EXPECT_EQ(Caption(second), "10001 Angaben");
  EXPECT_EQ(Rows(first)[0].first, "Aktien");
  EXPECT_EQ(Rows(second)[1].first, "Ende");
  EXPECT_EQ(Entry().text(), "Angaben");
}

TEST_F(TDetailsTest, APopupWithoutSymbolHasACaptionThatBeginsWithABlank) {
  Open();
  Entry().setVisible(true);
  const auto& popup = OpenPopup();
  EXPECT_EQ(popup.size(), QSize(210, 100));
  EXPECT_TRUE(Rows(popup).empty());
  host.language.SetText("Res_DetailInfo", "Angaben");
  frame->SetLanguage(2);
  EXPECT_EQ(Caption(popup), " Angaben");
}

TEST_F(TDetailsTest, TwoPopupsOfOneSymbolAreTwoWindows) {
  Follow();
  auto& first = OpenPopup();
  auto& second = OpenPopup();
  ASSERT_NE(&first, &second);
  EXPECT_EQ(host.subscriptions.SubscriptionCount("700"), 3);

  first.close();
  FreeClosedWindows();
  EXPECT_EQ(OpenDialogs(), 1);
  EXPECT_EQ(host.subscriptions.SubscriptionCount("700"), 2);
  host.language.SetText("Res_DetailInfo", "Angaben");
  frame->SetLanguage(2);
  EXPECT_EQ(Caption(second), "700 Angaben") << "the other is registered still";
}

TEST_F(TDetailsTest, AClosedPopupGivesBackItsRegistrationsAtOnce) {
  Follow("10001");
  const auto before = host.Registrations();
  auto& popup = OpenPopup();
  EXPECT_NE(host.Registrations(), before);
  popup.close();
  EXPECT_EQ(host.Registrations(), before);
  host.Record("10001").Set(Field::Premium, "1").Update();
  frame->SetLanguage(1);
  EXPECT_EQ(OpenDialogs(), 1) << "the window waits for its own event";
  FreeClosedWindows();
  EXPECT_EQ(OpenDialogs(), 0);
}

TEST_F(TDetailsTest, AViewThatClosesTakesItsPopupsAlong) {
  const auto before = host.Registrations();
  Follow();
  OpenPopup();
  OpenPopup();
  Type("10001");
  OpenPopup();
  frame.reset();
  EXPECT_EQ(OpenDialogs(), 0);
  EXPECT_EQ(host.Registrations(), before);
}

TEST_F(TDetailsTest, PopupsAndViewsCloseInEveryOrder) {
  const auto before = host.Registrations();
  std::vector order{0, 1, 2, 3, 4};
  do {
    std::unique_ptr<Quorpriceview::TQuorPriceFrame> views[2];
    std::vector<QPointer<QWidget>> popups;
    for (auto& view : views) {
      view = std::make_unique<Quorpriceview::TQuorPriceFrame>(nullptr);
      view->SetSymbol("700");
      view->findChild<QAction*>("mDetail")->trigger();
      popups.push_back(host.viewHost.dialogs.back());
    }
    views[0]->findChild<QAction*>("mDetail")->trigger();
    popups.push_back(host.viewHost.dialogs.back());

    for (const int closing : order) {
      if (closing < 2)
        views[closing].reset();
      else if (auto* popup = popups[static_cast<std::size_t>(closing - 2)].data())
        popup->close();
      host.Record("700").Set(Field::PriceEarnings, std::to_string(closing)).Update();
      if (order[0] % 2 == 0) // half of the orders free a closed window only at the end
        FreeClosedWindows();
    }
    EXPECT_EQ(host.Registrations(), before);
    FreeClosedWindows();
    EXPECT_EQ(OpenDialogs(), 0);
    host.viewHost.dialogs.clear();
  } while (std::next_permutation(order.begin(), order.end()));
}

TEST_F(TDetailsTest, AWindowThatTheHostFreesWithoutClosingIsForgotten) {
  const auto before = host.Registrations();
  Follow();
  auto* freed = &OpenPopup();
  const auto& left = OpenPopup();
  delete freed;
  EXPECT_EQ(host.subscriptions.SubscriptionCount("700"), 2);
  host.language.SetText("Res_DetailInfo", "Angaben");
  frame->SetLanguage(2);
  EXPECT_EQ(Caption(left), "700 Angaben");
  frame.reset();
  EXPECT_EQ(host.Registrations(), before);
}

TEST_F(TDetailsTest, AWindowThatGoesWithAnotherDoesNotStopTheView) {
  const auto before = host.Registrations();
  Follow();
  for (int i = 0; i < 3; ++i)
    OpenPopup();
  auto windows = host.viewHost.dialogs;
  std::sort(windows.begin(), windows.end(),
            [](const auto& left, const auto& right) { return left.data() < right.data(); });
  QObject::connect(windows[0], &QObject::destroyed, [last = windows[2]] { delete last.data(); });
  frame.reset();
  EXPECT_EQ(OpenDialogs(), 0);
  EXPECT_EQ(host.Registrations(), before);
}

TEST_F(TDetailsTest, AWindowThatRefusesToCloseGoesWithItsView) {
  const auto before = host.Registrations();
  Follow();
  auto& popup = OpenPopup();
  TRefusal refusal;
  popup.installEventFilter(&refusal);
  EXPECT_EQ(OpenDialogs(), 1);
  frame.reset();
  EXPECT_EQ(OpenDialogs(), 0);
  EXPECT_EQ(host.Registrations(), before);
}

TEST_F(TDetailsTest, AHiddenWindowGoesOnFollowingItsSymbol) {
  Follow();
  auto& popup = OpenPopup();
  host.Record("700").SetState(Constdef::RecordState_None).Update();
  EXPECT_EQ(Rows(popup).size(), 4u) << "rows stay until another symbol";
  popup.hide();
  host.Record("700").SetState(Constdef::RecordState_Ready).Set(Field::PriceEarnings, "17").Update();
  popup.show();
  EXPECT_EQ(Rows(popup)[2].second, "17");
}

} // namespace
