#pragma once

#include <QString>

namespace Terminal {

/// The text of a language key in the terminal's current language.
QString WindowText(const char* key);

} // namespace Terminal
