#pragma once

#include "host/BaseOrderData.h"
#include "host/Service.h"
#include "host/SystemClasses.h"
#include "host/view/ViewInterface.h"

#include <map>
#include <vector>

class QPixmap;
class QWidget;

namespace Platform {
class TcxImageList;
}

namespace Baseview {

/// Names one open instance of a view. Never 0 for an open one.
using TInstanceHandle = std::int64_t;

enum class TDockPosition { Left, Right, Top, Bottom };

/// A kind of view, and an instance of it. A package's descriptor class overrides the operations
/// of the descriptor; its view class overrides those of the instance and is a widget as well. The
/// descriptor keeps the table of its instances: the operations that take an instance handle look
/// the instance up there and forward to it, and do nothing for a handle that is not open.
///
/// User-interface thread only. Texts are UTF-8, sizes in pixels.
class QUOR_EXPORT TIBaseView : public System::Classes::TComponent {
public:
  explicit TIBaseView(System::Classes::TComponent* owner);
  /// A descriptor closes the instances that are still open.
  ~TIBaseView() override;

  // The descriptor.

  virtual std::string GetName();
  virtual int GetViewID();
  virtual int GetMenuLevel();
  /// Position of a menu entry among the host's menu entries; -1 for an entry beyond the last.
  virtual int GetMenuIndex(int entry);
  /// 0 for an entry beyond the last.
  virtual int GetMenuID(int entry);
  /// Language key; empty for an entry beyond the last.
  virtual std::string GetMenuCaption(int entry);
  virtual int GetMenuGroupIndex(int entry);
  /// Whether the user may see the view.
  virtual bool GetIsVisible();
  /// Whether the view is a window of its own instead of a docked one.
  virtual bool GetIsWindow();
  /// Opens a view and gives its handle; 0 when the descriptor opens none.
  virtual TInstanceHandle OpenNewInstance();
  /// Destroys the instance.
  virtual void CloseInstance(TInstanceHandle handle);
  virtual void GetWidth(TInstanceHandle handle, int& width);
  virtual void GetHeight(TInstanceHandle handle, int& height);
  virtual void GetViewCaption(TInstanceHandle handle, std::string& caption);
  /// Clicks the caption button at `button` in the list of caption buttons.
  virtual void HandleCaptionButtonClick(TInstanceHandle handle, int button);
  /// The buttons stay the instance's.
  virtual void GetViewCaptionButtons(TInstanceHandle handle,
                                     std::vector<Viewinterface::TCaptionButton*>& buttons);
  virtual void GetViewCaptionButtonImageList(TInstanceHandle handle,
                                             Platform::TcxImageList*& images);
  virtual void GetViewIcon(TInstanceHandle handle, QPixmap& icon);
  /// The view's preference pages; null when it has none. The descriptor owns it.
  virtual class TIBasePreferenceView* GetPreferenceView();
  virtual bool GetIsDialog();
  virtual bool GetIsSizeable();
  virtual bool GetCanDock();
  virtual TDockPosition GetDockPosition();
  virtual void GetShortCutList(std::vector<Viewinterface::TCustomViewShortcut>& shortcuts);
  /// Executes the shortcut at `action` in the shortcut list: by the active instance, for a
  /// descriptor. True when it was handled.
  virtual bool ExecuteShortcutAction(int action);
  virtual void SetSkin(TInstanceHandle handle, const std::string& skin);
  virtual void SetLanguage(TInstanceHandle handle, int language);
  /// `size` in points; `style` is a sum of FontBold and FontItalic.
  virtual void SetFont(TInstanceHandle handle, const std::string& name, int size, int style);
  virtual void ActiveView(TInstanceHandle handle);
  virtual void DeactiveView(TInstanceHandle handle);
  virtual std::string GetLayoutData(TInstanceHandle handle);
  /// Throws std::invalid_argument when a value cannot be converted; what was applied before it
  /// stays.
  virtual void SetLayoutData(TInstanceHandle handle, const std::string& data);
  virtual void SetCustomData(TInstanceHandle handle, int kind, System::TObject* object);
  virtual bool ContainView(TInstanceHandle handle);
  virtual void SendMessage(TInstanceHandle handle, int message, std::int64_t parameter);
  virtual void SetGroupID(TInstanceHandle handle, const std::string& group);
  virtual void GetGroupID(TInstanceHandle handle, std::string& group);
  virtual bool GetIsDialogViewAfterMainShow();
  virtual int GetDialogViewIndexAfterMainShow();
  /// Enters a new instance in the table, which owns it from now on, and gives its handle.
  virtual TInstanceHandle AddView(std::unique_ptr<TIBaseView> frame);
  /// Size for a view that has not been measured yet. False when the descriptor gives none.
  virtual bool GetDefaultSize(int& width, int& height);
  virtual bool GetDefaultCaption(std::string& caption);
  /// Fills the shortcut list; run before its first use.
  virtual void InitializeShortcut();
  virtual void AddNewShortcut(const std::string& keyName, int key);

