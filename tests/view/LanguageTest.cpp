// The texts of a view, its caption, and a change of language.

#include "host/RecordFields.h"
#include "view/ViewFixture.h"

#include <QComboBox>

using namespace Platform;

namespace {

namespace Field = Host::Field;

class TLanguageTest : public TViewTest {
protected:
  /// Texts of another language than the one that the view was opened in.
  void Translate(std::initializer_list<const char*> keys) {
    for (const char* key : keys)
      host.language.SetText(key, std::string("new ") + key);
  }

  QWidget* OpenDetail(const char* symbol, const char* productType) {
    Type(symbol);
    host.Record(symbol).Set(Field::ProductType, productType).Update();
    Find<QAction>("mDetail").trigger();
    return host.viewHost.dialogs.back();
  }
};

// Where the texts stand.

struct TText {
  const char* component;
  const char* kind;
  const char* key;
  const char* ending;
};

class TTextTest : public TLanguageTest, public testing::WithParamInterface<TText> {
protected:
  QString Shown() {
    const auto* name = GetParam().component;
    const std::string_view kind = GetParam().kind;
    if (kind == "edit hint")
      return Find<TcxPopupEdit>(name).placeholderText();
    if (kind == "box hint")
      return Find<QComboBox>(name).placeholderText();
    if (kind == "menu")
      return Find<QAction>(name).text();
    if (kind == "item")
      return Find<TdxLayoutItem>(name).Caption();
    if (kind == "label")
      return Find<TcxLabel>(name).text();
    return Find<TcxLabel>(name).toolTip();
  }

