#pragma once

#include "data/Orders.h"
#include "data/Problem.h"

#include <QString>

#include <optional>

namespace Terminal {

class TMarketFeed;
class TServices;

/// The text of a language key in the terminal's current language.
QString WindowText(const char* key);

/// `text` with a key to press together with Alt: the letter itself where the text has it, or else
/// behind the text, as in "確定(&O)".
QString WithMnemonic(const QString& text, QChar letter);

/// An instrument's name in the terminal's current language; empty where it has none.
QString InstrumentName(const TServices& services, const QString& symbol);

/// A symbol and, where it has one, its name.
QString InstrumentText(const TServices& services, const QString& symbol);

/// What is wrong, in one sentence of the terminal's current language.
QString ProblemText(const Data::TProblem& problem);

/// The same of a file, which the sentence names; empty when nothing is wrong.
QString FileSentence(const QString& file, const std::optional<Data::TProblem>& problem);

/// What stands wherever the market is shown that `feed` hands on: that it is invented, or else
/// what its source is marked with.
QString MarketText(const TMarketFeed& feed);

/// What must stand in every window that can be seen by itself: that the market is invented; empty
/// when it is not.
QString SimulatedMark(const TMarketFeed& feed);

/// A window's title with such a mark behind it: where there is little room the end is cut off, and
/// what tells one window from another stays. An empty mark adds nothing.
QString MarkedTitle(const QString& title, const QString& mark);

QString SideText(Data::TSide side);

/// Language key of an order's status.
const char* StatusKey(Data::TOrderStatus status);

} // namespace Terminal
