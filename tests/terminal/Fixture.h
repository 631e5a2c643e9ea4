#pragma once

#include "host/view/BaseView.h"
#include "platform/Controls.h"
#include "platform/Grid.h"
#include "platform/PopupEdit.h"

#include <QWidget>

namespace Fixture {

/// Two columns, 1 and 2, of three rows; a text names its cell.
class TSource : public Platform::TcxCustomDataSource {
public:
  int GetRecordCount() const override { return 3; }
  void GetDisplayText(int record, int column, std::string& text) const override {
    text = std::to_string(record) + ":" + std::to_string(column);
  }
};

/// A view with one component of each kind, that counts what it is asked.
class TView : public QWidget, public Baseview::TIBaseView {
public:
  TView();
  ~TView() override;

  using TIBaseView::GetGroupID;
  using TIBaseView::GetHeight;
  using TIBaseView::GetLayoutData;
  using TIBaseView::GetViewCaption;
  using TIBaseView::GetViewCaptionButtons;
  using TIBaseView::GetWidth;
  using TIBaseView::SetGroupID;
  using TIBaseView::SetLanguage;
  using TIBaseView::SetLayoutData;
  using TIBaseView::SetSkin;

  QWidget* Widget() override { return this; }
  int GetWidth() override;
  int GetHeight() override { return Height; }
  std::string GetViewCaption() override { return Caption; }
  std::vector<Viewinterface::TCaptionButton*> GetViewCaptionButtons() override { return {&Lock}; }
  std::string GetLayoutData() override { return Layout; }
  bool SetGroupID(const std::string& group) override {
    Group = group;
    return true;
  }
  std::string GetGroupID() override { return Group; }
  bool SetLayoutData(const std::string& layoutData) override;
  bool SetLanguage(int language) override;
  bool SetSkin(const std::string& skin) override;
  /// Announces the shortcut.
  bool ExecuteShortcutAction(int action) override;

  int Width = 320;
  int Height = 200;
  bool GrowsWhenAsked = false; ///< announces a new size each time it is asked for one
  int WidthAsked = 0;
  std::string Caption = "Fixture";
  std::string Layout;
  std::string Group;
  std::vector<std::string> Told; ///< what the host told, in order
  std::vector<int> Clicked;      ///< columns
  std::vector<int> Chosen;       ///< entries
  int Pressed = 0;
  int Exits = 0;
  Viewinterface::TCaptionButton Lock;
  TSource Source;
  Platform::TcxPopupEdit* Symbol;
  Platform::TcxComboBox* Combo;
  Platform::TcxButton* Button;
  Platform::TdxBarButton* Item;
  Platform::TdxBarPopupMenu* Menu;
  Platform::TcxGrid* Grid;
};

/// The descriptor of such views; has no preference page, and a shortcut without a key.
class TDescriptor : public Baseview::TIBaseView {
public:
  TDescriptor() : TIBaseView(nullptr) {}

  Baseview::TInstanceHandle OpenNewInstance() override;
  void InitializeShortcut() override { AddNewShortcut("Res_ActiveQuorPrice", 0); }
  int GetMenuLevel() override { return 2; }
  std::string GetMenuCaption(int entry) override {
    return entry == 0 ? "Res_Market" : entry == 1 ? "Res_QuorPrice" : "";
  }

  /// The view opened last; null before the first.
  TView* Last = nullptr;
  /// Announced by a view while it is being made; 0: nothing.
  int AnnouncedWhileOpening = 0;
};

} // namespace Fixture
