#include "host/ConstDef.h"
#include "model/ControlFixture.h"

#include <functional>

// In which order a depth control tells its owner of what happened, and what it knows by then.

namespace Quorpricedatacontrol {

using TNames = std::vector<std::string>;

namespace {

/// A symbol's figures that concern every event of the control.
void FillEverything(Fakes::TFakeRecord& record) {
  FillDepth(record);
  record.Set({{Field::ProductType, "4"},
              {Field::SpreadCode, "01"},
              {Field::BidQueue, "1234"},
              {Field::AskQueue, "5678"},
              {Field::WarrantList, "13001"},
              {Field::FirstMessage, "halted"}});
  record.Set({{Field::PosMarker, "1"}, {Field::PosReferencePrice, "100"}});
  FillOptionalHeader(record);
}

} // namespace

class TEventOrderTest : public TDepthControlTest {
protected:
  TEventOrderTest() {
    Log(control.OnChange, "change", atChange);
    Log(control.OnFreeTextChange, "free text", atFreeText);
    Log(control.OnRelatedChange, "related", none_);
    Log(control.OnField22Known, "product type", atField22);
    Log(control.OnCountChange, "count", none_);
  }

  TNames names; ///< events, in the order in which they were fired
  std::function<void()> atChange, atFreeText, atField22;

private:
  void Log(System::TNotifyEvent& event, const char* name, const std::function<void()>& also) {
    event = [this, name, &also](System::TObject* sender) {
      EXPECT_EQ(sender, &control) << name;
      names.emplace_back(name);
      if (also)
        also();
    };
  }

