#pragma once

#include "host/BaseOrderData.h"
#include "host/Service.h"
#include "host/view/BasePreferenceView.h"
#include "host/view/ViewInterface.h"

#include <map>
#include <vector>

class QPixmap;
class QWidget;

namespace Platform {
class TcxImageList;
}

namespace Baseview {

enum class TDockPosition { Left, Right, Top, Bottom };

/// A kind of view, and an instance of it. A package's descriptor class overrides the operations
/// of the descriptor; its view class overrides those of the instance and is a widget as well. The
/// descriptor keeps the table of its instances: the operations that take an instance handle look
/// the instance up there and forward to it. For a handle that is not open they do nothing, leave
/// what they were to fill as it was, and answer with an empty text. What they mean stands with the
/// instance's operation of the same name. Defaults are what a class that overrides nothing answers.
///
/// User-interface thread only. Texts are UTF-8, sizes in pixels.
class QUOR_EXPORT TIBaseView : public System::Classes::TComponent {
public:
  explicit TIBaseView(System::Classes::TComponent* owner);
  /// A descriptor closes the instances that are still open.
  ~TIBaseView() override;

  // The descriptor. The order of the operations is part of the contract.

  /// Name by which a host may know the view, the same in every language; default empty.
  virtual std::string GetName();
  /// Constdef::View_...; default 0.
  virtual int GetViewID();
  /// How many menu entries lead to the view: entry 0 is the menu, the last one the item that opens
  /// it. Default 0: none. The next four are asked of each entry.
  virtual int GetMenuLevel();
  /// Position of the entry among the host's; -1 for an entry beyond the last.
  virtual int GetMenuIndex(int entry);
  /// 0 for an entry beyond the last.
  virtual int GetMenuID(int entry);
  /// Language key; empty for an entry beyond the last.
  virtual std::string GetMenuCaption(int entry);
  /// Group of entries between two separators; default 0.
  virtual int GetMenuGroupIndex(int entry);
  /// Whether the user may see the view; default true.
  virtual bool GetIsVisible();
  /// Whether the view is a window of its own instead of a docked one; default false.
  virtual bool GetIsWindow();
  /// Opens a view and gives its handle; 0, the default, when the descriptor opens none.
  virtual TInstanceHandle OpenNewInstance();
  /// Destroys the instance.
  virtual void CloseInstance(TInstanceHandle handle);
  virtual void GetWidth(TInstanceHandle handle, int& width);
  virtual void GetHeight(TInstanceHandle handle, int& height);
  virtual void GetViewCaption(TInstanceHandle handle, std::string& caption);
  /// Clicks the caption button at `button` in the list of caption buttons.
  virtual void HandleCaptionButtonClick(TInstanceHandle handle, int button);
  virtual void GetViewCaptionButtons(TInstanceHandle handle,
                                     std::vector<Viewinterface::TCaptionButton*>& buttons);
  virtual void GetViewCaptionButtonImageList(TInstanceHandle handle,
                                             Platform::TcxImageList*& images);
  /// Left as it is by default.
  virtual void GetViewIcon(TInstanceHandle handle, QPixmap& icon);
  /// The view's preference pages; null, the default, when it has none. The descriptor owns it.
  virtual TIBasePreferenceView* GetPreferenceView();
  /// Whether the view is a dialog, whether the user may change its size (default both false),
  /// whether it may be docked (true), and where it docks first (left).
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
  virtual void SetFont(TInstanceHandle handle, const std::string& name, int size, int style);
  /// The user works in the instance, or no more; a descriptor's shortcuts go to the active one.
  virtual void ActiveView(TInstanceHandle handle);
  virtual void DeactiveView(TInstanceHandle handle);
  virtual std::string GetLayoutData(TInstanceHandle handle);
  virtual void SetLayoutData(TInstanceHandle handle, const std::string& data);
  virtual void SetCustomData(TInstanceHandle handle, int kind, System::TObject* object);
  virtual bool ContainView(TInstanceHandle handle);
  virtual void SendMessage(TInstanceHandle handle, int message, std::int64_t parameter);
  virtual void SetGroupID(TInstanceHandle handle, const std::string& group);
  virtual void GetGroupID(TInstanceHandle handle, std::string& group);
  /// Whether the host opens the view as a dialog once its main window is shown (default false),
  /// and its place among those that it opens so (default -1: none).
  virtual bool GetIsDialogViewAfterMainShow();
  virtual int GetDialogViewIndexAfterMainShow();
  /// Enters a new instance in the table, which owns it from now on, and gives its handle.
  virtual TInstanceHandle AddView(std::unique_ptr<TIBaseView> frame);
  /// Size and caption of a view that has not been measured yet. Default false: none is given.
  virtual bool GetDefaultSize(int& width, int& height);
  virtual bool GetDefaultCaption(std::string& caption);
  /// Fills the shortcut list; run before its first use.
  virtual void InitializeShortcut();
  /// `keyName` and `key` as in TCustomViewShortcut.
  virtual void AddNewShortcut(const std::string& keyName, int key);

  // The instance. What gives a bool gives true; the descriptor asks for none of them, and false
  // has no meaning yet.

  static constexpr int FontBold = 1;
  static constexpr int FontItalic = 2;

  /// The instance's widget, owned by the instance; null for a descriptor.
  virtual QWidget* Widget();
  /// Sets up the view's grids; the view itself runs it, once.
  virtual void Initialize();
  /// The size that the view wants now; asking may lay it out anew.
  virtual int GetWidth();
  virtual int GetHeight();
  virtual std::string GetViewCaption();
  /// The buttons and their images stay the instance's.
  virtual std::vector<Viewinterface::TCaptionButton*> GetViewCaptionButtons();
  virtual Platform::TcxImageList* GetViewCaptionButtonImageList();
  /// The skin has changed: the view reads its colours again. `skin` is the host's name of it, and
  /// may be empty.
  virtual bool SetSkin(const std::string& skin);
  /// The host's language is Constdef::Language_... now: the view reads its texts again.
  virtual bool SetLanguage(int language);
  /// `size` in points; `style` is a sum of FontBold and FontItalic.
  virtual void SetFont(const std::string& name, int size, int style);
  /// What the view keeps over a restart, as a text of its own; SetLayoutData takes it back. Throws
  /// std::invalid_argument when a value cannot be converted; what was applied before it stays.
  virtual std::string GetLayoutData();
  virtual bool SetLayoutData(const std::string& data);
  /// Linking group; empty for none.
  virtual bool SetGroupID(const std::string& group);
  virtual std::string GetGroupID();
  /// An object or a message of the host's own, told apart by its number; ignored by default. The
  /// object stays the host's.
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

/// Opens the host's view of `type`, Constdef::View_..., with `parameters`, which stay the caller's.
/// `show` brings the view before the user; what `index` and `position` select is the host's own.
/// The price view passes 0, 0 and true.
QUOR_EXPORT void OpenCustomView(TIBaseView* view, int type, int index,
                                Baseorderdata::TCustomViewParameters* parameters, int position,
                                bool show);

/// A new non-modal tool window for the view, hidden and empty. The caller frees it by closing it:
/// it is deleted on close. Never null.
QUOR_EXPORT QWidget* GetDialogForm(TIBaseView* view, System::TObject* sender);

} // namespace Baseview
