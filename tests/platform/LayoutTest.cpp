#include "platform/Layout.h"
#include "platform/Grid.h"

#include <QApplication>
#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

using namespace Platform;

namespace {

constexpr int Across = 4; ///< between elements side by side
constexpr int Down = 2;   ///< between elements one below the other

QWidget* Box(int width, int height) {
  auto* box = new QWidget;
  box->setFixedSize(width, height);
  return box;
}

class TLayoutTest : public ::testing::Test {
protected:
  QWidget Window;
  TdxLayoutControl* Control = new TdxLayoutControl("lcGrid", &Window);
  TdxLayoutGroup* Root = Control->Root();
  TdxLayoutGroup* Line = Root->AddGroup("lgLine", TLayoutDirection::Horizontal);
  TdxLayoutItem* Left = Line->AddItem("liLeft", Box(50, 20));
  TdxLayoutItem* Right = Line->AddItem("liRight", Box(30, 26));
  TdxLayoutItem* Below = Root->AddItem("liBelow", Box(70, 40));

  TLayoutTest() {
    Control->resize(300, 200);
    Window.resize(300, 200);
  }

  void Show() {
    Window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&Window));
    Control->ContentHeight(1000);
  }

  QRect Place(QWidget* widget) { return {widget->mapTo(Control, QPoint()), widget->size()}; }
};

} // namespace

TEST_F(TLayoutTest, ElementsHaveTheirNames) {
  EXPECT_EQ(Control->objectName(), "lcGrid");
  EXPECT_EQ(Root->objectName(), "lcGridGroup_Root");
  EXPECT_EQ(Window.findChild<TdxLayoutElement*>("liRight"), Right);
  EXPECT_EQ(Right->Control()->size(), QSize(30, 26));
}

TEST_F(TLayoutTest, ContentIsKnownBeforeAnythingWasShown) {
  EXPECT_EQ(Control->ContentHeight(1000), 26 + Down + 40);
  EXPECT_EQ(Control->ContentWidth(), 50 + Across + 30);
}

TEST_F(TLayoutTest, AHiddenElementTakesNoRoomAtOnce) {
  for (const bool shown : {false, true}) {
    if (shown)
      Show();
    Right->SetVisibleFlag(false);
    EXPECT_EQ(Control->ContentHeight(1000), 20 + Down + 40);
    EXPECT_EQ(Control->ContentWidth(), 70);
    Line->SetVisibleFlag(false);
    EXPECT_EQ(Control->ContentHeight(1000), 40);
    Line->SetVisibleFlag(true);
    Right->SetVisibleFlag(true);
    EXPECT_EQ(Control->ContentHeight(1000), 26 + Down + 40);
    EXPECT_EQ(Control->ContentWidth(), 50 + Across + 30);
  }
}

TEST_F(TLayoutTest, TheVisibleFlagIsTheElementsOwn) {
  EXPECT_TRUE(Right->IsVisibleFlag());
  Line->SetVisibleFlag(false);
  EXPECT_TRUE(Right->IsVisibleFlag());
  EXPECT_FALSE(Line->IsVisibleFlag());
  Right->SetVisibleFlag(false);
  Line->SetVisibleFlag(true);
  EXPECT_FALSE(Right->IsVisibleFlag());
}

TEST_F(TLayoutTest, AnEmptyGroupTakesNoRoom) {
  Left->SetVisibleFlag(false);
  Right->SetVisibleFlag(false);
  EXPECT_LE(Control->ContentHeight(1000), Down + 40);
}

TEST_F(TLayoutTest, ContentFollowsAControlsSizeAtOnce) {
  for (const bool shown : {false, true}) {
    if (shown)
      Show();
    Below->Control()->setFixedHeight(120);
    Left->Control()->setFixedWidth(200);
    EXPECT_EQ(Control->ContentHeight(1000), 26 + Down + 120);
    EXPECT_EQ(Control->ContentWidth(), 200 + Across + 30);
    Below->Control()->setFixedHeight(40);
    Left->Control()->setFixedWidth(50);
    EXPECT_EQ(Control->ContentHeight(1000), 26 + Down + 40);
  }
}

TEST_F(TLayoutTest, AnElementAddedOnTheScreenCountsAtOnce) {
  Show();
  auto* group = Root->AddGroup("lgMore", TLayoutDirection::Vertical);
  group->AddItem("liMore", Box(10, 31));
  EXPECT_EQ(Control->ContentHeight(1000), 26 + Down + 40 + Down + 31);
}

TEST_F(TLayoutTest, LiesAtTheTopWhateverRoomThereIs) {
  Show();
  EXPECT_EQ(Root->geometry(), QRect(0, 0, 300, 68));
  Control->resize(300, 900);
  EXPECT_EQ(Root->geometry(), QRect(0, 0, 300, 68));
  EXPECT_EQ(Place(Below->Control()), QRect(0, 28, 70, 40));
}

TEST_F(TLayoutTest, StretchInsideDoesNotMakeTheContentHigher) {
  Root->AddGroup("lgColumn", TLayoutDirection::Vertical)->AddStretch();
  Root->AddStretch();
  Show();
  EXPECT_EQ(Root->height(), Control->ContentHeight(1000));
  EXPECT_EQ(Place(Below->Control()), QRect(0, 28, 70, 40));
}

