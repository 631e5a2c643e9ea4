#include "feed/recording/RecordingWriter.h"
#include "feed/recording/Files.h"
#include "feed/recording/RecordingSource.h"
#include "host/RecordFields.h"

#include <sstream>

namespace {

namespace Field = Host::Field;

using namespace Feed;
using namespace RecordingTest;
using namespace std::chrono_literals;

TReferenceData SomeHeader() {
  TReferenceData header;
  header.Simulated = true;
  header.Spreads = {{"01", 1, {{0, 0.25, 0.001}, {0.25, 9995, 0.005}}}, {"03", 0, {}}};
  header.Brokers = {{"0123", "Quote \"One\"", "一", "二", "back\\slash"}, {"4567", "", "", "", ""}};
  header.Instruments = {{"700", "HARBOUR\tTECH", "HKD"}, {"5", "BANK", "CNY", "銀行", "银行"}};
  return header;
}

TRecordChange SomeChange() {
  TRecordChange change;
  change.Symbol = "700";
  change.State = 1;
  change.Status = "line\nbreak \x01";
  change.Fields = {{Field::BestBid, "318.2"},
                   {Field::BestAsk, ""},
                   {Field::BidQueue, std::nullopt},
                   {Field::FirstMessage, "港灣"}};
  change.Trades = {{"10:15:00", "B", "100", 0.1}, {"10:15:01", "", "2,000", 318.4}};
  return change;
}

std::string ContentOf(const TTemporaryFile& file) {
  std::ostringstream content;
  content << std::ifstream(file.Path(), std::ios::binary).rdbuf();
  return content.str();
}

TEST(RecordingWriter, WritesWhatReadsBackAsTheSame) {
  const TTemporaryFile file;
  TRecordingWriter writer;
  ASSERT_FALSE(writer.Open(file.Path(), SomeHeader()));
  const TRecordChange change = SomeChange();
  writer.Write(10h + 15min + 7us, change);
  ASSERT_FALSE(writer.Close());

  TRecordingSource source;
  ASSERT_FALSE(source.Open(file.Path()));
  EXPECT_EQ(std::get<TReferenceData>(source.Next().value()), SomeHeader());
  const auto first = std::get<TRecordedEvent>(source.Next().value());
  const auto second = std::get<TRecordedEvent>(source.Next().value());
  EXPECT_FALSE(source.Next());

  EXPECT_EQ(first.Time, 10h + 15min + 7us);
  EXPECT_EQ(first.Change.Symbol, "700");
  EXPECT_EQ(first.Change.State, 1);
  EXPECT_EQ(first.Change.Status, change.Status);
  EXPECT_EQ(first.Change.Fields, change.Fields);
  ASSERT_EQ(first.Change.Trades.size(), 1u);
  EXPECT_EQ(first.Change.Trades[0].Price, 0.1);
  EXPECT_EQ(second.Time, first.Time);
  EXPECT_TRUE(second.Change.Fields.empty());
  ASSERT_EQ(second.Change.Trades.size(), 1u);
  EXPECT_EQ(second.Change.Trades[0].Time, "10:15:01");
  EXPECT_EQ(second.Change.Trades[0].Side, "");
  EXPECT_EQ(second.Change.Trades[0].Quantity, "2,000");
  EXPECT_EQ(second.Change.Trades[0].Price, 318.4);
}

TEST(RecordingWriter, WritesOneObjectPerLine) {
  const TTemporaryFile file;
  TRecordingWriter writer;
  writer.Open(file.Path(), {});
  writer.Write(9h, {"5",
                    std::nullopt,
                    std::nullopt,
                    {{Field::Nominal, "7.5"}, {Field::Status, std::nullopt}},
                    {}});
  EXPECT_FALSE(writer.Close());
  EXPECT_EQ(ContentOf(file),
            "{\"quorprice\":1,\"spreads\":{},\"brokers\":[],\"instruments\":[]}\n"
            "{\"t\":\"09:00:00.000000\",\"s\":\"5\",\"f\":{\"3\":\"7.5\",\"5\":null}}\n");
}

TEST(RecordingWriter, KeepsTheOrderOfTimeAndLeavesOutNamelessChanges) {
  const TTemporaryFile file;
  TRecordingWriter writer;
  writer.Open(file.Path(), {});
  const auto change = [](const char* symbol) {
    TRecordChange named;
    named.Symbol = symbol;
    return named;
  };
  writer.Write(10h, change("a"));
  writer.Write(9h, change("b"));
  writer.Write(11h, change(""));
  writer.Write(11h, change("c"));
  EXPECT_FALSE(writer.Close());

  TRecordingSource source;
  source.Open(file.Path());
  source.Next();
  std::string seen;
  while (const auto line = source.Next()) {
    const auto& event = std::get<TRecordedEvent>(*line);
    seen += event.Change.Symbol + Text::TimeOfDayText(event.Time).substr(0, 3);
  }
  EXPECT_EQ(seen, "a10:b10:c11:");
}

TEST(RecordingWriter, SaysWhenTheFileCannotBeWritten) {
  TRecordingWriter writer;
  EXPECT_EQ(writer.Open("/nowhere/at/all.jsonl", {}),
            Data::TProblem{Data::TProblemCode::FileUnwritable});
}

TEST(RecordingWriter, SaysWhenALineDidNotReachTheFile) {
  if (!std::filesystem::exists("/dev/full"))
    GTEST_SKIP() << "no device that is always full";
  TRecordingWriter writer;
  EXPECT_EQ(writer.Open("/dev/full", {}), Data::TProblem{Data::TProblemCode::FileUnwritable});
  writer.Write(9h, SomeChange());
  EXPECT_EQ(writer.Close(), Data::TProblem{Data::TProblemCode::RecordingIncomplete});
}

} // namespace
