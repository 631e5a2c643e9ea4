// The broker hint, told where the mouse is.

#include "view/BrokerHint.h"
#include "host/RecordFields.h"
#include "view/FormFixture.h"

#include "host/view/GridDataSource.h"

using namespace Quorpriceview;

namespace {

namespace Field = Host::Field;

/// A grid that shows the price, the first two queue columns of the bid side and the first of the
/// ask side, each 40 wide, with rows 20 high.
class TBrokerHintTest : public TFormTest {
protected:
  TBrokerHintTest() {
    for (const auto& [id, name] :
         {std::pair{"0001", "First"}, {"0002", "Second"}, {"0013", "Thirteenth"}})
      host.market.SetBroker(id, name);
    Record().Set(Field::BidQueue, "1,2,3,4,5,6,7,8,9,10,11,12,13").Set(Field::AskQueue, "2");
    control.SetSymbol("700");
    for (const int tag : {1, 55, 56, 65})
      form.PriceGridView->CreateColumn(tag, 40, false);
    form.PriceGridView->SetDataRowHeight(20);
    form.PriceGridView->SetDataSource(&source);
  }
  ~TBrokerHintTest() override { form.PriceGridView->SetDataSource(nullptr); }

  void MoveTo(int row, int column) {
    hint.PriceGridViewMouseMove(control, {40 * column + 5, 20 * row + 5});
  }
  void Tick(int times) {
    for (int i = 0; i < times; ++i)
      hint.ShowHintTimer();
  }
  std::string Shown() { return form.HintCtrl->VisibleCaption().toStdString(); }

  static constexpr int Price = 0, Bid1 = 1, Bid2 = 2, Ask1 = 3, Beside = 4;

  /// Answers for the control, which the fixture owns.
  struct TSource : Platform::TcxCustomDataSource {
    int GetRecordCount() const override { return 13; }
    void GetDisplayText(int, int, std::string& text) const override { text.clear(); }
  } source;
  TBrokerHint hint{form};
};

TEST_F(TBrokerHintTest, NamesTheBrokerUnderTheMouseAndStaysAlongTheRow) {
  MoveTo(1, Bid1);
  EXPECT_EQ(Shown(), "First");
  MoveTo(1, Bid2);
  EXPECT_EQ(Shown(), "First");
  MoveTo(2, Ask1);
  EXPECT_EQ(Shown(), "First") << "an empty place leaves the hint that is shown";
  MoveTo(1, Ask1);
  EXPECT_EQ(Shown(), "Second");
  MoveTo(2, Bid1);
  MoveTo(1, Bid2);
  EXPECT_EQ(Shown(), "Thirteenth");
}

TEST_F(TBrokerHintTest, OtherColumnsAndTheRoomBelowChangeNothing) {
  MoveTo(1, Price);
  EXPECT_EQ(Shown(), "");
  MoveTo(1, Bid1);
  MoveTo(2, Price);
  MoveTo(13, Bid1);
  MoveTo(13, Beside);
  Tick(10);
  MoveTo(1, Bid1);
  EXPECT_EQ(Shown(), "") << "row 1 is still the last one";
}

TEST_F(TBrokerHintTest, TheLastRowIsForgottenRightOfTheColumnsAndWhenTold) {
  MoveTo(1, Bid1);
  hint.Hide();
  MoveTo(1, Bid1);
  EXPECT_EQ(Shown(), "") << "hiding forgets nothing";
  MoveTo(4, Beside);
  MoveTo(1, Bid1);
  EXPECT_EQ(Shown(), "First");
  hint.Hide();
  hint.ForgetRow();
  MoveTo(1, Bid1);
  EXPECT_EQ(Shown(), "First");
}

TEST_F(TBrokerHintTest, GoesWithTheTenthTick) {
  Tick(25);
  MoveTo(1, Bid1);
  Tick(9);
  EXPECT_EQ(Shown(), "First");
  Tick(1);
  EXPECT_EQ(Shown(), "");
}

TEST_F(TBrokerHintTest, EveryOtherRowStartsTheCountAgain) {
  MoveTo(1, Bid1);
  Tick(9);
  MoveTo(1, Bid2);
  MoveTo(2, Ask1); // empty
  Tick(9);
  EXPECT_EQ(Shown(), "First");
  hint.Hide();
  MoveTo(1, Ask1);
  Tick(9);
  EXPECT_EQ(Shown(), "Second");
  Tick(1);
  EXPECT_EQ(Shown(), "");
}

TEST_F(TBrokerHintTest, BothFontsTakeTheSize) {
  hint.SetFontSize(13);
  EXPECT_EQ(form.HintCtrl->Font.pointSize(), 13);
  EXPECT_EQ(form.HintCtrl->CaptionFont.pointSize(), 13);
}

} // namespace
