#pragma once

#include "host/SystemClasses.h"
#include "host/view/ViewInterface.h"

#include <map>
#include <vector>

class QWidget;

namespace Baseview {

using Viewinterface::TInstanceHandle;

/// A preference page: the widget that a preference dialog shows.
class QUOR_EXPORT TBasePreferenceFrame : public System::TObject {
public:
  ~TBasePreferenceFrame() override;

  /// The page's widget, owned by the page; never null.
  virtual QWidget* Widget() = 0;
  virtual int GetWidth() = 0;
  virtual int GetHeight() = 0;

  // Each gives true when it was carried out.

  /// The host's language is Constdef::Language_... now: the page reads its texts again.
  virtual bool SetLanguage(int language) = 0;
  /// Saves the page.
  virtual bool Execute() = 0;
  /// Shows the saved values again.
  virtual bool Reset() = 0;
  /// Shows the values of a new installation; a page that knows none shows the saved ones.
  virtual bool ResetFactory() = 0;
  /// A message of the host's own, told apart by its number.
  virtual bool SendMessage(int message, std::int64_t parameter) = 0;
};

/// The preference pages of a view. Operations with a handle forward to the page, and do nothing
/// and give false for a handle that is not in the table.
class QUOR_EXPORT TIBasePreferenceView : public System::Classes::TComponent {
public:
  explicit TIBasePreferenceView(System::Classes::TComponent* owner);
  ~TIBasePreferenceView() override;

  /// Title in the preference dialog, in the host's language; default empty.
  virtual std::string GetName();
  /// Constdef::View_... of the view that the pages belong to; default 0.
  virtual int GetViewID();
  /// Room that the pages want in the dialog; default 0.
  virtual int GetWidth();
  virtual int GetHeight();
  /// The pages. They stay the descriptor's. By default those in the table; an override enters them
  /// there first.
  virtual std::vector<TBasePreferenceFrame*> GetView();
  virtual bool SetLanguage(TInstanceHandle handle, int language);
  virtual bool Execute(TInstanceHandle handle);
  virtual bool Reset(TInstanceHandle handle);
  virtual bool ResetFactory(TInstanceHandle handle);
  virtual bool SendMessage(TInstanceHandle handle, int message, std::int64_t parameter);

  /// The handle under which a page stands in the table.
  static TInstanceHandle HandleOf(const TBasePreferenceFrame* frame);

protected:
  /// Enters a page in the table, which owns it from now on.
  void AddView(std::unique_ptr<TBasePreferenceFrame> frame);

private:
  TBasePreferenceFrame* FindFrame(TInstanceHandle handle) const;

  std::map<TInstanceHandle, std::unique_ptr<TBasePreferenceFrame>> frames_;
};

} // namespace Baseview
