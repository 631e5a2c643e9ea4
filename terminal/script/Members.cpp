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

struct TRule {
  const char* Name;
  bool (*IsKept)(const QJsonValue& value);
};

/// In the order of TMemberKind.
constexpr TRule Rules[] = {
    {"a text", [](const QJsonValue& v) { return v.isString(); }},
    {"a text or null", [](const QJsonValue& v) { return v.isString() || v.isNull(); }},
    {"a whole number", IsInteger},
    {"a whole number or null", [](const QJsonValue& v) { return v.isNull() || IsInteger(v); }},
    {"a number", [](const QJsonValue& v) { return v.isDouble(); }},
    {"true or false", [](const QJsonValue& v) { return v.isBool(); }},
    {"a colour such as \"#rrggbb\"", IsColour},
    {"an object", [](const QJsonValue& v) { return v.isObject(); }},
    {"a list", [](const QJsonValue& v) { return v.isArray(); }},
};

void CheckKind(const QJsonValue& value, TMemberKind kind, const QString& what) {
  const TRule& rule = Rules[static_cast<std::size_t>(kind)];
  if (!rule.IsKept(value))
    throw TScriptError(QStringLiteral("%1 must be %2.").arg(what, QLatin1String(rule.Name)));
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
