#pragma once

#include "host/System.h"

#include <string>

namespace Viewinterface {

/// Names one open instance of a view, or one of its preference pages. Never 0 for an open one.
using TInstanceHandle = std::int64_t;

/// A button on a view's caption. The view owns it and tells its host of changes with the layout
/// notification.
class QUOR_EXPORT TCaptionButton : public System::TObject {
public:
  ~TCaptionButton() override;

  std::string Name;             ///< what it is for, one of Constdef::CaptionButtons in a price view
  std::string Hint;             ///< text shown for the button, UTF-8
  int ImageIndex = -1;          ///< in the view's caption-button image list; -1: none
  int State = 0;                ///< 0 or 1 as the view uses it
  System::TNotifyEvent OnClick; ///< called by the host with the button as sender
};

/// A keyboard shortcut that a view offers.
struct TCustomViewShortcut {
  std::string Name; ///< language key
  int Key = 0;      ///< Qt key combination; 0: no default key
};

} // namespace Viewinterface
