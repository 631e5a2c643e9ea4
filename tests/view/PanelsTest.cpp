// The message line, the panels of the market mechanisms and their markers.

#include "host/RecordFields.h"
#include "view/ViewFixture.h"

#include <QHelpEvent>
#include <QToolTip>

using Platform::TcxLabel;
using Platform::TdxLayoutItem;

namespace {

namespace Field = Host::Field;

constexpr System::TColor VcmColour = 0x0000AA, CasColour = 0x00BB00, PosColour = 0xCC0000;

using TFields = std::vector<std::pair<int, std::string>>;

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

class TPanelsTest : public TViewTest {
protected:
  TPanelsTest() {
    host.lookAndFeel.namedColours = {
        {"coVCMBgColor", VcmColour}, {"coCASBgColor", CasColour}, {"coPOSBgColor", PosColour}};
  }

  /// Opens the view on a symbol; what that sent is forgotten.
  void Follow() {
    Open();
    Type("700");
    host.viewHost.notifications.clear();
  }

  Fakes::TFakeRecord& Record() { return host.Record("700"); }

  void Set(const TFields& fields) {
    for (const auto& [field, text] : fields)
      Record().Set(field, text);
  }
  void Update(const TFields& fields) {
    Set(fields);
    Record().Update();
  }

  std::string Text(const char* label) { return Find<TcxLabel>(label).text().toStdString(); }
  std::string Caption(const char* item) {
    return Find<TdxLayoutItem>(item).Caption().toStdString();
  }
  std::optional<System::TColor> Colour(const char* label) { return Find<TcxLabel>(label).Color(); }

