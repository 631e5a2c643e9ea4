#include "terminal/script/ScriptSession.h"

#include <cmath>

namespace Terminal {

namespace {

using TKind = TMemberKind;
constexpr TPresence Optional = TPresence::Optional;

int FieldNumber(const QString& text) {
  bool isNumber = false;
  const int number = text.toInt(&isNumber);
  if (!isNumber || !text.front().isDigit() || !text.back().isDigit())
    throw TScriptError(QStringLiteral("\"%1\" is not a field number.").arg(text));
  return number;
}

double PriceOf(const QString& text) {
  if (text.isEmpty())
    return 0;
  bool isNumber = false;
  const double price = text.toDouble(&isNumber);
  if (!isNumber || !std::isfinite(price))
    throw TScriptError(QStringLiteral("\"%1\" is not a price.").arg(text));
  return price;
}

void CheckSymbol(const QJsonObject& members) {
  if (members["symbol"].toString().isEmpty())
    throw TScriptError(QStringLiteral("The symbol must not be empty."));
}

QJsonObject DefineSpreadTable(TScriptSession& session, const QJsonObject& members) {
  TReferenceData::TSpreadTable table{TextOf(members, "code"), members["state"].toInt(), {}};
  for (const auto& element : members["bands"].toArray()) {
    CheckElements(element.toArray(), TKind::Number, QStringLiteral("a band"));
    const QJsonArray band = element.toArray();
    if (band.size() != 3)
      throw TScriptError(QStringLiteral("A band must be a list of from, to and step."));
    if (band[0].toDouble() >= band[1].toDouble() || band[2].toDouble() <= 0)
      throw TScriptError(QStringLiteral("A band must go upwards in steps above zero."));
    table.Bands.push_back({band[0].toDouble(), band[1].toDouble(), band[2].toDouble()});
  }
  session.Services().Market.DefineSpreadTables({table});
  return {};
}

QJsonObject ReplaceBrokers(TScriptSession& session, const QJsonObject& members) {
  const QJsonArray list = members["list"].toArray();
  CheckObjects(list,
               {{"id", TKind::Text},
                {"name", TKind::Text, Optional},
                {"name1", TKind::Text, Optional},
                {"name2", TKind::Text, Optional},
                {"other", TKind::Text, Optional}},
               QStringLiteral("list"));
  std::vector<TBrokerDefinition> brokers;
  for (const auto& element : list) {
    const QJsonObject broker = element.toObject();
    brokers.push_back({TextOf(broker, "id"), TextOf(broker, "name"), TextOf(broker, "name1"),
                       TextOf(broker, "name2"), TextOf(broker, "other")});
  }
  session.Services().Market.ReplaceBrokers(brokers);
  return {};
}

QJsonObject DefineInstrument(TScriptSession& session, const QJsonObject& members) {
  CheckSymbol(members);
  session.Services().Market.DefineInstrument(TextOf(members, "symbol"), TextOf(members, "currency"),
                                             TextOf(members, "name"));
  return {};
}

QJsonObject UpdateRecord(TScriptSession& session, const QJsonObject& members) {
  CheckSymbol(members);
  const QJsonObject fields = members["fields"].toObject();
  CheckElements(fields, TKind::TextOrNull, QStringLiteral("fields"));
  Data::TRecordChange change;
  change.Symbol = TextOf(members, "symbol");
  if (members.contains("state"))
    change.State = members["state"].toInt();
  if (members.contains("status"))
    change.Status = TextOf(members, "status");
  for (auto field = fields.begin(); field != fields.end(); ++field) {
    std::optional<std::string> text;
    if (field.value().isString())
      text = field.value().toString().toStdString();
    change.Fields.emplace_back(FieldNumber(field.key()), std::move(text));
  }
  session.Services().Subscriptions.Apply(change);
  return {};
}

QJsonObject ReplaceTrades(TScriptSession& session, const QJsonObject& members) {
  CheckSymbol(members);
  const QJsonArray list = members["list"].toArray();
  CheckObjects(list,
               {{"time", TKind::Text, Optional},
                {"side", TKind::Text, Optional},
                {"qty", TKind::Text, Optional},
                {"price", TKind::Text, Optional}},
               QStringLiteral("list"));
  std::vector<Markettradesidedetector::TTrade> trades;
  for (const auto& element : list) {
    const QJsonObject trade = element.toObject();
    trades.push_back({TextOf(trade, "time"), TextOf(trade, "side"), TextOf(trade, "qty"),
                      PriceOf(trade["price"].toString())});
  }
  session.Services().TradeSides.ReplaceTrades(TextOf(members, "symbol"), trades);
  return {};
}

} // namespace

std::vector<TScriptCommand> MarketCommands() {
  return {
      {"spread-table",
       {{"code", TKind::Text}, {"state", TKind::Integer}, {"bands", TKind::List}},
       DefineSpreadTable},
      {"brokers", {{"list", TKind::List}}, ReplaceBrokers},
      {"instrument",
       {{"symbol", TKind::Text}, {"currency", TKind::Text}, {"name", TKind::Text, Optional}},
       DefineInstrument},
      {"record",
       {{"symbol", TKind::Text},
        {"state", TKind::Integer, Optional},
        {"status", TKind::Text, Optional},
        {"fields", TKind::Object, Optional}},
       UpdateRecord},
      {"trades", {{"symbol", TKind::Text}, {"list", TKind::List}}, ReplaceTrades},
  };
}

} // namespace Terminal
