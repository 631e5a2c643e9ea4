#pragma once

#include "host/System.h"

#include <string>

namespace Terminal {

class TServices;

/// Brings a symbol into the views: into those of the linking group, or by broadcast where `group`
/// is empty. `sender` may be null.
void ChooseSymbol(TServices& services, const std::string& group, System::TObject* sender,
                  const std::string& symbol);

} // namespace Terminal
