#include "terminal/windows/ViewHost.h"
#include "host/ConstDef.h"
#include "terminal/Fixture.h"
#include "terminal/script/input/Input.h"
#include "terminal/services/Services.h"
#include "terminal/windows/CaptionBar.h"

#include <QToolButton>

#include <gtest/gtest.h>

namespace Terminal {
namespace {

class TViewHostTest : public testing::Test {
protected:
  TViewPane* Open(const std::string& layoutData = {}) {
    auto* pane = Host.Open(layoutData);
    pane->show();
    Input::Deliver();
    return pane;
  }

  void Announce(int code) { Baseview::SendViewNotify(Descriptor.Last, code); }

  TServices Services;
  Fixture::TDescriptor Descriptor;
  TViewHost Host{Services, Descriptor, [] {
                   return TViewSettings{2, QStringLiteral("Serif"), 11};
                 }};
};

TEST_F(TViewHostTest, GivesANewViewLayoutThenLanguageThenSkinAndTheFont) {
  Open("Symbol=700");
  EXPECT_EQ(Descriptor.Last->Told, (std::vector<std::string>{"layout", "language 2", "skin"}));
  EXPECT_EQ(Descriptor.Last->Layout, "Symbol=700");
  EXPECT_EQ(Descriptor.Last->font().pointSize(), 11);
}

TEST_F(TViewHostTest, OpensAViewWhoseLayoutDataIsRefused) {
  ASSERT_NE(Open("bad"), nullptr);
  EXPECT_EQ(Descriptor.Last->Told, (std::vector<std::string>{"language 2", "skin"}));
}

TEST_F(TViewHostTest, KeepsTheViewAtItsPreferredSize) {
  const auto* pane = Open();
  EXPECT_EQ(Descriptor.Last->size(), QSize(320, 200));
  Descriptor.Last->Width = 400;
  Announce(Constdef::Notify_SizeChanged);
  EXPECT_EQ(Descriptor.Last->width(), 320) << "measured in the midst of a change";
  Input::Deliver();
  EXPECT_EQ(Descriptor.Last->size(), QSize(400, 200));
  EXPECT_EQ(pane->PreferredSize(), QSize(400, 200));
}

TEST_F(TViewHostTest, MeasuresOnceHoweverOftenTheViewAnnounces) {
  Open();
  const int before = Descriptor.Last->WidthAsked;
  for (int i = 0; i < 5; ++i)
    Announce(Constdef::Notify_SizeChanged);
  Input::Deliver();
  EXPECT_EQ(Descriptor.Last->WidthAsked, before + 1);
}

TEST_F(TViewHostTest, DoesNotLoopWithAViewThatAnswersWithAnAnnouncement) {
  Open();
  Descriptor.Last->GrowsWhenAsked = true;
  const int before = Descriptor.Last->WidthAsked;
  Announce(Constdef::Notify_SizeChanged);
  for (int i = 0; i < 5; ++i)
    Input::Deliver();
  EXPECT_EQ(Descriptor.Last->WidthAsked, before + 1);
  EXPECT_EQ(Descriptor.Last->width(), Descriptor.Last->Width);
}

TEST_F(TViewHostTest, NumbersViewsInTheOrderOpenedAndNeverAgain) {
  EXPECT_EQ(Open()->Number(), 1);
  EXPECT_EQ(Open()->Number(), 2);
  Host.Close(1);
  EXPECT_EQ(Host.Pane(1), nullptr);
  EXPECT_EQ(Open()->Number(), 3);
}

TEST_F(TViewHostTest, TellsAnAnnouncementOfAViewThatIsBeingOpened) {
  std::vector<std::pair<int, int>> notified;
  QObject::connect(&Host, &TViewHost::Notified,
                   [&](int view, int code) { notified.emplace_back(view, code); });
  Open();
  Descriptor.AnnouncedWhileOpening = Constdef::Notify_LayoutChanged;
  Open();
  EXPECT_EQ(notified, (std::vector<std::pair<int, int>>{{2, Constdef::Notify_LayoutChanged}}));
}

TEST_F(TViewHostTest, ShowsTheCaptionAndTheButtonsAsTheyBecome) {
  const auto* pane = Open();
  EXPECT_EQ(pane->CaptionTool(0)->toolTip(), QStringLiteral("Lock"));
  EXPECT_EQ(pane->CaptionTool(1), nullptr);
  Descriptor.Last->Lock.Hint = "Unlock";
  Announce(Constdef::Notify_LayoutChanged);
  Input::Deliver();
  EXPECT_EQ(pane->CaptionTool(0)->toolTip(), QStringLiteral("Unlock"));
}

TEST_F(TViewHostTest, ClickOnACaptionButtonReachesTheView) {
  const auto* pane = Open();
  Input::Click(pane->CaptionTool(0));
  EXPECT_EQ(Descriptor.Last->Lock.State, 1);
}

TEST_F(TViewHostTest, PassesLanguageAndSkinToEveryView) {
  Open();
  auto* first = Descriptor.Last;
  Open();
  first->Told.clear();
  Descriptor.Last->Told.clear();
  Host.SetLanguage(1);
  Host.SetSkin();
  const std::vector<std::string> told{"language 1", "skin"};
  EXPECT_EQ(first->Told, told);
  EXPECT_EQ(Descriptor.Last->Told, told);
}

TEST_F(TViewHostTest, PopupsAreNumberedAndGoneWhenClosed) {
  const auto* pane = Open();
  auto* one = Baseview::GetDialogForm(Descriptor.Last, nullptr);
  auto* two = Baseview::GetDialogForm(Descriptor.Last, nullptr);
  EXPECT_TRUE(pane->Popups().empty()) << "hidden until the view shows them";
  one->show();
  two->show();
  one->close();
  Input::Deliver();
  ASSERT_EQ(pane->Popups().size(), 1u);
  EXPECT_EQ(pane->Popups()[0].Index, 2);
  Baseview::GetDialogForm(Descriptor.Last, nullptr)->show();
  EXPECT_EQ(pane->Popups().back().Index, 3);
}

TEST_F(TViewHostTest, TellsWhichCustomViewAViewAskedFor) {
  Open();
  std::pair<int, QString> asked;
  QObject::connect(&Host, &TViewHost::CustomViewAsked, [&](int type, const QString& symbol) {
    asked = {type, symbol};
  });
  const auto parameters = Services.Orders.NewViewParameters();
  parameters->SetSymbol("700");
  Baseview::OpenCustomView(Descriptor.Last, Constdef::View_Chart, 0, parameters.get(), 0, true);
  EXPECT_EQ(asked, (std::pair<int, QString>{513, QStringLiteral("700")}));
}

} // namespace
} // namespace Terminal
