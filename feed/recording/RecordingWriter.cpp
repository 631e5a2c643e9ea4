#include "feed/recording/RecordingWriter.h"

#include "feed/recording/RecordingParser.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace Feed {

namespace {

std::string Quoted(std::string_view text) {
  constexpr std::string_view hexadecimal = "0123456789abcdef";
  std::string quoted = "\"";
  for (const char c : text) {
    const auto code = static_cast<unsigned char>(c);
    if (c == '"' || c == '\\')
      quoted.append({'\\', c});
    else if (code < 0x20)
      quoted.append("\\u00").append({hexadecimal[code >> 4], hexadecimal[code & 15]});
    else
      quoted.push_back(c);
  }
  return quoted.append("\"");
}

/// The shortest text that reads back as the same number.
std::string NumberText(double number) {
  std::array<char, 32> text{};
  const auto result = std::to_chars(text.data(), text.data() + text.size(), number);
  return std::string(text.data(), result.ptr);
}

template <typename... TParts> std::string Concatenated(const TParts&... parts) {
  std::string text;
  (text.append(parts), ...);
  return text;
}

std::string Member(std::string_view key, std::string_view text) {
  return Concatenated(Quoted(key), ":", Quoted(text));
}

/// The texts of `items` with commas between them.
template <typename TItems, typename TText> std::string Joined(const TItems& items, TText text) {
  std::string joined;
  for (const auto& item : items)
    joined.append(joined.empty() ? "" : ",").append(text(item));
  return joined;
}

std::string BandText(const TReferenceData::TSpreadBand& band) {
  return Concatenated("[", NumberText(band.From), ",", NumberText(band.To), ",",
                      NumberText(band.Step), "]");
}

std::string SpreadText(const TReferenceData::TSpreadTable& table) {
  return Concatenated(Quoted(table.Code), ":{\"state\":", std::to_string(table.State),
                      ",\"bands\":[", Joined(table.Bands, BandText), "]}");
}

std::string BrokerText(const TReferenceData::TBroker& broker) {
  return Concatenated("{", Member("id", broker.Id), ",", Member("name", broker.Name), ",",
                      Member("name1", broker.Name1), ",", Member("name2", broker.Name2), ",",
                      Member("other", broker.Other), "}");
}

std::string InstrumentText(const TReferenceData::TInstrument& instrument) {
  return Concatenated("{", Member("symbol", instrument.Symbol), ",",
                      Member("name", instrument.Name), ",", Member("name1", instrument.Name1), ",",
                      Member("name2", instrument.Name2), ",",
                      Member("currency", instrument.Currency), "}");
}

std::string HeaderText(const TReferenceData& header) {
  return Concatenated("{\"quorprice\":", std::to_string(TRecordingParser::Version),
                      header.Simulated ? ",\"simulated\":true" : "", ",\"spreads\":{",
                      Joined(header.Spreads, SpreadText), "},\"brokers\":[",
                      Joined(header.Brokers, BrokerText), "],\"instruments\":[",
                      Joined(header.Instruments, InstrumentText), "]}\n");
}

std::string FieldText(const std::pair<int, std::optional<std::string>>& field) {
  return Concatenated(Quoted(std::to_string(field.first)), ":",
                      field.second ? Quoted(*field.second) : "null");
}

std::string TradeText(const Markettradesidedetector::TTrade& trade) {
  return Concatenated(",\"trade\":{", Member("time", trade.Time), ",", Member("side", trade.Side),
                      ",", Member("qty", trade.Quantity), ",",
                      Member("price", NumberText(trade.Price)), "}");
}

/// Empty when all went well with `file` so far.
std::optional<Data::TProblem> UnlessGood(const std::ofstream& file, Data::TProblemCode code) {
  return file ? std::nullopt : std::optional(Data::TProblem{code});
}

} // namespace

std::optional<Data::TProblem> TRecordingWriter::Open(const std::filesystem::path& path,
                                                     const TReferenceData& header) {
  lastTime_ = {};
  file_ = std::ofstream(path, std::ios::binary | std::ios::trunc);
  file_ << HeaderText(header) << std::flush;
  return UnlessGood(file_, Data::TProblemCode::FileUnwritable);
}

void TRecordingWriter::Write(TTimeOfDay time, const TRecordChange& change) {
  if (change.Symbol.empty())
    return;
  lastTime_ = std::max(lastTime_, time);
  const std::string front = Concatenated("{", Member("t", Text::TimeOfDayText(lastTime_)), ",",
                                         Member("s", change.Symbol));
  file_ << front;
  if (change.State)
    file_ << ",\"state\":" << *change.State;
  if (change.Status)
    file_ << "," << Member("status", *change.Status);
  if (!change.Fields.empty())
    file_ << ",\"f\":{" << Joined(change.Fields, FieldText) << "}";
  if (!change.Trades.empty())
    file_ << TradeText(change.Trades.front());
  for (std::size_t i = 1; i < change.Trades.size(); ++i)
    file_ << "}\n" << front << TradeText(change.Trades[i]);
  file_ << "}\n";
}

std::optional<Data::TProblem> TRecordingWriter::Close() {
  file_.close();
  return UnlessGood(file_, Data::TProblemCode::RecordingIncomplete);
}

std::optional<Data::TProblem> WriteRecording(const TChangeStream& market, TTimeOfDay length,
                                             const std::filesystem::path& path) {
  TRecordingWriter writer;
  if (auto problem = writer.Open(path, market.Header))
    return problem;
  auto moment = market.Next();
  const TTimeOfDay end = moment ? moment->Time + length : TTimeOfDay{};
  for (; moment && moment->Time <= end; moment = market.Next())
    for (const TRecordChange& change : moment->Changes)
      writer.Write(moment->Time, change);
  return writer.Close();
}

} // namespace Feed
