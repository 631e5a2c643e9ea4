#include "host/ConstDef.h"
#include "model/ModelFixture.h"
#include "model/QuorPerclickDataControl.h"

#include <random>

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

constexpr int RecordFields[] = {
    1,    2,    3,    5,    10,   16,   17,   18,   19,   20,   22,   23,   24,   25,   26,
    27,   28,   29,   31,   32,   33,   37,   38,   48,   49,   51,   52,   54,   55,   56,
    61,   64,   65,   66,   73,   81,   82,   84,   91,   94,   102,  103,  104,  106,  116,
    117,  118,  120,  121,  130,  131,  132,  133,  135,  136,  170,  172,  200,  201,  506,
    3136, 3140, 3146, 3155, 3159, 3165, 3169, 3180, 3184, 3190, 3194, 3200, 3500, 3501, 3502,
    3503, 3504, 3505, 3506, 3507, 3508, 3509, 3510, 3511, 3512, 3513, 3514, 3515, 3551, 3552};

constexpr const char* Values[] = {"",  "0",    "1",     "2",     "3",   "4",      "-1",
                                  "C", "P7",   "700",   "5",     "0.1", "0.0001", "318.2",
                                  "x", "1e30", "-1e30", "99999", "01",  " 1 ",    "AB#XXXXXR"};

constexpr int Columns[] = {-1, 0,  1,  2,  3,  16, 19, 20, 21,    55,    56,    57,
                           58, 59, 65, 66, 67, 68, 69, 99, 10000, 10002, 10004, 10005};

void ChangeRecord(Fakes::TFakeRecord& record, TRandom& random) {
  for (int count = random.Between(0, 8); count > 0; --count) {
    const int field = random.OneOf(RecordFields);
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
  EXPECT_LE(control.GetCount(), 18);
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

class RandomRecordsTest : public testing::TestWithParam<unsigned> {};

TEST_P(RandomRecordsTest, NeverBreakADepthControl) {
  PlayRandomly<TCustomQuorMarketDataControl>(GetParam());
}

TEST_P(RandomRecordsTest, NeverBreakAPerclickControl) {
  PlayRandomly<TPerclickQuorMarketDataControl>(GetParam());
  PlayRandomly<TPerclickQuorInfoMarketDataControl>(GetParam());
}

TEST_P(RandomRecordsTest, LeaveEachQueueEntryAtItsPlace) {
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
    host.Record("700").Clear().Set(side == Side::Bid ? 120 : 121, text);
    control.SetSymbol("700");
    const int perColumn = control.GetCount() - 1;
    for (int place = 0; place < 4; ++place)
      for (int row = 1; row <= perColumn; ++row) {
        const auto index = static_cast<std::size_t>(place * perColumn + row - 1);
        const int column = (side == Side::Bid ? 55 : 65) + place;
        EXPECT_EQ(control.GetDisplayValue(row, column),
                  index < entries.size() ? entries[index] : "");
      }
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomRecordsTest, testing::Range(1u, 13u));

} // namespace Quorpricedatacontrol
