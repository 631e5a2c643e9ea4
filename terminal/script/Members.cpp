#include "terminal/script/Members.h"

#include <QRegularExpression>

#include <algorithm>
#include <cmath>
#include <limits>

namespace Terminal {

namespace {

bool IsInteger(const QJsonValue& value) {
  const double number = value.toDouble(0.5);
  return number == std::floor(number) && number >= std::numeric_limits<int>::min() &&
         number <= std::numeric_limits<int>::max();
}

bool IsColour(const QJsonValue& value) {
  static const QRegularExpression colour(QStringLiteral("\\A#[0-9a-fA-F]{6}\\z"));
  return value.isString() && colour.match(value.toString()).hasMatch();
}

bool IsOfKind(const QJsonValue& value, TMemberKind kind) {
  switch (kind) {
  case TMemberKind::Text:
    return value.isString();
  case TMemberKind::TextOrNull:
    return value.isString() || value.isNull();
  case TMemberKind::Integer:
    return IsInteger(value);
  case TMemberKind::IntegerOrNull:
    return value.isNull() || IsInteger(value);
  case TMemberKind::Number:
    return value.isDouble();
  case TMemberKind::Boolean:
    return value.isBool();
  case TMemberKind::Colour:
    return IsColour(value);
  case TMemberKind::Object:
    return value.isObject();
  case TMemberKind::List:
    return value.isArray();
  }
  return false;
}

QString NameOf(TMemberKind kind) {
  switch (kind) {
  case TMemberKind::Text:
    return QStringLiteral("a text");
  case TMemberKind::TextOrNull:
    return QStringLiteral("a text or null");
  case TMemberKind::Integer:
    return QStringLiteral("a whole number");
  case TMemberKind::IntegerOrNull:
    return QStringLiteral("a whole number or null");
  case TMemberKind::Number:
    return QStringLiteral("a number");
  case TMemberKind::Boolean:
    return QStringLiteral("true or false");
  case TMemberKind::Colour:
    return QStringLiteral("a colour such as \"#rrggbb\"");
  case TMemberKind::Object:
    return QStringLiteral("an object");
  case TMemberKind::List:
    return QStringLiteral("a list");
  }
  return {};
}

void CheckKind(const QJsonValue& value, TMemberKind kind, const QString& what) {
  if (!IsOfKind(value, kind))
    throw TScriptError(QStringLiteral("%1 must be %2.").arg(what, NameOf(kind)));
}

} // namespace

void CheckMembers(const QJsonObject& object, const std::vector<TMember>& members,
                  const QString& what) {
  for (const QString& name : object.keys()) {
    const bool known = std::any_of(members.begin(), members.end(),
                                   [&name](const TMember& m) { return name == m.Name; });
    if (!known)
      throw TScriptError(QStringLiteral("The %1 has no member \"%2\".").arg(what, name));
  }
  for (const TMember& member : members) {
    const QString name = QString::fromLatin1(member.Name);
    if (object.contains(name))
      CheckKind(object[name], member.Kind,
                QStringLiteral("The member \"%1\" of the %2").arg(name, what));
    else if (member.Presence == TPresence::Required)
      throw TScriptError(QStringLiteral("The %1 needs the member \"%2\".").arg(what, name));
  }
}

void CheckElements(const QJsonArray& list, TMemberKind kind, const QString& name) {
  for (const auto& element : list)
    CheckKind(element, kind, QStringLiteral("Each element of %1").arg(name));
}

void CheckElements(const QJsonObject& object, TMemberKind kind, const QString& name) {
  for (const auto& element : object)
    CheckKind(element, kind, QStringLiteral("Each member of %1").arg(name));
}

void CheckObjects(const QJsonArray& list, const std::vector<TMember>& members,
                  const QString& name) {
  CheckElements(list, TMemberKind::Object, name);
  for (const auto& element : list)
    CheckMembers(element.toObject(), members, QStringLiteral("element of %1").arg(name));
}

std::string TextOf(const QJsonObject& object, const char* member) {
  return object[QLatin1String(member)].toString().toStdString();
}

} // namespace Terminal
