#pragma once

#include "host/view/BaseView.h"

namespace Quorpriceinternetface {

/// The preference page of the price view, as the host sees it.
class TIQuorPricePreference : public Baseview::TIBasePreferenceView {
public:
  using TIBasePreferenceView::TIBasePreferenceView;

  std::string GetName() override;
  int GetViewID() override;
  int GetWidth() override;
  /// The page's own height once it exists.
  int GetHeight() override;
  /// The page is made once and kept.
  std::vector<Baseview::TBasePreferenceFrame*> GetView() override;
};

/// The price view, as the host sees it.
class TIQuorPrice : public Baseview::TIBaseView {
public:
  using TIBaseView::TIBaseView;

  std::string GetName() override;
  int GetViewID() override;
  int GetMenuLevel() override;
  int GetMenuIndex(int entry) override;
  int GetMenuID(int entry) override;
  std::string GetMenuCaption(int entry) override;
  int GetMenuGroupIndex(int entry) override;
  bool GetIsVisible() override;
  Baseview::TInstanceHandle OpenNewInstance() override;
  Baseview::TIBasePreferenceView* GetPreferenceView() override;
  bool GetDefaultSize(int& width, int& height) override;
  bool GetDefaultCaption(std::string& caption) override;
  void InitializeShortcut() override;

private:
  std::unique_ptr<TIQuorPricePreference> preference_;
};

/// The package's load and unload. Loading registers TIQuorPrice with the class registry, once
/// however often it is called; unloading unregisters nothing.
void Initialize();
void Finalize();

} // namespace Quorpriceinternetface
