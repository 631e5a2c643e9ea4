// The boxes of warrants, related instruments and liquidity providers, filled from a control.

#include "view/RelatedInstruments.h"
#include "host/RecordFields.h"
#include "view/FormFixture.h"

using namespace Quorpriceview;

namespace {

namespace Field = Host::Field;

using TItems = std::vector<std::string>;

class TRelatedInstrumentsTest : public TFormTest {
protected:
  void Update(std::initializer_list<std::pair<int, std::string_view>> fields) {
    Record().Set(fields).Update();
    UpdateRelatedInstruments(form, control);
  }

  static TItems Items(const Platform::TcxComboBox* box) {
    TItems items;
    for (int i = 0; i < box->count(); ++i)
      items.push_back(box->itemText(i).toStdString());
    return items;
  }
};

TEST_F(TRelatedInstrumentsTest, EachListHasItsBoxWhichShowsWhileItHasAnEntry) {
  control.SetSymbol("700");
  Update({{Field::WarrantList, "10002  5\t 10001"},
          {Field::RelatedList, "3"},
          {Field::LiquidityProviderList, "  "}});
  EXPECT_EQ(Items(form.cmbWarrant), (TItems{"10002", "5", "10001"}));
  EXPECT_EQ(Items(form.cmbRelated), TItems{"3"});
  EXPECT_EQ(Items(form.cmbLiqProvider), TItems());
  EXPECT_TRUE(form.liWarrant->IsVisibleFlag());
  EXPECT_TRUE(form.liRelated->IsVisibleFlag());
  EXPECT_FALSE(form.liLiqProvider->IsVisibleFlag());
  Update(
      {{Field::WarrantList, ""}, {Field::RelatedList, ""}, {Field::LiquidityProviderList, "4 4"}});
  EXPECT_EQ(Items(form.cmbWarrant), TItems());
  EXPECT_EQ(Items(form.cmbLiqProvider), (TItems{"4", "4"}));
  EXPECT_FALSE(form.liWarrant->IsVisibleFlag());
  EXPECT_FALSE(form.liRelated->IsVisibleFlag());
  EXPECT_TRUE(form.liLiqProvider->IsVisibleFlag());
}

TEST_F(TRelatedInstrumentsTest, FillingABoxChoosesNothing) {
  int changes = 0;
  for (const auto* box : {form.cmbWarrant, form.cmbRelated, form.cmbLiqProvider})
    QObject::connect(box, &QComboBox::currentIndexChanged, &form, [&changes] { ++changes; });
  control.SetSymbol("700");
  Update({{Field::WarrantList, "5 6"},
          {Field::RelatedList, "5 6"},
          {Field::LiquidityProviderList, "5 6"}});
  EXPECT_EQ(changes, 0);
  for (const auto* box : {form.cmbWarrant, form.cmbRelated, form.cmbLiqProvider})
    EXPECT_EQ(box->currentIndex(), -1);
}

TEST_F(TRelatedInstrumentsTest, AWarrantIsCaptionedByWhatIsLinkedAndNoListLeavesTheCaption) {
  control.SetSymbol("700");
  form.cmbWarrant->setPlaceholderText("as it was");
  Update({{Field::ProductType, "4"}, {Field::WarrantList, ""}});
  EXPECT_EQ(form.cmbWarrant->placeholderText(), "as it was");
  Update({{Field::WarrantList, " "}});
  EXPECT_EQ(form.cmbWarrant->placeholderText(), "Res_Linked");
  Update({{Field::ProductType, "1"}, {Field::WarrantList, "5"}});
  EXPECT_EQ(form.cmbWarrant->placeholderText(), "Res_Linked") << "the product type is read once";
  host.Record("5").Set({{Field::ProductType, "1"}, {Field::WarrantList, "700"}});
  control.SetSymbol("5");
  UpdateRelatedInstruments(form, control);
  EXPECT_EQ(form.cmbWarrant->placeholderText(), "Res_ProdType_Warrant");
  EXPECT_EQ(form.cmbRelated->placeholderText(), "");
}

TEST_F(TRelatedInstrumentsTest, TextHintsOfTheLanguage) {
  host.language.SetText("Res_Related", "Verwandt");
  SetRelatedTexts(form, control);
  EXPECT_EQ(form.cmbWarrant->placeholderText(), "Res_ProdType_Warrant");
  EXPECT_EQ(form.cmbRelated->placeholderText(), "Verwandt");
  EXPECT_EQ(form.cmbLiqProvider->placeholderText(), "Res_LiqProvider");
  Record().Set(Field::ProductType, "4");
  control.SetSymbol("700");
  SetRelatedTexts(form, control);
  EXPECT_EQ(form.cmbWarrant->placeholderText(), "Res_Linked");
}

TEST_F(TRelatedInstrumentsTest, TheChosenEntryIsEnteredAsIfItWereTyped) {
  int exits = 0;
  QObject::connect(form.edtSymbol, &Platform::TcxPopupEdit::Exited, &form, [&exits] { ++exits; });
  form.edtSymbol->setText("700");
  form.cmbRelated->addItems({"5", "10001"});
  form.cmbRelated->setCurrentIndex(-1);
  EnterChosen(form, *form.cmbRelated);
  EXPECT_EQ(form.edtSymbol->text(), "700");
  EXPECT_EQ(exits, 0);
  form.cmbRelated->setCurrentIndex(1);
  EnterChosen(form, *form.cmbRelated);
  EXPECT_EQ(form.edtSymbol->text(), "10001");
  EXPECT_EQ(exits, 1);
}

} // namespace