  // The instance.

  static constexpr int FontBold = 1;
  static constexpr int FontItalic = 2;

  /// The instance's widget, owned by the instance; null for a descriptor.
  virtual QWidget* Widget();
  virtual void Initialize();
  virtual int GetWidth();
  virtual int GetHeight();
  virtual std::string GetViewCaption();
  virtual std::vector<Viewinterface::TCaptionButton*> GetViewCaptionButtons();
  virtual Platform::TcxImageList* GetViewCaptionButtonImageList();
  virtual bool SetSkin(const std::string& skin);
  virtual bool SetLanguage(int language);
  virtual void SetFont(const std::string& name, int size, int style);
  virtual std::string GetLayoutData();
  virtual bool SetLayoutData(const std::string& data);
  virtual bool SetGroupID(const std::string& group);
  virtual std::string GetGroupID();
  virtual void SetCustomData(int kind, System::TObject* object);
  virtual void SendMessage(int message, std::int64_t parameter);

protected:
  /// Null when the handle is not open.
  TIBaseView* FindInstance(TInstanceHandle handle) const;

private:
  std::map<TInstanceHandle, std::unique_ptr<TIBaseView>> instances_;
  TInstanceHandle active_ = 0;
  std::vector<Viewinterface::TCustomViewShortcut> shortcuts_;
  bool shortcutsReady_ = false;
};

/// A preference page: the widget that a preference dialog shows.
class QUOR_EXPORT TBasePreferenceFrame : public System::TObject {
public:
  ~TBasePreferenceFrame() override;

  /// The page's widget, owned by the page; never null.
  virtual QWidget* Widget() = 0;
  virtual int GetWidth() = 0;
  virtual int GetHeight() = 0;
  virtual bool SetLanguage(int language) = 0;
  /// Saves the page.
  virtual bool Execute() = 0;
  /// Shows the saved values again.
  virtual bool Reset() = 0;
  virtual bool ResetFactory() = 0;
  virtual bool SendMessage(int message, std::int64_t parameter) = 0;
};

/// The preference pages of a view. Operations with a handle forward to the page, and do nothing
/// for a handle that is not in the table.
class QUOR_EXPORT TIBasePreferenceView : public System::Classes::TComponent {
public:
  explicit TIBasePreferenceView(System::Classes::TComponent* owner);
  ~TIBasePreferenceView() override;

  virtual std::string GetName();
  virtual int GetViewID();
  virtual int GetWidth();
  virtual int GetHeight();
  /// The live pages, made on demand. They stay the descriptor's.
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

  std::map<TInstanceHandle, std::unique_ptr<TBasePreferenceFrame>> frames_;

private:
  TBasePreferenceFrame* FindFrame(TInstanceHandle handle) const;
};

/// What a view asks of the host's windows. The free functions below are the way to it.
class QUOR_EXPORT TCustomViewHost : public Host::TService<TCustomViewHost> {
public:
  ~TCustomViewHost() override;

  virtual void ViewNotify(TIBaseView* view, int code) = 0;
  virtual void OpenCustomView(TIBaseView* view, int type, int index,
                              Baseorderdata::TCustomViewParameters* parameters, int position,
                              bool show) = 0;
  virtual QWidget* GetDialogForm(TIBaseView* view, System::TObject* sender) = 0;
};

/// Tells the host of a change: Constdef::Notify_...
QUOR_EXPORT void SendViewNotify(TIBaseView* view, int code);

/// Opens the host view of `type`. `parameters` stays the caller's.
QUOR_EXPORT void OpenCustomView(TIBaseView* view, int type, int index,
                                Baseorderdata::TCustomViewParameters* parameters, int position,
                                bool show);

/// A new non-modal tool window for the view, hidden and empty. The caller frees it by closing it:
/// it is deleted on close. Never null.
QUOR_EXPORT QWidget* GetDialogForm(TIBaseView* view, System::TObject* sender);

} // namespace Baseview
