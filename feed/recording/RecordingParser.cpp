#include "feed/recording/RecordingParser.h"

#include "text/Numbers.h"

#include <simdjson.h>

#include <cmath>
#include <limits>

namespace Feed {

namespace {

namespace dom = simdjson::dom;

static_assert(TRecordingParser::Padding >= simdjson::SIMDJSON_PADDING);

using enum Data::TProblemCode;

template <typename... TParts>
[[noreturn]] void Fail(Data::TProblemCode code, const TParts&... parts) {
  throw Data::TProblem{code, {std::string(parts)...}};
}

/// The value as a TValue, or `otherwise` and its parts when it is none.
template <typename TValue, typename... TParts>
TValue Get(dom::element value, Data::TProblemCode otherwise, const TParts&... parts) {
  TValue got{};
  if (value.get(got) != simdjson::SUCCESS)
    Fail(otherwise, parts...);
  return got;
}

int Integer(dom::element value, Data::TProblemCode otherwise) {
  const auto number = Get<std::int64_t>(value, otherwise);
  if (number < std::numeric_limits<int>::min() || number > std::numeric_limits<int>::max())
    Fail(otherwise);
  return static_cast<int>(number);
}

/// The text of an optional member; empty when the object has none.
std::string OptionalText(dom::object object, std::string_view key, Data::TProblemCode notText) {
  dom::element value;
  return std::string(object[key].get(value) == simdjson::SUCCESS
                         ? Get<std::string_view>(value, notText)
                         : std::string_view());
}

std::string RequiredText(dom::object object, std::string_view key, Data::TProblemCode notText,
                         Data::TProblemCode missing) {
  std::string text = OptionalText(object, key, notText);
  if (text.empty())
    Fail(missing);
  return text;
}

TReferenceData::TSpreadBand Band(dom::element value) {
  const auto numbers = Get<dom::array>(value, SpreadBandNotList);
  if (numbers.size() != 3)
    Fail(SpreadBandNotThreeNumbers);
  const TReferenceData::TSpreadBand band{
      Get<double>(numbers.at(0).value_unsafe(), SpreadBandStartNotNumber),
      Get<double>(numbers.at(1).value_unsafe(), SpreadBandEndNotNumber),
      Get<double>(numbers.at(2).value_unsafe(), SpreadBandStepNotNumber)};
  if (band.From >= band.To || band.Step <= 0)
    Fail(SpreadBandEmpty);
  return band;
}

TReferenceData::TSpreadTable SpreadTable(std::string_view code, dom::element value) {
  const auto object = Get<dom::object>(value, SpreadTableNotObject);
  TReferenceData::TSpreadTable table;
  table.Code = code;
  dom::element member;
  if (object["state"].get(member) == simdjson::SUCCESS)
    table.State = Integer(member, SpreadStateNotInteger);
  if (object["bands"].get(member) == simdjson::SUCCESS) {
    for (const dom::element band : Get<dom::array>(member, SpreadBandsNotList))
      table.Bands.push_back(Band(band));
  }
  return table;
}

TReferenceData::TBroker Broker(dom::element value) {
  const auto object = Get<dom::object>(value, BrokerNotObject);
  return {RequiredText(object, "id", BrokerIdNotText, BrokerIdMissing),
          OptionalText(object, "name", BrokerNameNotText),
          OptionalText(object, "name1", BrokerName1NotText),
          OptionalText(object, "name2", BrokerName2NotText),
          OptionalText(object, "other", BrokerOtherNotText)};
}

TReferenceData::TInstrument Instrument(dom::element value) {
  const auto object = Get<dom::object>(value, InstrumentNotObject);
  return {RequiredText(object, "symbol", InstrumentSymbolNotText, InstrumentSymbolMissing),
          OptionalText(object, "name", InstrumentNameNotText),
          OptionalText(object, "currency", InstrumentCurrencyNotText),
          OptionalText(object, "name1", InstrumentName1NotText),
          OptionalText(object, "name2", InstrumentName2NotText)};
}

TReferenceData Header(dom::object line) {
  TReferenceData header;
  for (const auto [key, value] : line) {
    if (key == "quorprice") {
      if (const int version = Integer(value, VersionNotInteger);
          version != TRecordingParser::Version)
        Fail(VersionUnknown, std::to_string(version));
    } else if (key == "spreads") {
      for (const auto [code, table] : Get<dom::object>(value, MemberNotObject, key))
        header.Spreads.push_back(SpreadTable(code, table));
    } else if (key == "brokers") {
      for (const dom::element broker : Get<dom::array>(value, MemberNotList, key))
        header.Brokers.push_back(Broker(broker));
    } else if (key == "instruments") {
      for (const dom::element instrument : Get<dom::array>(value, MemberNotList, key))
        header.Instruments.push_back(Instrument(instrument));
    } else if (key == "simulated") {
      header.Simulated = Get<bool>(value, SimulatedNotBoolean);
    }
  }
  return header;
}

void ReadFields(dom::element value, TRecordChange& change) {
  const auto fields = Get<dom::object>(value, MemberNotObject, "f");
  change.Fields.reserve(fields.size());
  for (const auto [key, text] : fields) {
    const auto number = Text::ParseWhole<int>(key);
    if (!number || *number < 0)
      Fail(FieldNumberUnknown, key);
    if (text.is_null())
      change.Fields.emplace_back(*number, std::nullopt);
    else
      change.Fields.emplace_back(*number, Get<std::string_view>(text, FieldNotText, key));
  }
}

Markettradesidedetector::TTrade Trade(dom::element value) {
  const auto object = Get<dom::object>(value, TradeNotObject);
  const std::string price = RequiredText(object, "price", TradePriceNotText, TradePriceMissing);
  const auto number = Text::ParseWhole<double>(price);
  if (!number || !std::isfinite(*number))
    Fail(TradePriceNotNumber, price);
  return {OptionalText(object, "time", TradeTimeNotText),
          OptionalText(object, "side", TradeSideNotText),
          OptionalText(object, "qty", TradeQuantityNotText), *number};
}

TTimeOfDay Time(dom::element value) {
  const auto text = Get<std::string_view>(value, TimeNotText);
  const auto time = Text::ParseTimeOfDay(text);
  if (!time)
    Fail(TimeUnknown, text);
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
      event.Change.Symbol = Get<std::string_view>(value, SymbolNotText);
    } else if (key == "f") {
      ReadFields(value, event.Change);
    } else if (key == "state") {
      event.Change.State = Integer(value, StateNotInteger);
    } else if (key == "status") {
      event.Change.Status = Get<std::string_view>(value, StatusNotText);
    } else if (key == "trade") {
      event.Change.Trades.push_back(Trade(value));
    }
  }
  if (!hasTime)
    Fail(TimeMissing);
  if (event.Change.Symbol.empty())
    Fail(SymbolMissing);
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
      Fail(LineNotUtf8);
    if (error != simdjson::SUCCESS)
      Fail(LineNotJson);
    const auto object = Get<dom::object>(root, LineNotObject);
    if (object["quorprice"].error() == simdjson::SUCCESS)
      return Header(object);
    return Event(object);
  } catch (Data::TProblem& problem) {
    return std::move(problem);
  }
}

} // namespace Feed
