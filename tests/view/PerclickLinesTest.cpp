// The last price, change and update time of the per-click form, and asking for a quote.

#include "host/RecordFields.h"
#include "view/ViewFixture.h"

#include <cmath>

using Platform::TcxLabel;

namespace {

namespace Field = Host::Field;

class TPerclickLinesTest : public TViewTest {
protected:
  void Follow(std::optional<int> feedType = Constdef::FeedType_PerClick) {
    host.SetFeedType(feedType);
    Open();
    Type("700");
  }

  std::string Text(const char* label) { return Find<TcxLabel>(label).text().toStdString(); }

  void Refresh() {
    auto* refresh = frame->GetViewCaptionButtons().front();
    ASSERT_EQ(refresh->Hint, "Res_QuoteRefresh");
    refresh->OnClick(nullptr);
  }
};

TEST_F(TPerclickLinesTest, ShowPriceChangeAndTimeOfTheSnapshot) {
  Follow();
  host.Record("700")
      .Set({{Field::Nominal, "318.2"},
            {Field::Change, "+1.2"},
            {Field::ChangePercent, "0.38"},
            {Field::UpdateTime, "09:30:01"}})
      .Update();
  EXPECT_EQ(Text("lblLast"), "318.200");
  EXPECT_EQ(Text("lblChange"), "chg(+1.2)   chg%(0.38)");
  EXPECT_EQ(Text("lblUpdateTime"), "Res_UpdateTime: 09:30:01");
}

TEST_F(TPerclickLinesTest, TheSummaryIsAsHighAsThePricesBesideIt) {
  Follow();
  frame->resize(frame->GetWidth(), frame->GetHeight());
  frame->show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(frame.get()));
  const auto& info = Find<Platform::TcxGrid>("PerclickInfoGrid");
  EXPECT_EQ(info.height(), Find<QWidget>("lgPerclick").height());
  const int row = info.View()->DataRowHeight();
  for (const int value : {1, 3})
    EXPECT_EQ(info.View()->CellBounds(value, ColumnOf("PerclickInfoGrid", 10000)).height(),
              static_cast<int>(std::nearbyint(row * 1.5)));
}

TEST_F(TPerclickLinesTest, TheLastPriceFollowsTheFont) {
  Follow();
  QFont font = frame->font();
  font.setPointSize(14);
  frame->setFont(font);
  EXPECT_EQ(Find<TcxLabel>("lblLast").font().pointSize(), 20);
  EXPECT_EQ(Find<TcxLabel>("lblChange").font().pointSize(), 16);
}

TEST_F(TPerclickLinesTest, BeforeTheFirstSnapshotTheTimeIsEmpty) {
  host.SetFeedType(Constdef::FeedType_PerClick);
  Open();
  EXPECT_EQ(Text("lblUpdateTime"), "Res_UpdateTime: ");
  EXPECT_EQ(Text("lblLast"), "");
  EXPECT_EQ(Text("lblChange"), "   ") << "three blanks between two empty texts";
  Type("700");
  EXPECT_EQ(Text("lblUpdateTime"), "Res_UpdateTime: ");
}

TEST_F(TPerclickLinesTest, ASymbolThatIsLoadedShowsAtOnceAndTheNextReplacesIt) {
  host.Record("700").Set({{Field::Nominal, "318.2"}, {Field::UpdateTime, "09:30:01"}});
  Follow();
  EXPECT_EQ(Text("lblLast"), "318.200");
  Type("5");
  EXPECT_EQ(Text("lblLast"), "");
  EXPECT_EQ(Text("lblUpdateTime"), "Res_UpdateTime: ");
}

TEST_F(TPerclickLinesTest, EveryUpdateIsShown) {
  Follow();
  for (const char* price : {"1", "2", "2", "3"}) {
    host.Record("700").Set(Field::Nominal, price).Update();
    EXPECT_EQ(Text("lblLast"), std::string(price) + ".000");
  }
}

TEST_F(TPerclickLinesTest, TheTimeFollowsTheLanguage) {
  Follow();
  host.Record("700").Set(Field::UpdateTime, "09:30:01").Update();
  host.language.SetText("Res_UpdateTime", "Stand");
  frame->SetLanguage(1);
  EXPECT_EQ(Text("lblUpdateTime"), "Stand: 09:30:01");
}

TEST_F(TPerclickLinesTest, WithoutPerclickControlTheLinesStayEmpty) {
  for (const std::optional<int> feedType : {std::optional<int>(), {1}, {3}}) {
    Follow(feedType);
    host.Record("700")
        .Set({{Field::Nominal, "318.2"},
              {Field::Change, "1"},
              {Field::ChangePercent, "1"},
              {Field::UpdateTime, "09:30"}})
        .Update();
    frame->SetLanguage(1);
    for (const char* label : {"lblLast", "lblChange", "lblUpdateTime"})
      EXPECT_EQ(Text(label), "") << label;
  }
}

TEST_F(TPerclickLinesTest, RefreshAsksForASnapshotOfTheAppliedSymbol) {
  Follow();
  Refresh();
  EXPECT_EQ(host.subscriptions.refreshed, std::vector<std::string>{"700"});
  Type("5");
  Refresh();
  Refresh();
  EXPECT_EQ(host.subscriptions.refreshed, (std::vector<std::string>{"700", "5", "5"}));
}

TEST_F(TPerclickLinesTest, WithoutSymbolRefreshAsksForNothing) {
  host.SetFeedType(Constdef::FeedType_PerClick);
  Open();
  Refresh();
  Type("99999");
  Refresh();
  EXPECT_TRUE(host.subscriptions.refreshed.empty());
}

TEST_F(TPerclickLinesTest, ASymbolThatIsNoLongerAppliedIsNotRefreshed) {
  Follow();
  Find<Platform::TcxPopupEdit>("edtSymbol").SetHint({});
  Refresh();
  EXPECT_TRUE(host.subscriptions.refreshed.empty());
}

TEST_F(TPerclickLinesTest, ThePerclickGridsShowAnUpdateWithoutWaitingForTheTimer) {
  Follow();
  host.Record("700").Set({{Field::BestBid, "318.2"}, {Field::Open, "300"}}).Update();
  const auto text = [this](const char* grid, int row, int tag) {
    return Find<Platform::TcxGrid>(grid).View()->Cell(row, ColumnOf(grid, tag))->Text;
  };
  EXPECT_EQ(text("PerclickPriceGrid", 0, 1), "318.200");
  EXPECT_EQ(text("PerclickInfoGrid", 1, 10000), "300.000");
}

} // namespace
