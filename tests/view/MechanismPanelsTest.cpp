// The message line, the panels of the market mechanisms and their markers, filled from a control.

#include "view/MechanismPanels.h"
#include "host/RecordFields.h"
#include "view/FormFixture.h"

using namespace Quorpriceview;
using Platform::TcxLabel;

namespace {

namespace Field = Host::Field;

constexpr System::TColor VcmColour = 0x0000AA, CasColour = 0x00BB00, PosColour = 0xCC0000;

using TFields = std::vector<std::pair<int, std::string>>;
using TTexts = std::vector<std::string>;

const TFields Vcm = {{Field::VcmMarker, "1"},      {Field::VcmStartTime, "10:00"},
                     {Field::VcmEndTime, "10:05"}, {Field::VcmReferencePrice, "50"},
                     {Field::VcmLowerPrice, "45"}, {Field::VcmUpperPrice, "55"}};
const TFields Cas = {{Field::CasMarker, "1"},          {Field::CasReferencePrice, "60"},
                     {Field::CasLowerPrice, "54"},     {Field::CasUpperPrice, "66"},
                     {Field::ImbalanceDirection, "2"}, {Field::ImbalanceQuantity, "7000"}};
const TFields Pos = {{Field::PosMarker, "1"},          {Field::PosReferencePrice, "70"},
                     {Field::PosLowerPrice, "63"},     {Field::PosUpperPrice, "77"},
                     {Field::PosSellLowerLimit, "64"}, {Field::PosBuyUpperLimit, "76"},
                     {Field::ImbalanceDirection, "3"}, {Field::ImbalanceQuantity, "900"}};
const TFields Message = {{Field::FirstMessage, "Left"}, {Field::SecondMessage, "Right"}};

class TMechanismPanelsTest : public TFormTest {
protected:
  TMechanismPanelsTest() {
    host.lookAndFeel.namedColours = {
        {"coVCMBgColor", VcmColour}, {"coCASBgColor", CasColour}, {"coPOSBgColor", PosColour}};
    control.SetSymbol("700");
  }

  /// Whether the view has another height.
  bool Update(const TFields& fields) {
    for (const auto& [field, text] : fields)
      Record().Set(field, text);
    Record().Update();
    return UpdateMechanismPanels(form, control);
  }