  std::vector<std::string> Texts(std::initializer_list<const char*> labels) {
    std::vector<std::string> texts;
    for (const char* label : labels)
      texts.push_back(Text(label));
    return texts;
  }
  std::vector<std::string> VcmCasTexts() {
    return Texts({"lblVCMCAS", "lblRefPrice", "lblUpperPrice", "lblLowerPrice"});
  }
  std::vector<std::string> PosTexts() {
    return Texts({"lblPOSCaption", "lblPOSRefPrice", "lblPOSUpperPrice", "lblPOSLowerPrice",
                  "lblPOSUpperLimit", "lblPOSLowerLimit"});
  }
};

using TTexts = std::vector<std::string>;

const TTexts VcmTexts = {"10:00-10:05", "700@50", "700@55", "700@45"};
const TTexts CasTexts = {"Res_Bid_Short>Res_Side_Sell_Short: 7,000 sh", "700@60", "700@66",
                         "700@54"};
const TTexts PosTexts_ = {
    "Res_Bid_Short<Res_Side_Sell_Short: 900 sh", "700@70", "700@77", "700@63", "700@76", "700@64"};

/// Parts that a state of the record shows.
struct TShown {
  const char* name;
  std::vector<TFields> fields;
  bool vcmCas, pos, vcmMarker, casMarker, posMarker;
};

class TShownTest : public TPanelsTest, public testing::WithParamInterface<TShown> {};

TEST_P(TShownTest, ExactlyTheirPanelsAndMarkers) {
  Follow();
  for (const auto& fields : GetParam().fields)
    Set(fields);
  Record().Update();
  EXPECT_EQ(IsShown("lgVCMCAS"), GetParam().vcmCas);
  EXPECT_EQ(IsShown("lgPOS"), GetParam().pos);
  EXPECT_EQ(IsShown("liVCM"), GetParam().vcmMarker);
  EXPECT_EQ(IsShown("liCAS"), GetParam().casMarker);
  EXPECT_EQ(IsShown("liPOS"), GetParam().posMarker);
  EXPECT_FALSE(IsShown("lgInfo"));
  const bool resized = GetParam().vcmCas || GetParam().pos;
  EXPECT_EQ(host.viewHost.TakeNotifications(),
            resized ? std::vector{Constdef::Notify_SizeChanged} : std::vector<int>{});
}

const TShown Shown[] = {
    {"Nothing", {{{Field::Nominal, "1"}}}, false, false, false, false, false},
    {"VcmMarkerOnly", {{{Field::VcmMarker, "1"}}}, false, false, true, false, false},
    {"CasMarkerOnly", {{{Field::CasMarker, "1"}}}, false, false, false, true, false},
    {"AllMarkersOff",
     {{{Field::VcmMarker, "0"}, {Field::CasMarker, "0"}, {Field::PosMarker, "0"}}},
     false,
     false,
     false,
     false,
     false},
    {"Vcm", {Vcm}, true, false, true, false, false},
    {"Cas", {Cas}, true, false, false, true, false},
    {"Pos", {Pos}, false, true, false, false, true},
    {"VcmAndCas", {Vcm, Cas}, true, false, true, true, false},
    {"VcmAndPos", {Vcm, Pos}, true, true, true, false, true},
    {"CasAndPos", {Cas, Pos}, true, true, false, true, true},
    {"All", {Vcm, Cas, Pos}, true, true, true, true, true},
};

INSTANTIATE_TEST_SUITE_P(Mechanisms, TShownTest, testing::ValuesIn(Shown),
                         [](const auto& test) { return std::string(test.param.name); });

TEST_F(TPanelsTest, VolatilityControl) {
  Follow();
  Update(Vcm);
  EXPECT_EQ(Caption("liVCMCAS"), "Res_VCM:");
  EXPECT_EQ(Colour("lblVCMCASColor"), VcmColour);
  EXPECT_EQ(VcmCasTexts(), VcmTexts);
  EXPECT_EQ(PosTexts(), TTexts(6));
}

TEST_F(TPanelsTest, ClosingAuction) {
  Follow();
  Update(Cas);
  EXPECT_EQ(Caption("liVCMCAS"), "Res_CAS:");
  EXPECT_EQ(Colour("lblVCMCASColor"), CasColour);
  EXPECT_EQ(VcmCasTexts(), CasTexts);
}

TEST_F(TPanelsTest, PreOpeningSession) {
  Follow();
  Update(Pos);
  EXPECT_EQ(Caption("liPOSCaption"), "Res_POS:");
  EXPECT_EQ(Colour("lblPOSColor"), PosColour);
  EXPECT_EQ(PosTexts(), PosTexts_);
  EXPECT_EQ(VcmCasTexts(), TTexts(4));
}

TEST_F(TPanelsTest, TheClosingAuctionWinsOverVolatilityControl) {
  Follow();
  Update(Vcm);
  Update(Cas);
  EXPECT_EQ(Caption("liVCMCAS"), "Res_CAS:");
  EXPECT_EQ(Colour("lblVCMCASColor"), CasColour);
  EXPECT_EQ(VcmCasTexts(), CasTexts);

  Update({{Field::CasMarker, "0"}});
  EXPECT_EQ(Caption("liVCMCAS"), "Res_VCM:") << "the other one alone again";
  EXPECT_EQ(Colour("lblVCMCASColor"), VcmColour);
  EXPECT_EQ(VcmCasTexts(), VcmTexts);
}

TEST_F(TPanelsTest, APanelThatGoesLeavesNoTexts) {
  Follow();
  Update(Vcm);
  Update(Pos);
  Update({{Field::VcmMarker, "0"}, {Field::PosMarker, "0"}});
  EXPECT_FALSE(IsShown("lgVCMCAS"));
  EXPECT_FALSE(IsShown("lgPOS"));
  EXPECT_EQ(VcmCasTexts(), TTexts(4));
  EXPECT_EQ(PosTexts(), TTexts(6));
}

TEST_F(TPanelsTest, OnlyAChangeOfVisibilityAsksForTheSize) {
  Follow();
  const std::vector sized{Constdef::Notify_SizeChanged};
  const std::vector<int> nothing;
  const std::pair<TFields, std::vector<int>> steps[] = {
      {{{Field::VcmMarker, "1"}}, nothing},               // a marker alone
      {Vcm, sized},                                       // its panel
      {{{Field::VcmUpperPrice, "56"}}, nothing},          // a text
      {Cas, nothing},                                     // the same panel for the other mechanism
      {{{Field::VcmMarker, "0"}}, nothing},               // which stays
      {{{Field::CasMarker, "0"}}, sized},                 // and goes
      {{{Field::CasMarker, "0"}}, nothing},               // nothing changed
      {Pos, sized},                                       //
      {{{Field::PosReferencePrice, "71"}}, nothing},      //
      {{{Field::FirstMessage, "Suspended"}}, sized},      // the message line
      {{{Field::FirstMessage, "Resumed"}}, nothing},      //
      {{{Field::SecondMessage, "Ex-dividend"}}, nothing}, //
      {{{Field::FirstMessage, ""}}, nothing},             // the right text is left
      {{{Field::SecondMessage, ""}}, sized},              //
      {{{Field::PosMarker, "0"}}, sized},                 //
  };
  for (const auto& [fields, notified] : steps) {
    Update(fields);
    EXPECT_EQ(host.viewHost.TakeNotifications(), notified)
        << fields.front().first << " = " << fields.front().second;
  }
}

TEST_F(TPanelsTest, VolatilityControlThatEndsAloneAsksForTheSizeOnce) {
  Follow();
  Update(Vcm);
  host.viewHost.TakeNotifications();
  Update({{Field::VcmMarker, "0"}});
  EXPECT_FALSE(IsShown("lgVCMCAS"));
  EXPECT_EQ(host.viewHost.TakeNotifications(), std::vector{Constdef::Notify_SizeChanged});
  Update({{Field::VcmMarker, "0"}});
  EXPECT_TRUE(host.viewHost.TakeNotifications().empty());
}

TEST_F(TPanelsTest, SeveralPartsAtOnceAskOnce) {
  Follow();
  for (const auto& fields : {Vcm, Pos, TFields{{Field::FirstMessage, "Suspended"}}})
    Set(fields);
  Record().Update();
  EXPECT_EQ(host.viewHost.TakeNotifications(), std::vector{Constdef::Notify_SizeChanged});
}

struct TMessage {
  const char* left;
  const char* right;
  bool shown;
};

class TMessageTest : public TPanelsTest, public testing::WithParamInterface<TMessage> {};

TEST_P(TMessageTest, TheLineShowsWhenEitherTextIsThere) {
  Follow();
  Update({{200, GetParam().left}, {201, GetParam().right}});
  EXPECT_EQ(IsShown("lgInfo"), GetParam().shown);
  EXPECT_EQ(Texts({"lblLeftText", "lblRightText"}), (TTexts{GetParam().left, GetParam().right}));
}

INSTANTIATE_TEST_SUITE_P(Texts, TMessageTest,
                         testing::Values(TMessage{"", "", false}, TMessage{"Left", "", true},
                                         TMessage{"", "Right", true},
                                         TMessage{"Left & <b>", "Right", true}));

class TFeedTest : public TPanelsTest, public testing::WithParamInterface<std::optional<int>> {};

TEST_P(TFeedTest, OnlyDelayedQuotesHideTheMessageLine) {
  host.SetFeedType(GetParam());
  Follow();
  Update({{Field::FirstMessage, "Left"}, {Field::SecondMessage, "Right"}});
  const bool delayed = GetParam() == 3;
  EXPECT_EQ(IsShown("lgInfo"), !delayed);
  EXPECT_EQ(IsShown("liDelay"), delayed);
  EXPECT_EQ(Text("lblLeftText"), "Left") << "the texts are there all the same";
  EXPECT_EQ(host.viewHost.TakeNotifications(),
            delayed ? std::vector<int>{} : std::vector{Constdef::Notify_SizeChanged});
}

INSTANTIATE_TEST_SUITE_P(FeedTypes, TFeedTest, testing::Values(std::nullopt, 0, 1, 2, 3));

TEST_F(TPanelsTest, TheFeedTypeIsThatOfTheMoment) {
  Follow();
  Update({{Field::FirstMessage, "Left"}});
  EXPECT_TRUE(IsShown("lgInfo"));
  host.SetFeedType(Constdef::FeedType_Delayed);
  Update({{Field::FirstMessage, "Other"}});
  EXPECT_FALSE(IsShown("lgInfo"));
}

TEST_F(TPanelsTest, ARejectedAndAConcealedSymbolSayWhy) {
  host.config.SetCurrent("ConcealMktDataByExch", "NYSE");
  Follow();
  Record().SetState(Constdef::RecordState_Invalid).SetStatusText("Unknown symbol").Update();
  EXPECT_EQ(Text("lblLeftText"), "Unknown symbol");
  EXPECT_TRUE(IsShown("lgInfo"));
  Record().SetState(Constdef::RecordState_Ready);
  Update({{Field::Exchange, "NYSE"}});
  EXPECT_EQ(Text("lblLeftText"), "Res_InvalidSymbol");
}

TEST_F(TPanelsTest, AnotherSymbolTakesThePanelsAway) {
  Follow();
  for (const auto& fields :
       {Vcm, Cas, Pos, TFields{{Field::FirstMessage, "Left"}, {Field::SecondMessage, "Right"}}})
    Update(fields);
  host.viewHost.notifications.clear();
  frame->SetSymbol("5");
  for (const char* part : {"lgInfo", "lgVCMCAS", "lgPOS", "liVCM", "liCAS", "liPOS"})
    EXPECT_FALSE(IsShown(part)) << part;
  EXPECT_EQ(VcmCasTexts(), TTexts(4));
  EXPECT_EQ(PosTexts(), TTexts(6));
  EXPECT_EQ(Texts({"lblLeftText", "lblRightText"}), TTexts(2));
  EXPECT_EQ(host.viewHost.TakeNotifications(),
            (std::vector{Constdef::Notify_SymbolChanged, Constdef::Notify_SizeChanged}))
      << "the symbol first, then its panels";
}

TEST_F(TPanelsTest, ASymbolInForceShowsItsPanelBeforeItIsAnnounced) {
  Open();
  Set(Vcm);
  Type("700");
  EXPECT_TRUE(IsShown("lgVCMCAS"));
  EXPECT_EQ(host.viewHost.TakeNotifications(),
            (std::vector{Constdef::Notify_SizeChanged, Constdef::Notify_SymbolChanged}))
      << "the control's own event comes first, and the second run changes nothing";
}

TEST_F(TPanelsTest, AChangeOfLanguageTranslatesThePanels) {
  Follow();
  Update(Cas);
  Update(Pos);
  host.viewHost.notifications.clear();
  for (const auto& [key, text] : {std::pair{"Res_CAS", "Schluss"},
                                  {"Res_POS", "Vorher"},
                                  {"Res_Bid_Short", "K"},
                                  {"Res_Side_Sell_Short", "V"}})
    host.language.SetText(key, text);
  frame->SetLanguage(1);
  EXPECT_EQ(Caption("liVCMCAS"), "Schluss:");
  EXPECT_EQ(Caption("liPOSCaption"), "Vorher:");
  EXPECT_EQ(Text("lblVCMCAS"), "K<V: 900 sh") << "the two share the imbalance";
  EXPECT_EQ(Text("lblPOSCaption"), "K<V: 900 sh");
  EXPECT_EQ(host.viewHost.TakeNotifications(), std::vector{Constdef::Notify_LayoutChanged});
}

TEST_F(TPanelsTest, CaptionsOfTheFormStandUntilThePanelIsNeeded) {
  Open();
  EXPECT_EQ(Caption("liVCMCAS"), "VCM:");
  EXPECT_EQ(Caption("liPOSCaption"), "POS:");
  frame->SetLanguage(1);
  EXPECT_EQ(Caption("liVCMCAS"), "VCM:");
  EXPECT_EQ(Caption("liPOSCaption"), "POS:");
  EXPECT_EQ(Colour("lblVCMCASColor"), std::nullopt);
}

TEST_F(TPanelsTest, SwatchesTakeTheSkinOfTheUpdate) {
  Follow();
  Update(Vcm);
  host.lookAndFeel.namedColours["coVCMBgColor"] = 0x123456;
  frame->SetSkin({});
  EXPECT_EQ(Colour("lblVCMCASColor"), VcmColour);
  Update({{Field::VcmUpperPrice, "56"}});
  EXPECT_EQ(Colour("lblVCMCASColor"), 0x123456u);
}

// The lines under six columns

TEST_F(TPanelsTest, WrapWhereTheFrameIsNarrow) {
  host.SetFeedType(Constdef::FeedType_Delayed);
  Follow();
  for (const auto& fields : {Vcm, Pos})
    Update(fields);
  host.viewHost.notifications.clear();
  Update(
      {{Field::WarrantList, "1"}, {Field::RelatedList, "2"}, {Field::LiquidityProviderList, "3"}});
  EXPECT_EQ(host.viewHost.TakeNotifications(), (std::vector{Constdef::Notify_SizeChanged}))
      << "the boxes take another line";
  frame->resize(frame->GetWidth(), frame->GetHeight());
  frame->show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(frame.get()));
  ASSERT_LT(frame->width(), 600);
  int bottom = 0;
  for (const auto* label : frame->findChildren<TcxLabel*>()) {
    if (!label->isVisible())
      continue;
    EXPECT_GE(label->width(), label->sizeHint().width()) << label->objectName().toStdString();
    const QRect place(label->mapTo(frame.get(), QPoint()), label->size());
    EXPECT_TRUE(frame->rect().contains(place)) << label->objectName().toStdString();
    bottom = std::max(bottom, place.bottom());
  }
  EXPECT_LT(bottom, frame->height());
  EXPECT_GE(Find<QWidget>("edtSymbol").width(), 200);
  for (const char* box : {"cmbWarrant", "cmbRelated", "cmbLiqProvider"}) {
    const auto& widget = Find<QWidget>(box);
    EXPECT_TRUE(frame->rect().contains(QRect(widget.mapTo(frame.get(), QPoint()), widget.size())))
        << box;
  }
}

TEST_F(TPanelsTest, MessagesThatAreTooLongAreShortenedWithAGap) {
  Follow();
  const std::string words =
      "A message of the exchange that is far longer than its half of the line. ";
  Update({{Field::FirstMessage, words + words}, {Field::SecondMessage, words + words}});
  frame->resize(frame->GetWidth(), frame->GetHeight());
  frame->show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(frame.get()));
  auto& left = Find<TcxLabel>("lblLeftText");
  auto& right = Find<TcxLabel>("lblRightText");
  const int gap =
      right.mapTo(frame.get(), QPoint()).x() - left.mapTo(frame.get(), QPoint(left.width(), 0)).x();
  EXPECT_GE(gap, 12);
  EXPECT_LE(right.mapTo(frame.get(), QPoint(right.width(), 0)).x(), frame->width());
  QHelpEvent help(QEvent::ToolTip, {5, 5}, right.mapToGlobal(QPoint(5, 5)));
  QApplication::sendEvent(&right, &help);
  EXPECT_TRUE(QToolTip::text().contains(QString::fromStdString(words))) << "as a whole";
  QToolTip::hideText();
}

} // namespace
