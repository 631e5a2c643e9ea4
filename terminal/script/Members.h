#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QString>

#include <stdexcept>
#include <vector>

namespace Terminal {

/// Why a command was not carried out, in one sentence.
class TScriptError : public std::runtime_error {
public:
  explicit TScriptError(const QString& sentence) : std::runtime_error(sentence.toStdString()) {}
};

/// What a member of a command must hold.
enum class TMemberKind {
  Text,
  TextOrNull,
  Integer, ///< a whole number that fits an int
  IntegerOrNull,
  Number,
  Boolean,
  Colour, ///< "#rrggbb"
  Object,
  List,
};

enum class TPresence { Required, Optional };

struct TMember {
  const char* Name;
  TMemberKind Kind;
  TPresence Presence = TPresence::Required;
};

/// Throws TScriptError unless `object`, called `what` in the sentence, has all the required ones
/// of `members`, nothing but `members`, and all of them of their kinds.
void CheckMembers(const QJsonObject& object, const std::vector<TMember>& members,
                  const QString& what);

/// Throws TScriptError unless every element of `list`, or every member of `object`, is of the
/// kind; `name` is what the sentence calls the list or object.
void CheckElements(const QJsonArray& list, TMemberKind kind, const QString& name);
void CheckElements(const QJsonObject& object, TMemberKind kind, const QString& name);

/// Throws TScriptError unless every element is an object that passes CheckMembers.
void CheckObjects(const QJsonArray& list, const std::vector<TMember>& members, const QString& name);

/// A checked text as UTF-8; empty when absent.
std::string TextOf(const QJsonObject& object, const char* member);

} // namespace Terminal