  std::vector<bool> Panels() const {
    return {form.lgInfo->IsVisibleFlag(), form.lgVCMCAS->IsVisibleFlag(),
            form.lgPOS->IsVisibleFlag()};
  }
  std::vector<bool> Markers() const {
    return {form.liVCM->IsVisibleFlag(), form.liCAS->IsVisibleFlag(), form.liPOS->IsVisibleFlag()};
  }
  TTexts VcmCasTexts() const {
    return {Text(form.lblVCMCAS), Text(form.lblRefPrice), Text(form.lblUpperPrice),
            Text(form.lblLowerPrice)};
  }
  TTexts PosTexts() const {
    return {Text(form.lblPOSCaption),    Text(form.lblPOSRefPrice),   Text(form.lblPOSUpperPrice),
            Text(form.lblPOSLowerPrice), Text(form.lblPOSUpperLimit), Text(form.lblPOSLowerLimit)};
  }
};

TEST_F(TMechanismPanelsTest, VolatilityControl) {
  EXPECT_TRUE(Update(Vcm));
  EXPECT_EQ(Panels(), (std::vector{false, true, false}));
  EXPECT_EQ(Markers(), (std::vector{true, false, false}));
  EXPECT_EQ(form.liVCMCAS->Caption(), "Res_VCM:");
  EXPECT_EQ(form.lblVCMCASColor->Color(), VcmColour);
  EXPECT_EQ(VcmCasTexts(), (TTexts{"10:00-10:05", "700@50", "700@55", "700@45"}));
  EXPECT_EQ(PosTexts(), TTexts(6));
}

TEST_F(TMechanismPanelsTest, TheClosingAuctionWinsOverVolatilityControl) {
  const TTexts auction{"Res_Bid_Short>Res_Side_Sell_Short: 7,000 sh", "700@60", "700@66", "700@54"};
  Update(Vcm);
  EXPECT_FALSE(Update(Cas)) << "the same panel";
  EXPECT_EQ(Markers(), (std::vector{true, true, false}));
  EXPECT_EQ(form.liVCMCAS->Caption(), "Res_CAS:");
  EXPECT_EQ(form.lblVCMCASColor->Color(), CasColour);
  EXPECT_EQ(VcmCasTexts(), auction);
  EXPECT_FALSE(Update({{Field::VcmMarker, "0"}}));
  EXPECT_EQ(VcmCasTexts(), auction);
  EXPECT_TRUE(Update({{Field::CasMarker, "0"}}));
  EXPECT_EQ(Panels(), (std::vector{false, false, false}));
}

TEST_F(TMechanismPanelsTest, PreOpeningSession) {
  EXPECT_EQ(form.liPOSCaption->Caption(), "POS:") << "as designed until it is needed";
  EXPECT_EQ(form.lblPOSColor->Color(), std::nullopt);
  EXPECT_TRUE(Update(Pos));
  EXPECT_EQ(Panels(), (std::vector{false, false, true}));
  EXPECT_EQ(Markers(), (std::vector{false, false, true}));
  EXPECT_EQ(form.liPOSCaption->Caption(), "Res_POS:");
  EXPECT_EQ(form.lblPOSColor->Color(), PosColour);
  EXPECT_EQ(PosTexts(), (TTexts{"Res_Bid_Short<Res_Side_Sell_Short: 900 sh", "700@70", "700@77",
                                "700@63", "700@76", "700@64"}));
  EXPECT_EQ(VcmCasTexts(), TTexts(4));
  EXPECT_EQ(form.liVCMCAS->Caption(), "VCM:");
}

TEST_F(TMechanismPanelsTest, AMarkerAloneChangesNoHeight) {
  EXPECT_FALSE(Update({{Field::VcmMarker, "1"}}));
  EXPECT_FALSE(Update({{Field::CasMarker, "1"}}));
  EXPECT_EQ(Markers(), (std::vector{true, true, false}));
  EXPECT_EQ(Panels(), (std::vector{false, false, false}));
}

TEST_F(TMechanismPanelsTest, TheMessageLineShowsWhenEitherTextIsThere) {
  EXPECT_TRUE(Update({{Field::SecondMessage, "Right"}}));
  EXPECT_EQ(Panels(), (std::vector{true, false, false}));
  EXPECT_EQ(Text(form.lblLeftText), "");
  EXPECT_EQ(Text(form.lblRightText), "Right");
  EXPECT_FALSE(Update({{Field::FirstMessage, "Left"}}));
  EXPECT_EQ(Text(form.lblLeftText), "Left");
  EXPECT_FALSE(Update({{Field::SecondMessage, ""}}));
  EXPECT_TRUE(Update({{Field::FirstMessage, ""}}));
  EXPECT_EQ(Panels(), (std::vector{false, false, false}));
}

TEST_F(TMechanismPanelsTest, DelayedQuotesHideTheMessageLineAlone) {
  host.SetFeedType(Constdef::FeedType_Delayed);
  EXPECT_FALSE(Update(Message));
  EXPECT_EQ(Text(form.lblLeftText), "Left") << "the texts are there all the same";
  EXPECT_TRUE(Update(Vcm));
  EXPECT_EQ(Panels(), (std::vector{false, true, false}));
  host.SetFeedType(std::nullopt);
  EXPECT_TRUE(Update({})) << "by the feed of the moment";
  EXPECT_EQ(Panels(), (std::vector{true, true, false}));
}

TEST_F(TMechanismPanelsTest, AnotherSymbolTakesEverythingAway) {
  for (const auto& fields : {Vcm, Cas, Pos, Message})
    Update(fields);
  control.SetSymbol("5");
  EXPECT_TRUE(UpdateMechanismPanels(form, control));
  EXPECT_EQ(Panels(), (std::vector{false, false, false}));
  EXPECT_EQ(Markers(), (std::vector{false, false, false}));
  EXPECT_EQ(VcmCasTexts(), TTexts(4));
  EXPECT_EQ(PosTexts(), TTexts(6));
  EXPECT_FALSE(UpdateMechanismPanels(form, control));
}

TEST_F(TMechanismPanelsTest, TextsOfTheLanguage) {
  host.language.SetText("Res_RefPrice", "Bezug");
  SetMechanismTexts(form);
  const auto captions = [](std::initializer_list<Platform::TdxLayoutItem*> items) {
    TTexts texts;
    for (const auto* item : items)
      texts.push_back(item->Caption().toStdString());
    return texts;
  };
  EXPECT_EQ(captions({form.liRefPrice, form.liUpperPrice, form.liLowerPrice}),
            (TTexts{"Bezug:", "Res_UpperPrice:", "Res_LowerPrice:"}));
  EXPECT_EQ(
      captions({form.liPOSRefPrice, form.liPOSUpperPrice, form.liPOSLowerPrice,
                form.liPOSUpperLimit, form.liPOSLowerLimit}),
      (TTexts{"Bezug:", "Res_UpperPrice:", "Res_LowerPrice:", "Res_POSBuyHi:", "Res_POSSellLow:"}));
  EXPECT_EQ(form.lblVCM->toolTip(), "Res_VCMHint");
  EXPECT_EQ(form.lblCAS->toolTip(), "Res_CASHint");
  EXPECT_EQ(form.lblPOS->toolTip(), "Res_POSHint");
  EXPECT_EQ(form.liVCMCAS->Caption(), "VCM:") << "left to the updates";
}

TEST_F(TMechanismPanelsTest, ColoursOfTheMarkers) {
  SetMarkerColours(form);
  EXPECT_EQ(form.lblVCM->Color(), VcmColour);
  EXPECT_EQ(form.lblCAS->Color(), CasColour);
  EXPECT_EQ(form.lblPOS->Color(), PosColour);
  for (const auto* marker : {form.lblVCM, form.lblCAS, form.lblPOS})
    EXPECT_EQ(marker->TextColor(), System::clBlack);
  EXPECT_EQ(form.lblVCMCASColor->Color(), std::nullopt);
}

} // namespace
