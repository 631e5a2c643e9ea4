#pragma once

#include <QString>

namespace Terminal {

class TSavedState;

/// What the user must know of the store, in one sentence of the current language; empty when
/// everything is kept as it should be.
QString StoreSentence(const TSavedState& state);

} // namespace Terminal
