#include "feed/recording/RecordingParser.h"
#include "feed/recording/MalformedLines.h"
#include "host/RecordFields.h"

#include <gtest/gtest.h>

namespace {

namespace Field = Host::Field;

using namespace Feed;
using namespace std::chrono_literals;

TParsedLine Parse(std::string_view line) {
  TRecordingParser parser;
  const std::string padded = std::string(line) + std::string(TRecordingParser::Padding, '}');
  return parser.Parse(std::string_view(padded).substr(0, line.size()));
}

TRecordedEvent EventOf(std::string_view line) {
  TParsedLine parsed = Parse(line);
  if (auto* const problem = std::get_if<Data::TProblem>(&parsed))
    ADD_FAILURE() << line << ": code " << static_cast<int>(problem->Code);
  return std::holds_alternative<TRecordedEvent>(parsed) ? std::get<TRecordedEvent>(parsed)
                                                        : TRecordedEvent{};
}

TEST(RecordingParser, ReadsEveryMemberOfAnEvent) {
  const auto event =
      EventOf(R"({"t":"09:30:00.123456","s":"700","state":2,"status":"Halted",)"
              R"("f":{"1":"318.2","16":"","120":null},)"
              R"("trade":{"time":"09:30","side":"B","qty":"12K","price":"318.40"}})");
  EXPECT_EQ(event.Time, 9h + 30min + 123456us);
  EXPECT_EQ(event.Change.Symbol, "700");
  EXPECT_EQ(event.Change.State, 2);
  EXPECT_EQ(event.Change.Status, "Halted");
  const decltype(event.Change.Fields) fields = {
      {Field::BestBid, "318.2"}, {Field::BestBidSize, ""}, {Field::BidQueue, std::nullopt}};
  EXPECT_EQ(event.Change.Fields, fields);
  ASSERT_EQ(event.Change.Trades.size(), 1u);
  EXPECT_EQ(event.Change.Trades[0].Time, "09:30");
  EXPECT_EQ(event.Change.Trades[0].Side, "B");
  EXPECT_EQ(event.Change.Trades[0].Quantity, "12K");
  EXPECT_DOUBLE_EQ(event.Change.Trades[0].Price, 318.4);
}

TEST(RecordingParser, LeavesOutWhatALineDoesNotSay) {
  const auto event = EventOf(R"({"s":"5","t":"00:00:00"})");
  EXPECT_EQ(event.Time, 0us);
  EXPECT_FALSE(event.Change.State);
  EXPECT_FALSE(event.Change.Status);
  EXPECT_TRUE(event.Change.Fields.empty());
  EXPECT_TRUE(event.Change.Trades.empty());
}

TEST(RecordingParser, IgnoresMembersThatItDoesNotKnow) {
  const auto event = EventOf(R"({"t":"10:00:00","s":"5","venue":{"a":[1,{}]},"f":{"3":"7"}})");
  const decltype(event.Change.Fields) fields = {{Field::Nominal, "7"}};
  EXPECT_EQ(event.Change.Fields, fields);
}

TEST(RecordingParser, KeepsTextsAsTheyAreGiven) {
  const auto event =
      EventOf(R"({"t":"10:00:00","s":"5","f":{"10":" A\tB\u00e9 \"x\" ","200":"港灣"}})");
  EXPECT_EQ(event.Change.Fields[0].second, " A\tB\xC3\xA9 \"x\" ");
  EXPECT_EQ(event.Change.Fields[1].second, "港灣");
}

TEST(RecordingParser, SaysWhatIsWrongWithALine) {
  for (const auto& malformed : RecordingTest::MalformedLines()) {
    const TParsedLine parsed = Parse(malformed.Line);
    const auto* const problem = std::get_if<Data::TProblem>(&parsed);
    ASSERT_NE(problem, nullptr) << malformed.Line;
    EXPECT_EQ(problem->Code, malformed.Problem.Code) << malformed.Line;
    EXPECT_EQ(problem->Parts, malformed.Problem.Parts) << malformed.Line;
  }
}

TEST(RecordingParser, ReadsTheHeader) {
  const auto parsed = Parse(
      R"({"quorprice":1,"simulated":true,"future":[],)"
      R"("spreads":{"01":{"state":1,"bands":[[0,0.25,0.001],[0.25,0.5,0.005]]},"09":{"state":0}},)"
      R"("brokers":[{"id":"1234","name":"N","name1":"一","name2":"二","other":"O"},{"id":"0005"}],)"
      R"("instruments":[{"symbol":"700","name":"X","currency":"HKD"},)"
      R"({"symbol":"5","name":"Y","name1":"銀行","name2":"银行","currency":"CNY"}]})");
  ASSERT_TRUE(std::holds_alternative<TReferenceData>(parsed));
  TReferenceData expected;
  expected.Simulated = true;
  expected.Spreads = {{"01", 1, {{0, 0.25, 0.001}, {0.25, 0.5, 0.005}}}, {"09", 0, {}}};
  expected.Brokers = {{"1234", "N", "一", "二", "O"}, {"0005", "", "", "", ""}};
  expected.Instruments = {{"700", "X", "HKD"}, {"5", "Y", "CNY", "銀行", "银行"}};
  EXPECT_EQ(std::get<TReferenceData>(parsed), expected);
}

TEST(RecordingParser, GoesOnAfterAMalformedLine) {
  TRecordingParser parser;
  const std::string padding(TRecordingParser::Padding, ' ');
  const std::string bad = R"({"t":"10:00:00","s":)";
  const std::string good = R"({"t":"10:00:00","s":"5"})";
  const std::string both = bad + good + padding;
  EXPECT_TRUE(std::holds_alternative<Data::TProblem>(
      parser.Parse(std::string_view(both).substr(0, bad.size()))));
  EXPECT_TRUE(std::holds_alternative<TRecordedEvent>(
      parser.Parse(std::string_view(both).substr(bad.size(), good.size()))));
}

} // namespace
