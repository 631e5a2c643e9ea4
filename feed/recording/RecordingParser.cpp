#include "feed/recording/RecordingParser.h"

#include <simdjson.h>

#include <charconv>
#include <cmath>
#include <limits>

namespace Feed {

namespace {

namespace dom = simdjson::dom;

static_assert(TRecordingParser::Padding >= simdjson::SIMDJSON_PADDING);

[[noreturn]] void Fail(std::string_view what, std::string_view isWrong) {
  throw TParseError{std::string(what).append(" ").append(isWrong).append(".")};
}

std::string_view Text(dom::element value, std::string_view what) {
  std::string_view text;
  if (value.get(text) != simdjson::SUCCESS)
    Fail(what, "is not a text");
  return text;
}

dom::object Object(dom::element value, std::string_view what) {
  dom::object object;
  if (value.get(object) != simdjson::SUCCESS)
    Fail(what, "is not an object");
  return object;
}

dom::array Array(dom::element value, std::string_view what) {
  dom::array array;
  if (value.get(array) != simdjson::SUCCESS)
    Fail(what, "is not a list");
  return array;
}

double Number(dom::element value, std::string_view what) {
  double number = 0;
  if (value.get(number) != simdjson::SUCCESS)
    Fail(what, "is not a number");
  return number;
}

int Integer(dom::element value, std::string_view what) {
  std::int64_t number = 0;
  if (value.get(number) != simdjson::SUCCESS || number < std::numeric_limits<int>::min() ||
      number > std::numeric_limits<int>::max())
    Fail(what, "is not an integer of 32 bits");
  return static_cast<int>(number);
}

template <typename TNumber> std::optional<TNumber> WholeText(std::string_view text) {
  TNumber number{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size())
    return std::nullopt;
  return number;
}

/// The text of an optional member; empty when the object has none.
std::string OptionalText(dom::object object, std::string_view key, std::string_view what) {
  dom::element value;
  return object[key].get(value) == simdjson::SUCCESS ? std::string(Text(value, what))
                                                     : std::string();
}

std::string RequiredText(dom::object object, std::string_view key, std::string_view what) {
  std::string text = OptionalText(object, key, what);
  if (text.empty())
    Fail(what, "is missing");
  return text;
}

TReferenceData::TSpreadBand Band(dom::element value) {
  const dom::array numbers = Array(value, "A spread band");
  if (numbers.size() != 3)
    Fail("A spread band", "has not the three numbers from, to and step");
  const TReferenceData::TSpreadBand band{
      Number(numbers.at(0).value_unsafe(), "A spread band's start"),
      Number(numbers.at(1).value_unsafe(), "A spread band's end"),
      Number(numbers.at(2).value_unsafe(), "A spread band's step")};
  if (band.From >= band.To || band.Step <= 0)
    Fail("A spread band", "is empty or has no step above 0");
  return band;
}

TReferenceData::TSpreadTable SpreadTable(std::string_view code, dom::element value) {
  const dom::object object = Object(value, "A spread table");
  TReferenceData::TSpreadTable table;
  table.Code = code;
  dom::element member;
  if (object["state"].get(member) == simdjson::SUCCESS)
    table.State = Integer(member, "A spread table's state");
  if (object["bands"].get(member) == simdjson::SUCCESS) {
    for (const dom::element band : Array(member, "The bands of a spread table"))
      table.Bands.push_back(Band(band));
  }
  return table;
}

TReferenceData::TBroker Broker(dom::element value) {
  const dom::object object = Object(value, "A broker");
  return {RequiredText(object, "id", "A broker's id"),
          OptionalText(object, "name", "A broker's name"),
          OptionalText(object, "name1", "A broker's first other name"),
          OptionalText(object, "name2", "A broker's second other name"),
          OptionalText(object, "other", "A broker's remaining name")};
}

TReferenceData::TInstrument Instrument(dom::element value) {
  const dom::object object = Object(value, "An instrument");
  return {RequiredText(object, "symbol", "An instrument's symbol"),
          OptionalText(object, "name", "An instrument's name"),
          OptionalText(object, "currency", "An instrument's currency"),
          OptionalText(object, "name1", "An instrument's Traditional Chinese name"),
          OptionalText(object, "name2", "An instrument's Simplified Chinese name")};
}

TReferenceData Header(dom::object line) {
  TReferenceData header;
  for (const auto [key, value] : line) {
    if (key == "quorprice") {
      if (const int version = Integer(value, "The version"); version != TRecordingParser::Version)
        Fail("The recording's version " + std::to_string(version), "is not known here");
    } else if (key == "spreads") {
      for (const auto [code, table] : Object(value, "The member spreads"))
        header.Spreads.push_back(SpreadTable(code, table));
    } else if (key == "brokers") {
      for (const dom::element broker : Array(value, "The member brokers"))
        header.Brokers.push_back(Broker(broker));
    } else if (key == "instruments") {
      for (const dom::element instrument : Array(value, "The member instruments"))
        header.Instruments.push_back(Instrument(instrument));
    } else if (key == "simulated") {
      if (value.get(header.Simulated) != simdjson::SUCCESS)
        Fail("The member simulated", "is neither true nor false");
    }
  }
  return header;
}

void ReadFields(dom::element value, TRecordChange& change) {
  const dom::object fields = Object(value, "The member f");
  change.Fields.reserve(fields.size());
  for (const auto [key, text] : fields) {
    const auto number = WholeText<int>(key);
    if (!number || *number < 0)
      Fail("The field number \"" + std::string(key) + "\"", "is not a number from 0");
    if (text.is_null())
      change.Fields.emplace_back(*number, std::nullopt);
    else
      change.Fields.emplace_back(*number, Text(text, "The value of field " + std::string(key)));
  }
}

Markettradesidedetector::TTrade Trade(dom::element value) {
  const dom::object object = Object(value, "The trade");
  const std::string price = RequiredText(object, "price", "The trade's price");
  const auto number = WholeText<double>(price);
  if (!number || !std::isfinite(*number))
    Fail("The trade's price \"" + price + "\"", "is not a number");
  return {OptionalText(object, "time", "The trade's time"),
          OptionalText(object, "side", "The trade's side"),
          OptionalText(object, "qty", "The trade's quantity"), *number};
}

TTimeOfDay Time(dom::element value) {
  const std::string_view text = Text(value, "The time");
  const auto time = Text::ParseTimeOfDay(text);
  if (!time)
    Fail("The time \"" + std::string(text) + "\"", "is not a time of day");
  return *time;
}

TRecordedEvent Event(dom::object line) {
  TRecordedEvent event;
  bool hasTime = false;
  for (const auto [key, value] : line) {
    if (key == "t") {
      event.Time = Time(value);
      hasTime = true;
    } else if (key == "s") {
      event.Change.Symbol = Text(value, "The symbol");
    } else if (key == "f") {
      ReadFields(value, event.Change);
    } else if (key == "state") {
      event.Change.State = Integer(value, "The state");
    } else if (key == "status") {
      event.Change.Status = Text(value, "The status");
    } else if (key == "trade") {
      event.Change.Trades.push_back(Trade(value));
    }
  }
  if (!hasTime)
    Fail("The time", "is missing");
  if (event.Change.Symbol.empty())
    Fail("The symbol", "is missing");
  return event;
}

} // namespace

TRecordingParser::TRecordingParser() : parser_(std::make_unique<dom::parser>()) {}
TRecordingParser::TRecordingParser(TRecordingParser&&) noexcept = default;
TRecordingParser& TRecordingParser::operator=(TRecordingParser&&) noexcept = default;
TRecordingParser::~TRecordingParser() = default;

// The whole line is parsed before any of it is used: reading on demand would be no faster here and
// would let a line through that breaks off behind the last member of interest.
TParsedLine TRecordingParser::Parse(std::string_view line) {
  try {
    dom::element root;
    const auto error = parser_->parse(line.data(), line.size(), false).get(root);
    if (error == simdjson::UTF8_ERROR)
      Fail("The line", "is not valid UTF-8");
    if (error != simdjson::SUCCESS)
      Fail("The line", "is not complete and correct JSON");
    const dom::object object = Object(root, "The line");
    if (object["quorprice"].error() == simdjson::SUCCESS)
      return Header(object);
    return Event(object);
  } catch (TParseError& error) {
    return std::move(error);
  }
}

} // namespace Feed
