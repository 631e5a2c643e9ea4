#pragma once

#include "terminal/script/ScriptCommand.h"

#include <vector>

namespace Terminal {

/// The commands that edit and read the preference page of the price view, by the names of its
/// components.
std::vector<TScriptCommand> PageCommands();

} // namespace Terminal
