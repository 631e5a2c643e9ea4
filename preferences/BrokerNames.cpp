#include "preferences/BrokerNames.h"

#include "host/BaseLanguageManager.h"
#include "host/BaseMarketAdapter.h"

namespace Quorpricepreference {

using Basemarketadapter::TCustomBroker;

namespace {

constexpr int Digits = 4;
constexpr int LastNumber = 9999;

const TCustomBroker* FindBroker(const QString& number) {
  auto* market = Basemarketadapter::TCustomMarketAdapter::GetInstance();
  return market->GetBroker(number.toStdString());
}

QString FourDigits(const QString& number) { return number.rightJustified(Digits, u'0'); }

QString ToText(std::string_view name) {
  return QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
}

bool IsCalled(const TCustomBroker& broker, const QString& text) {
  for (const auto name : {broker.Name(), broker.Name1(), broker.Name2(), broker.OtherName()})
    if (ToText(name).contains(text, Qt::CaseInsensitive))
      return true;
  return false;
}

} // namespace

QString BrokerText(const QString& id) {
  bool isNumber = false;
  id.toUInt(&isNumber);
  if (!isNumber)
    return id;
  QString number = FourDigits(id.trimmed());
  const auto* broker = FindBroker(number);
  if (!broker)
    return number;
  const int language =
      Baselanguagemanager::TCustomLanguageManager::GetInstance()->CurrentLanguage();
  return QStringLiteral("%1  %2").arg(number, ToText(broker->NameIn(language)));
}

// The directory answers one number at a time and does not say which ones it has.
QStringList FindBrokers(const QString& text) {
  QStringList found;
  for (int number = 0; number <= LastNumber && !text.isEmpty(); ++number) {
    const QString id = FourDigits(QString::number(number));
    const auto* broker = FindBroker(id);
    if (broker && IsCalled(*broker, text))
      found << id;
  }
  return found;
}

} // namespace Quorpricepreference
