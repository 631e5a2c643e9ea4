#pragma once

#include "host/ConstDef.h"
#include "host/Service.h"

#include <string_view>

namespace Baselanguagemanager {

/// Texts by key in the user's language.
class QUOR_EXPORT TCustomLanguageManager : public Host::TService<TCustomLanguageManager> {
public:
  ~TCustomLanguageManager() override;

  /// Gives the UTF-8 text of `key` under `tag` in the current language. Under the resource-string
  /// tag an unknown key gives the key itself; under the other tags it gives an empty text.
  /// `kind`, `first` and `second` are the host's own selectors; packages pass 3, 0 and 0.
  virtual void GetText(std::string& text, std::string_view tag, std::string_view key, int kind,
                       int first, int second) = 0;

  /// Constdef::Language_... of the texts.
  virtual int CurrentLanguage() = 0;

  /// The text of a resource key ("Res_...") in the current language.
  std::string GetResource(std::string_view key);
};

} // namespace Baselanguagemanager