  std::function<void()> none_;
};

TEST_F(TEventOrderTest, AnUpdateTellsOfTheCellsThenOfTheTypeThenOfTheTexts) {
  Record().SetState(Constdef::RecordState_None);
  ShowSymbol();
  names.clear();
  FillEverything(Record().SetState(Constdef::RecordState_Ready));
  Record().Update();
  EXPECT_EQ(names, (TNames{"count", "change", "product type", "free text", "related"}));
}

TEST_F(TEventOrderTest, AnUpdateHasBuiltTheCellsWhenItTellsOfThem) {
  Record().SetState(Constdef::RecordState_None);
  ShowSymbol();
  FillEverything(Record().SetState(Constdef::RecordState_Ready));
  int told = 0;
  atChange = [&] {
    ++told;
    EXPECT_EQ(control.MarketDataType(), mdtPriced);
    EXPECT_EQ(control.GetCellHeader(0), "Res_OpenPrc");
    EXPECT_EQ(control.GetCount(), 16);
    EXPECT_EQ(control.GetDisplayValue(1, Column::BidQueue1), "1234");
    EXPECT_EQ(control.GetDisplayValue(1, Column::AskQueue1), "5678");
    EXPECT_EQ(control.ProductType(), -1);
    EXPECT_EQ(control.FreeText1(), "");
  };
  Record().Update();
  EXPECT_EQ(told, 1);
}

TEST_F(TEventOrderTest, TheTypeIsKnownBeforeTheTextsAreRead) {
  Record().SetState(Constdef::RecordState_None);
  ShowSymbol();
  FillEverything(Record().SetState(Constdef::RecordState_Ready));
  int told = 0;
  atField22 = [&] {
    ++told;
    EXPECT_EQ(control.ProductType(), 4);
    EXPECT_EQ(control.FreeText1(), "");
    EXPECT_EQ(control.WarrantList(), "");
  };
  atFreeText = [&] {
    ++told;
    EXPECT_EQ(control.FreeText1(), "halted");
    EXPECT_EQ(control.WarrantList(), "");
  };
  Record().Update();
  EXPECT_EQ(told, 2);
}

TEST_F(TEventOrderTest, ASymbolTellsOfItsCellsLast) {
  FillEverything(Record());
  ShowSymbol();
  EXPECT_EQ(names, (TNames{"count", "free text", "related", "change"}));
}

TEST_F(TEventOrderTest, ASymbolsTypeAndHeaderAreKnownBeforeItsTexts) {
  FillEverything(Record());
  int told = 0;
  atFreeText = [&] {
    ++told;
    EXPECT_EQ(control.ProductType(), 4);
    EXPECT_EQ(control.GetCellHeader(0), "Res_OpenPrc");
  };
  atChange = [&] {
    ++told;
    EXPECT_EQ(control.MarketDataType(), mdtPriced);
    EXPECT_EQ(control.GetQueueBroker(0, Side::Bid), "1234");
    EXPECT_EQ(control.FreeText1(), "halted");
    EXPECT_EQ(control.WarrantList(), "13001");
  };
  ShowSymbol();
  EXPECT_EQ(told, 2);
}

TEST_F(TEventOrderTest, ASymbolWithoutAnythingToTellChangesOnlyItsCells) {
  ShowSymbol();
  EXPECT_EQ(names, TNames{"change"});
}

TEST_F(TEventOrderTest, AnotherSpreadTableTellsOfTheCellsBeforeItRebuildsTheTexts) {
  FillEverything(Record());
  ShowSymbol();
  names.clear();
  Record().Set(Field::PosReferencePrice, "105"); // read only once the texts are rebuilt
  std::string priceAtChange;
  atChange = [&] { priceAtChange = control.Mechanisms().PosRefPrice; };
  host.market.AnnounceSpreads({"01"});
  EXPECT_EQ(names, (TNames{"change", "free text"}));
  EXPECT_EQ(priceAtChange, "700@100");
  EXPECT_EQ(control.Mechanisms().PosRefPrice, "700@105");
}

TEST_F(TEventOrderTest, ALayoutHasItsHeaderWhenItTellsOfItsCells) {
  ShowSymbol();
  FillEverything(Record());
  names.clear();
  int told = 0;
  atChange = [&] {
    ++told;
    EXPECT_EQ(control.DisplayMode(), qm10Simple);
    EXPECT_EQ(control.GetCellHeader(0), "Res_OpenPrc");
  };
  control.SetDisplayMode(qm10Simple);
  EXPECT_EQ(names, (TNames{"count", "change"}));
  EXPECT_EQ(told, 1);
}

TEST_F(TEventOrderTest, TheBeginningOfTheDayHasRebuiltTheHeaderWhenItTellsOfTheCells) {
  ShowSymbol();
  FillEverything(Record());
  names.clear();
  host.channels.Send(Constdef::Channel_BeginningOfDay, nullptr, nullptr);
  EXPECT_EQ(names, (TNames{"count", "change"}));
}

TEST_F(TEventOrderTest, AnUpdateOfAnInstrumentInTheHeaderIsToldOnce) {
  control.SetDisplayMode(qm10Full);
  Record().Set({{Field::ProductType, "4"},
                {Field::Underlying, "5"},
                {Field::StrikePrice, "20"},
                {Field::CallPut, "C"},
                {Field::ConversionRatio, "0.1"},
                {Field::Nominal, "2"}});
  host.Record("5").Set(Field::Nominal, "25");
  ShowSymbol();
  ASSERT_EQ(control.GetCellHeader(11), "Res_Underlyer");
  names.clear();
  Record().Update();
  EXPECT_EQ(names, TNames{"change"});
  const auto premium = [this] {
    int row = 0;
    while (row < control.GetCount() && control.GetCellHeader(row) != "Res_Premium")
      ++row;
    return control.GetCellHeaderValue(row);
  };
  EXPECT_EQ(premium(), "60.00"); // (2 / 0.1 + 20) / 25 - 1
  names.clear();
  host.Record("5").Set(Field::Nominal, "20").Update();
  EXPECT_EQ(names, TNames{"change"}) << "its premium follows the underlying";
  EXPECT_EQ(premium(), "100.00");
  control.SetDisplayMode(qm5Full);
  names.clear();
  host.Record("5").Update();
  EXPECT_EQ(names, TNames()) << "which no row shows now";
}

// The end of a control

namespace {

/// A host that changes its configuration and begins a day while a record is let go.
class TBusyAdapter : public Fakes::TFakeSubscribeAdapter {
public:
  explicit TBusyAdapter(Fakes::THostFakes& host) : host_(host) { Install(this); }

  void Unsubscribe(Basesubscribedata::TCustomSubItem* record) override {
    TFakeSubscribeAdapter::Unsubscribe(record);
    host_.config.SetCurrent("DenominatorModeValue", std::to_string(++mode_));
    host_.config.Announce();
    host_.channels.Send(Constdef::Channel_BeginningOfDay, nullptr, nullptr);
  }

private:
  Fakes::THostFakes& host_;
  int mode_ = 0;
};

} // namespace

TEST(TDepthControlEndTest, NothingReachesAControlThatIsLettingItsRecordGo) {
  Fakes::THostFakes host;
  TBusyAdapter adapter(host);
  TEventCounts events;
  {
    TCustomQuorMarketDataControl control(nullptr);
    control.SetSymbol("700");
    ListenToAll(control, events);
    control.SetSymbol("5"); // the control lives: it is told
    EXPECT_EQ(events.change, 3);
    events = {};
  }
  EXPECT_EQ(adapter.released, (std::vector<std::string>{"700", "5"}));
  EXPECT_EQ(events.change, 0);
}

} // namespace Quorpricedatacontrol