TEST_F(TLayoutTest, AFixedControlIsNotStretched) {
  auto* grid = new TcxGrid("PriceGrid");
  grid->setFixedSize(123, 45);
  auto* group = Root->AddGroup("lgGrid", TLayoutDirection::Horizontal);
  auto* item = group->AddItem("liGrid", grid);
  group->AddStretch();
  Show();
  EXPECT_EQ(Place(grid), QRect(0, 70, 123, 45));
  EXPECT_EQ(item->size(), QSize(123, 45));
}

TEST_F(TLayoutTest, FreeWidthGoesToWhoTakesIt) {
  auto* edit = new QLineEdit;
  edit->setMinimumWidth(100);
  Line->AddItem("liEdit", edit, true);
  auto* last = Line->AddItem("liLast", Box(40, 20));
  Line->AddStretch();
  Show();
  const int taken = 50 + 30 + 40 + 3 * Across;
  EXPECT_EQ(edit->width(), 300 - taken);
  EXPECT_EQ(Place(last->Control()).right(), 299);
  Left->SetVisibleFlag(false);
  Control->ContentHeight(1000);
  EXPECT_EQ(edit->width(), 300 - taken + 50 + Across);
}

TEST_F(TLayoutTest, StretchKeepsElementsAtTheStart) {
  Line->AddStretch();
  Show();
  EXPECT_EQ(Place(Left->Control()).left(), 0);
  EXPECT_EQ(Place(Right->Control()).left(), 50 + Across);
}

TEST_F(TLayoutTest, ElementsOfALineAreCentredUpAndDown) {
  Line->AddStretch();
  Show();
  EXPECT_EQ(Place(Left->Control()).top(), 3);
  EXPECT_EQ(Place(Right->Control()).top(), 0);
}

TEST_F(TLayoutTest, AlignPlacesAnElementByItself) {
  Root->Align(Below, Qt::AlignHCenter);
  Show();
  EXPECT_EQ(Place(Below->Control()).left(), (300 - 70) / 2);
  Root->Align(Below, Qt::AlignRight);
  Control->ContentHeight(1000);
  EXPECT_EQ(Place(Below->Control()).right(), 299);
}

TEST_F(TLayoutTest, AnItemsCaptionStandsBeforeItsControl) {
  Line->AddStretch();
  const int without = Control->ContentWidth();
  Left->SetCaption("Ref Px");
  EXPECT_EQ(Left->Caption(), "Ref Px");
  Show();
  const auto* caption = Left->findChild<QLabel*>();
  EXPECT_TRUE(caption->isVisible());
  EXPECT_EQ(caption->text(), "Ref Px");
  EXPECT_LT(caption->geometry().right(), Left->Control()->x());
  EXPECT_EQ(Control->ContentWidth(), without + caption->sizeHint().width() + Across);
  Left->SetCaption("");
  EXPECT_EQ(Control->ContentWidth(), without);
}

TEST_F(TLayoutTest, AGroupShowsItsCaptionOnlyWhenTold) {
  Line->SetCaption("Prices");
  EXPECT_EQ(Line->Caption(), "Prices");
  EXPECT_EQ(Control->ContentHeight(1000), 26 + Down + 40);
  Line->ShowCaption();
  const auto* caption = Line->findChild<QLabel*>({}, Qt::FindDirectChildrenOnly);
  EXPECT_EQ(caption->text(), "Prices");
  EXPECT_EQ(Control->ContentHeight(1000), caption->sizeHint().height() + Down + 26 + Down + 40);
  Line->SetCaption("Other");
  EXPECT_EQ(caption->text(), "Other");
}

TEST_F(TLayoutTest, AGroupOfFixedHeightLeavesItsItemsAlone) {
  auto* group = Root->AddGroup("lgPrice", TLayoutDirection::Vertical);
  auto* label = group->AddItem("liLast", new QLabel("1.23"));
  group->AddItem("liGrid", Box(20, 30));
  group->setFixedHeight(150);
  Show();
  EXPECT_EQ(label->height(), label->sizeHint().height());
  EXPECT_EQ(Control->ContentHeight(1000), 26 + Down + 40 + Down + 150);
}

TEST_F(TLayoutTest, AWrappingGroupGoesOnInAnotherLineWhereItsElementsDoNotFit) {
  Line->SetVisibleFlag(false);
  Below->SetVisibleFlag(false);
  auto* group = Root->AddGroup("lgLines", TLayoutDirection::Wrapping);
  group->SetSpacing(10);
  auto* edit = new QWidget;
  edit->setMinimumSize(100, 20);
  auto* taker = group->AddItem("liTaker", edit, true);
  auto* second = group->AddItem("liSecond", Box(100, 20));
  auto* third = group->AddItem("liThird", Box(100, 20));
  EXPECT_EQ(Control->ContentHeight(320), 20);
  EXPECT_EQ(Control->ContentHeight(319), 20 + Down + 20);
  EXPECT_EQ(Control->ContentHeight(150), 3 * 20 + 2 * Down);
  Control->resize(250, 200);
  Show();
  EXPECT_EQ(taker->width(), 250 - 10 - 100) << "takes what is free in its line";
  EXPECT_EQ(second->x(), 150);
  EXPECT_EQ(third->pos(), QPoint(0, 20 + Down));
  second->SetVisibleFlag(false);
  EXPECT_EQ(Control->ContentHeight(250), 20) << "what is hidden takes no room";
}
