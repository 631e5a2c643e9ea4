#include "host/ConstDef.h"
#include "model/ControlFixture.h"
#include "model/QuorPerclickDataControl.h"

#include <random>
#include <span>

// What holds for every record: nothing fails, and the queue's entries stand where they belong.

namespace Quorpricedatacontrol {

namespace {

class TRandom {
public:
  explicit TRandom(unsigned seed) : engine_(seed) {}

  int Between(int least, int most) {
    return std::uniform_int_distribution<int>(least, most)(engine_);
  }
  template <typename TList> const auto& OneOf(const TList& list) {
    return list[static_cast<std::size_t>(Between(0, static_cast<int>(std::size(list)) - 1))];
  }

  /// A text of up to `longest` characters of those that matter somewhere.
  std::string Text(int longest) {
    static constexpr std::string_view characters = "0123456789.,+-#sRNCP @\xE8\xB2\xB7";
    std::string text(static_cast<std::size_t>(Between(0, longest)), ' ');
    for (char& c : text)
      c = OneOf(characters);
    return text;
  }

private:
  std::mt19937 engine_;
};

// Every field that the controls read.
constexpr int DayFields[] = {Field::Nominal,       Field::Status,      Field::Volume,
                             Field::PreviousClose, Field::Low,         Field::UpdateTime,
                             Field::High,          Field::Turnover,    Field::Change,
                             Field::ChangePercent, Field::High52Weeks, Field::Low52Weeks,
                             Field::Open};
constexpr int InstrumentFields[] = {
    Field::Name,          Field::IssueSize,  Field::Exchange,   Field::ProductType,
    Field::Currency,      Field::BoardLot,   Field::SpreadCode, Field::PriceEarnings,
    Field::DividendYield, Field::UpperLimit, Field::LowerLimit, Field::AccruedInterest,
    Field::MarketCap};
constexpr int WarrantFields[] = {Field::Underlying, Field::StrikePrice, Field::CallPut,
                                 Field::ExpiryDate, Field::Premium,     Field::ConversionRatio,
                                 Field::Gearing,    Field::OptionStyle, Field::CallPrice};
constexpr int TextFields[] = {
    Field::WarrantList,  Field::RelatedList,   Field::LiquidityProviderList,
    Field::FirstMessage, Field::SecondMessage, Field::OtherMessage,
    Field::BidQueue,     Field::AskQueue};
constexpr int MechanismFields[] = {
    Field::VcmMarker,         Field::VcmStartTime,       Field::VcmEndTime,
    Field::VcmReferencePrice, Field::VcmLowerPrice,      Field::VcmUpperPrice,
    Field::PosMarker,         Field::PosReferencePrice,  Field::PosLowerPrice,
    Field::PosUpperPrice,     Field::PosSellLowerLimit,  Field::PosBuyUpperLimit,
    Field::CasMarker,         Field::CasReferencePrice,  Field::CasLowerPrice,
    Field::CasUpperPrice,     Field::ImbalanceDirection, Field::ImbalanceQuantity};

/// Of the levels the best, the next and the last.
std::vector<int> RecordFields() {
  std::vector<int> fields;
  for (const std::span<const int> some : {std::span<const int>(DayFields),
                                          {InstrumentFields},
                                          {WarrantFields},
                                          {TextFields},
                                          {MechanismFields}})
    fields.insert(fields.end(), some.begin(), some.end());
  for (const auto& side : {Field::Bid, Field::Ask})
    for (const auto& kind : {side.Price, side.Size, side.Count})
      fields.insert(fields.end(), {kind.front(), kind[1], kind.back()});
  return fields;
}

constexpr const char* Values[] = {"",  "0",    "1",     "2",     "3",   "4",      "-1",
                                  "C", "P7",   "700",   "5",     "0.1", "0.0001", "318.2",
                                  "x", "1e30", "-1e30", "99999", "01",  " 1 ",    "AB#XXXXXR"};

constexpr int Columns[] = {-1,
                           0,
                           Column::BidPrice,
                           Column::AskPrice,
                           Column::HeaderValue,
                           Column::BidSize,
                           Column::AskSize,
                           20,
                           Column::HeaderCaption,
                           Column::BidQueue1,
                           Column::BidQueue2,
                           Column::BidQueue3,
                           Column::BidQueue4,
                           59,
                           Column::AskQueue1,
                           Column::AskQueue2,
                           Column::AskQueue3,
                           Column::AskQueue4,
                           69,
                           99,
                           Column::InfoOpen,
                           Column::InfoLow,
                           Column::InfoCurrency,
                           10005};

void ChangeRecord(Fakes::TFakeRecord& record, TRandom& random) {
  static const std::vector<int> fields = RecordFields();
  for (int count = random.Between(0, 8); count > 0; --count) {
    const int field = random.OneOf(fields);
    switch (random.Between(0, 3)) {
    case 0:
      record.Remove(field);
      break;
    case 1:
      record.Set(field, random.Text(60));
      break;
    default:
      record.Set(field, random.OneOf(Values));
    }
  }
  if (random.Between(0, 9) == 0)
    record.SetState(random.Between(0, 2));
}

void ChangeControl(TCustomQuorMarketDataControl& control, TRandom& random) {
  static constexpr const char* symbols[] = {"", "700", "5", "13001"};
  switch (random.Between(0, 9)) {
  case 0:
    control.SetSymbol(random.OneOf(symbols));
    break;
  case 1:
    control.SetDisplayMode(static_cast<TQuorMode>(random.Between(0, 2)));
    break;
  case 2:
    control.SetShowBrokerName(random.Between(0, 1) == 1);
    break;
  case 3:
    control.SetShowBrokerQueue(random.Between(0, 3) != 0);
    break;
  case 4:
    control.UpdateLanguage();
    break;
  case 5:
    control.BODDataUpdate(nullptr, nullptr);
    break;
  default:
    break;
  }
}

/// What must hold in whatever state the control is.
void ExpectSane(TCustomQuorMarketDataControl& control, TRandom& random) {
  const int row = random.Between(-2, 20);
  const int column = random.OneOf(Columns);
  const std::string text = control.GetDisplayValue(row, column);
  if (row < 0 || row >= control.GetCount()) {
    EXPECT_EQ(text, "");
  }
  const bool names = control.ShowBrokerName();
  const std::string name = control.GetBrokerName(row, column);
  EXPECT_EQ(control.ShowBrokerName(), names);
  EXPECT_EQ(control.GetDisplayValue(row, column), text);
  std::string id;
  const bool hasBroker = control.GetBrokerID(row, column, id);
  EXPECT_EQ(hasBroker, !id.empty());
  EXPECT_EQ(name.empty(), id.empty());
  if (control.GetIsBrokerQueueHeader(column, row) && row > 0) {
    EXPECT_TRUE(id.front() == '+' || id.front() == '-');
  }
  EXPECT_GE(control.GetCount(), 3);
  EXPECT_LE(control.GetCount(), RowCountOf(qm10Full, 0, THeaderRows::MostOwn));
  control.CopyPrice(row, column);
}

template <typename TControl> void PlayRandomly(unsigned seed) {
  Fakes::THostFakes host;
  host.config.SetCurrent("ConcealMktDataByExch", seed % 2 ? "HKG,4" : "");
  host.config.SetCurrent("CopyPriceStyle", seed % 4 == 0 ? "S" : "D");
  host.market.SetSpreadTable("01", Constdef::SpreadState_Ready, {{0, 100, 0.5}, {100, 1000, 2}});
  host.market.SetBroker("0001", "One");
  {
    TRandom random(seed);
    TControl control(nullptr);
    TEventCounts events;
    ListenToAll(control, events);
    for (int step = 0; step < 400; ++step) {
      ChangeControl(control, random);
      const std::string symbol = random.Between(0, 1) ? "700" : "13001";
      ChangeRecord(host.Record(symbol), random);
      host.Record(symbol).Update();
      for (int look = 0; look < 10; ++look)
        ExpectSane(control, random);
    }
  }
  EXPECT_EQ(host.Registrations(), Fakes::TRegistrations());
  EXPECT_EQ(host.subscriptions.abandonedListeners, 0);
}

} // namespace

class TRandomRecordsTest : public testing::TestWithParam<unsigned> {};

TEST_P(TRandomRecordsTest, NeverBreakADepthControl) {
  PlayRandomly<TCustomQuorMarketDataControl>(GetParam());
}

TEST_P(TRandomRecordsTest, NeverBreakAPerclickControl) {
  PlayRandomly<TPerclickQuorMarketDataControl>(GetParam());
  PlayRandomly<TPerclickQuorInfoMarketDataControl>(GetParam());
}

TEST_P(TRandomRecordsTest, LeaveEachQueueEntryAtItsPlace) {
  TRandom random(GetParam());
  Fakes::THostFakes host;
  for (int round = 0; round < 50; ++round) {
    std::string text;
    std::vector<std::string> entries;
    for (int count = random.Between(0, 90); count > 0; --count) {
      const std::string piece = random.Between(0, 5) ? std::to_string(random.Between(1, 9999)) : "";
      if (!piece.empty())
        entries.push_back(std::string(4 - piece.size(), '0') + piece);
      text += (text.empty() ? "" : ",") + std::string(random.Between(0, 1) ? " " : "") + piece;
    }
    TCustomQuorMarketDataControl control(nullptr);
    control.SetDisplayMode(static_cast<TQuorMode>(random.Between(0, 2)));
    const int side = random.Between(0, 1);
    host.Record("700").Clear().Set(side == Side::Bid ? Field::BidQueue : Field::AskQueue, text);
    control.SetSymbol("700");
    const int perColumn = control.GetCount() - 1;
    for (int place = 0; place < 4; ++place)
      for (int row = 1; row <= perColumn; ++row) {
        const auto index = static_cast<std::size_t>(place * perColumn + row - 1);
        const int column = (side == Side::Bid ? Column::BidQueue1 : Column::AskQueue1) + place;
        EXPECT_EQ(control.GetDisplayValue(row, column),
                  index < entries.size() ? entries[index] : "");
      }
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, TRandomRecordsTest, testing::Range(1u, 13u));

} // namespace Quorpricedatacontrol
