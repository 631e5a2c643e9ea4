#include "feed/recording/RecordingParser.h"
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

std::string SentenceOf(std::string_view line) {
  const TParsedLine parsed = Parse(line);
  const auto* const error = std::get_if<TParseError>(&parsed);
  return error == nullptr ? "(no error)" : error->Sentence;
}

TRecordedEvent EventOf(std::string_view line) {
  TParsedLine parsed = Parse(line);
  if (auto* const error = std::get_if<TParseError>(&parsed))
    ADD_FAILURE() << error->Sentence;
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

TEST(RecordingParser, SaysWhatIsWrongWithAnEvent) {
  const struct {
    const char* line;
    const char* sentence;
  } cases[] = {
      {R"({"t":"10:00:00","s":"5","f":{"1":"2")", "The line is not complete and correct JSON."},
      {R"({"t":"10:00:00","s":"5","x":[1,})", "The line is not complete and correct JSON."},
      {R"({"t":"10:00:00","s":"5"} {"t":"10:00:01"})",
       "The line is not complete and correct JSON."},
      {"plain text", "The line is not complete and correct JSON."},
      {"{\"t\":\"10:00:00\",\"s\":\"\xC3\x28\"}", "The line is not valid UTF-8."},
      {"[1,2]", "The line is not an object."},
      {"{}", "The time is missing."},
      {R"({"t":"10:00:00"})", "The symbol is missing."},
      {R"({"t":"10:00:00","s":""})", "The symbol is missing."},
      {R"({"t":100000,"s":"5"})", "The time is not a text."},
      {R"({"t":"10:00","s":"5"})", "The time \"10:00\" is not a time of day."},
      {R"({"t":"10:00:00","s":700})", "The symbol is not a text."},
      {R"({"t":"10:00:00","s":"5","f":["1"]})", "The member f is not an object."},
      {R"({"t":"10:00:00","s":"5","f":{"1":2.5}})", "The value of field 1 is not a text."},
      {R"({"t":"10:00:00","s":"5","f":{"bid":"2"}})",
       "The field number \"bid\" is not a number from 0."},
      {R"({"t":"10:00:00","s":"5","f":{"-1":"2"}})",
       "The field number \"-1\" is not a number from 0."},
      {R"({"t":"10:00:00","s":"5","f":{"99999999999":"2"}})",
       "The field number \"99999999999\" is not a number from 0."},
      {R"({"t":"10:00:00","s":"5","state":"1"})", "The state is not an integer of 32 bits."},
      {R"({"t":"10:00:00","s":"5","state":4294967297})", "The state is not an integer of 32 bits."},
      {R"({"t":"10:00:00","s":"5","status":null})", "The status is not a text."},
      {R"({"t":"10:00:00","s":"5","trade":[]})", "The trade is not an object."},
      {R"({"t":"10:00:00","s":"5","trade":{"qty":"1"}})", "The trade's price is missing."},
      {R"({"t":"10:00:00","s":"5","trade":{"qty":1,"price":"2"}})",
       "The trade's quantity is not a text."},
      {R"({"t":"10:00:00","s":"5","trade":{"price":"1,5"}})",
       "The trade's price \"1,5\" is not a number."},
      {R"({"t":"10:00:00","s":"5","trade":{"price":"inf"}})",
       "The trade's price \"inf\" is not a number."},
  };
  for (const auto& [line, sentence] : cases)
    EXPECT_EQ(SentenceOf(line), sentence) << line;
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

TEST(RecordingParser, SaysWhatIsWrongWithAHeader) {
  const struct {
    const char* line;
    const char* sentence;
  } cases[] = {
      {R"({"quorprice":2})", "The recording's version 2 is not known here."},
      {R"({"quorprice":"1"})", "The version is not an integer of 32 bits."},
      {R"({"quorprice":1,"simulated":1})", "The member simulated is neither true nor false."},
      {R"({"quorprice":1,"spreads":[]})", "The member spreads is not an object."},
      {R"({"quorprice":1,"spreads":{"01":{"bands":[[0,1]]}}})",
       "A spread band has not the three numbers from, to and step."},
      {R"({"quorprice":1,"spreads":{"01":{"bands":[[0,1,"x"]]}}})",
       "A spread band's step is not a number."},
      {R"({"quorprice":1,"spreads":{"01":{"bands":[[1,1,0.1]]}}})",
       "A spread band is empty or has no step above 0."},
      {R"({"quorprice":1,"spreads":{"01":{"bands":[[0,1,0]]}}})",
       "A spread band is empty or has no step above 0."},
      {R"({"quorprice":1,"brokers":{}})", "The member brokers is not a list."},
      {R"({"quorprice":1,"brokers":[{"name":"N"}]})", "A broker's id is missing."},
      {R"({"quorprice":1,"instruments":[{"symbol":5}]})", "An instrument's symbol is not a text."},
  };
  for (const auto& [line, sentence] : cases)
    EXPECT_EQ(SentenceOf(line), sentence) << line;
}

TEST(RecordingParser, GoesOnAfterAMalformedLine) {
  TRecordingParser parser;
  const std::string padding(TRecordingParser::Padding, ' ');
  const std::string bad = R"({"t":"10:00:00","s":)";
  const std::string good = R"({"t":"10:00:00","s":"5"})";
  const std::string both = bad + good + padding;
  EXPECT_TRUE(std::holds_alternative<TParseError>(
      parser.Parse(std::string_view(both).substr(0, bad.size()))));
  EXPECT_TRUE(std::holds_alternative<TRecordedEvent>(
      parser.Parse(std::string_view(both).substr(bad.size(), good.size()))));
}

} // namespace
