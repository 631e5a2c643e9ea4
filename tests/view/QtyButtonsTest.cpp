// What a quantity button's caption means, and where the captions come from.

#include "view/QtyButtons.h"
#include "view/FormFixture.h"
#include "view/QtyCaptions.h"

using namespace Quorpriceview;
using QtyCaptions::TCaption;

namespace {

class TQtyCaptionTest : public testing::TestWithParam<TCaption> {};

TEST_P(TQtyCaptionTest, StandsForAQuantity) {
  EXPECT_EQ(std::max(QuantityOfCaption(GetParam().caption), 0), GetParam().quantity);
}

INSTANTIATE_TEST_SUITE_P(Configured, TQtyCaptionTest, testing::ValuesIn(QtyCaptions::Captions));

TEST(TQtyCaptionSignTest, ANegativeCaptionIsNegative) {
  EXPECT_EQ(QuantityOfCaption("-5K"), -5'000);
  EXPECT_EQ(QuantityOfCaption("3000M"), -1'294'967'296);
  EXPECT_EQ(QuantityOfCaption(""), 0);
}

class TQtyButtonsTest : public TFormTest {
protected:
  void Configure(const char* key, const char* caption) {
    host.config.Set("QuorPrcBtnCaption", key, caption);
  }

  std::string Captions() const {
    std::string captions;
    for (const auto* button : form.btnQty)
      captions += button->text().toStdString() + ';';
    return captions;
  }
};

TEST_F(TQtyButtonsTest, EachButtonHasItsOwnKey) {
  for (int i = 0; i <= 11; ++i)
    Configure(("Btn" + std::to_string(i)).c_str(), (std::to_string(i) + "K").c_str());
  EXPECT_TRUE(SetQtyButtonCaption(form));
  EXPECT_EQ(Captions(), "1K;2K;3K;4K;5K;6K;7K;8K;9K;10K;");
}

TEST_F(TQtyButtonsTest, OneCaptionIsEnoughAndTheOthersStayBlank) {
  EXPECT_FALSE(SetQtyButtonCaption(form));
  EXPECT_EQ(Captions(), ";;;;;;;;;;");
  Configure("Btn11", "2K");
  EXPECT_FALSE(SetQtyButtonCaption(form));
  Configure("Btn7", "1,000");
  EXPECT_TRUE(SetQtyButtonCaption(form));
  EXPECT_EQ(Captions(), ";;;;;;1,000;;;;");
}

TEST_F(TQtyButtonsTest, AnAmpersandIsNoKey) {
  Configure("Btn1", "R&D");
  SetQtyButtonCaption(form);
  EXPECT_EQ(form.btnQty[0]->text(), "R&&D");
  EXPECT_TRUE(form.btnQty[0]->shortcut().isEmpty());
}

TEST_F(TQtyButtonsTest, ACaptionIsNeverCutAndItsWholeIsTheToolTip) {
  form.setFont(QFont(form.font().family(), 14));
  auto& button = *form.btnQty[0];
  const auto seen = [&](const char* caption) {
    Configure("Btn1", caption);
    SetQtyButtonCaption(form);
    return button.grab().toImage();
  };
  seen("");
  EXPECT_EQ(button.toolTip(), "");
  // The first and the last digit are seen.
  const QImage whole = seen("1,500,000");
  EXPECT_NE(whole, seen("2,500,000"));
  EXPECT_NE(whole, seen("1,500,008"));
  EXPECT_TRUE(button.toolTip().contains("1,500,008"));
  for (const int x : {3, 4, whole.width() - 5, whole.width() - 4})
    for (int y = 3; y < whole.height() - 3; ++y)
      ASSERT_GT(qGray(whole.pixel(x, y)), 160) << "no digit reaches the border";
}

} // namespace