  std::string Expected(const char* before) {
    return std::string(before) + GetParam().key + GetParam().ending;
  }
};

TEST_P(TTextTest, IsReadAtCreationAndAtEveryChangeOfLanguage) {
  Open();
  EXPECT_EQ(Shown().toStdString(), Expected(""));
  Translate({GetParam().key});
  EXPECT_EQ(Shown().toStdString(), Expected("")) << "not before the change";
  EXPECT_TRUE(frame->SetLanguage(1));
  EXPECT_EQ(Shown().toStdString(), Expected("new "));
}

constexpr TText Texts[] = {
    {"edtSymbol", "edit hint", "Res_Symbol", ""},
    {"cmbWarrant", "box hint", "Res_ProdType_Warrant", ""},
    {"cmbRelated", "box hint", "Res_Related", ""},
    {"cmbLiqProvider", "box hint", "Res_LiqProvider", ""},
    {"mBrokerName", "menu", "Res_ShowBrokerName", ""},
    {"mDetail", "menu", "Res_DetailInfo", ""},
    {"liRefPrice", "item", "Res_RefPrice", ":"},
    {"liUpperPrice", "item", "Res_UpperPrice", ":"},
    {"liLowerPrice", "item", "Res_LowerPrice", ":"},
    {"lblDelay", "label", "Res_MktDataDelayHint", ""},
    {"lblVCM", "hint", "Res_VCMHint", ""},
    {"lblCAS", "hint", "Res_CASHint", ""},
    {"liPOSRefPrice", "item", "Res_RefPrice", ":"},
    {"liPOSUpperPrice", "item", "Res_UpperPrice", ":"},
    {"liPOSLowerPrice", "item", "Res_LowerPrice", ":"},
    {"liPOSUpperLimit", "item", "Res_POSBuyHi", ":"},
    {"liPOSLowerLimit", "item", "Res_POSSellLow", ":"},
    {"lblPOS", "hint", "Res_POSHint", ""},
};

INSTANTIATE_TEST_SUITE_P(View, TTextTest, testing::ValuesIn(Texts),
                         [](const auto& test) { return std::string(test.param.component); });

TEST_F(TLanguageTest, TheWarrantBoxOfAWarrantListsWhatIsLinked) {
  Open();
  Type("10001");
  host.Record("10001").Set(Field::ProductType, "4").Update();
  Translate({"Res_Linked", "Res_ProdType_Warrant"});
  frame->SetLanguage(2);
  EXPECT_EQ(Find<QComboBox>("cmbWarrant").placeholderText(), "new Res_Linked");
  Type("700");
  host.Record("700").Set(Field::ProductType, "1").Update();
  frame->SetLanguage(2);
  EXPECT_EQ(Find<QComboBox>("cmbWarrant").placeholderText(), "new Res_ProdType_Warrant");
}

TEST_F(TLanguageTest, TheCaptionsOfThePanelsAreLeftToTheirUpdates) {
  Open();
  EXPECT_EQ(Find<TdxLayoutItem>("liVCMCAS").Caption(), "VCM:");
  EXPECT_EQ(Find<TdxLayoutItem>("liPOSCaption").Caption(), "POS:");
  frame->SetLanguage(1);
  EXPECT_EQ(Find<TdxLayoutItem>("liVCMCAS").Caption(), "VCM:");
  EXPECT_EQ(Find<TdxLayoutItem>("liPOSCaption").Caption(), "POS:");
}

TEST_F(TLanguageTest, CaptionButtonsFollowAndTheHostSavesTheLayout) {
  Open();
  Translate({"Res_PriceDepth10", "Res_Less", "Res_Lock", "Res_HideBrokerQueue"});
  frame->SetLanguage(1);
  std::vector<std::string> hints;
  for (const auto* button : frame->GetViewCaptionButtons())
    hints.push_back(button->Hint);
  EXPECT_EQ(hints, (std::vector<std::string>{"new Res_PriceDepth10", "new Res_Less", "new Res_Lock",
                                             "new Res_HideBrokerQueue"}));
  EXPECT_EQ(host.viewHost.TakeNotifications(), std::vector<int>{Constdef::Notify_LayoutChanged});
  EXPECT_TRUE(host.language.selectorsAsAgreed);
}

TEST_F(TLanguageTest, TheDepthGridIsRepaintedWithItsLabels) {
  Open();
  Type("700");
  host.Record("700").Set(Field::BestBid, "318.2").Update();
  TickRefresh();
  EXPECT_EQ(CellText(0, 55), "Res_QuorPrice_Buy");
  EXPECT_EQ(CellText(1, 21), "Res_HighPrice");
  Translate({"Res_QuorPrice_Buy", "Res_HighPrice"});
  EXPECT_GE(RepaintsDuring([this] { frame->SetLanguage(1); }), 1);
  EXPECT_EQ(CellText(0, 55), "new Res_QuorPrice_Buy");
  EXPECT_EQ(CellText(1, 21), "new Res_HighPrice");
}

TEST_F(TLanguageTest, TheMessagePanelsFollow) {
  Open();
  Type("700");
  host.Record("700").Set({{Field::PosMarker, "1"}, {Field::PosReferencePrice, "318.2"}}).Update();
  EXPECT_EQ(Find<TdxLayoutItem>("liPOSCaption").Caption(), "Res_POS:");
  Translate({"Res_POS"});
  frame->SetLanguage(1);
  EXPECT_EQ(Find<TdxLayoutItem>("liPOSCaption").Caption(), "new Res_POS:");
}

TEST_F(TLanguageTest, ThePerClickLineFollows) {
  host.SetFeedType(Constdef::FeedType_PerClick);
  Open();
  Type("700");
  host.Record("700").Set(Field::UpdateTime, "10:15:30").Update();
  EXPECT_EQ(Find<TcxLabel>("lblUpdateTime").text(), "Res_UpdateTime: 10:15:30");
  Translate({"Res_UpdateTime"});
  frame->SetLanguage(1);
  EXPECT_EQ(Find<TcxLabel>("lblUpdateTime").text(), "new Res_UpdateTime: 10:15:30");
}

TEST_F(TLanguageTest, OpenDetailPopUpsFollow) {
  Open();
  auto* first = OpenDetail("10001", "4");
  auto* second = OpenDetail("700", "1");
  EXPECT_EQ(first->windowTitle(), "10001 Res_DetailInfo");
  Translate({"Res_DetailInfo"});
  frame->SetLanguage(2);
  EXPECT_EQ(first->windowTitle(), "10001 new Res_DetailInfo");
  EXPECT_EQ(second->windowTitle(), "700 new Res_DetailInfo");
}

TEST_F(TLanguageTest, TheRowsOfADetailPopUpFollow) {
  Open();
  auto* popup = OpenDetail("10001", "4");
  auto* view = popup->findChild<TcxGrid*>("PriceGrid")->View();
  const auto label = view->Cell(0, view->Columns().front().get())->Text;
  ASSERT_TRUE(label.starts_with("Res_")) << label;
  Translate({label.c_str()});
  frame->SetLanguage(2);
  EXPECT_EQ(view->Cell(0, view->Columns().front().get())->Text, "new " + label);
}

// The caption of the view.

TEST_F(TLanguageTest, TheCaptionNamesTheResolvedSymbol) {
  Open();
  EXPECT_EQ(frame->GetViewCaption(), "Res_QuorPrice");
  Type("700");
  EXPECT_EQ(frame->GetViewCaption(), "Res_QuorPrice - 700");
  QTest::keyClicks(&Find<TcxPopupEdit>("edtSymbol"), "12");
  EXPECT_EQ(frame->GetViewCaption(), "Res_QuorPrice - 700");
  Translate({"Res_QuorPrice"});
  EXPECT_EQ(frame->GetViewCaption(), "new Res_QuorPrice - 700");
}

} // namespace
