#pragma once

#include <QTranslator>

namespace Terminal {

/// The toolkit's own texts, such as those of its colour dialog. English until another language is
/// set, and where the toolkit's translations are not installed.
class TToolkitTexts {
public:
  /// Constdef::Language_...
  void SetLanguage(int language);

private:
  QTranslator translator_;
};

} // namespace Terminal
