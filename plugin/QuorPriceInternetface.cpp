#include "plugin/QuorPriceInternetface.h"

#include "host/BaseLanguageManager.h"
#include "host/BaseUserAppProfile.h"
#include "host/BaseVendorDDSModel.h"
#include "host/ConstDef.h"
#include "preferences/QuorPricePreference.h"
#include "view/QuorPriceView.h"

namespace Quorpriceinternetface {

using Baselanguagemanager::TCustomLanguageManager;
using Quorpricepreference::TQuorPricePreferenceFrame;

namespace {

constexpr int ViewID = Constdef::View_QuorPrice;
constexpr int PreferenceWidth = 500;
constexpr int PreferenceHeight = 500;

int initializations = 0;

} // namespace

std::string TIQuorPrice::GetName() { return "QuorPrice_" + std::to_string(ViewID); }

int TIQuorPrice::GetViewID() { return ViewID; }

int TIQuorPrice::GetMenuLevel() { return 2; }

int TIQuorPrice::GetMenuIndex(int entry) {
  constexpr int positions[] = {2100, 2150};
  return entry == 0 || entry == 1 ? positions[entry] : -1;
}

int TIQuorPrice::GetMenuID(int entry) {
  constexpr int ids[] = {102, ViewID};
  return entry == 0 || entry == 1 ? ids[entry] : 0;
}

std::string TIQuorPrice::GetMenuCaption(int entry) {
  constexpr const char* keys[] = {"Res_Market", "Res_QuorPrice"};
  return entry == 0 || entry == 1 ? keys[entry] : std::string();
}

int TIQuorPrice::GetMenuGroupIndex(int) { return 0; }

bool TIQuorPrice::GetIsVisible() {
  if (Baseuserappprofile::TCustomUserAppProfile::GetInstance()->IsFunctionGranted(
          Constdef::Function_QuorPrice))
    return true;
  auto* vendor = Basevendorddsmodel::TCustomVendorDDSModel::GetInstance();
  return vendor && vendor->FeedType() >= Constdef::FeedType_Streaming;
}

Baseview::TInstanceHandle TIQuorPrice::OpenNewInstance() {
  return AddView(std::make_unique<Quorpriceview::TQuorPriceFrame>(nullptr));
}

Baseview::TIBasePreferenceView* TIQuorPrice::GetPreferenceView() {
  if (!preference_)
    preference_ = std::make_unique<TIQuorPricePreference>(this);
  return preference_.get();
}

bool TIQuorPrice::GetDefaultSize(int& width, int& height) {
  width = 705;
  height = 320;
  return true;
}

bool TIQuorPrice::GetDefaultCaption(std::string& caption) {
  caption = TCustomLanguageManager::GetInstance()->GetResource("Res_QuorPrice");
  return true;
}

void TIQuorPrice::InitializeShortcut() {
  TIBaseView::InitializeShortcut();
  AddNewShortcut("Res_ActiveQuorPrice", 0);
}

std::string TIQuorPricePreference::GetName() {
  return TCustomLanguageManager::GetInstance()->GetResource("Res_QuorPrice");
}

int TIQuorPricePreference::GetViewID() { return ViewID; }

int TIQuorPricePreference::GetWidth() { return PreferenceWidth; }

int TIQuorPricePreference::GetHeight() {
  for (auto* frame : TIBasePreferenceView::GetView())
    if (auto* page = dynamic_cast<TQuorPricePreferenceFrame*>(frame))
      return page->GetHeight();
  return PreferenceHeight;
}

std::vector<Baseview::TBasePreferenceFrame*> TIQuorPricePreference::GetView() {
  if (TIBasePreferenceView::GetView().empty())
    AddView(std::make_unique<TQuorPricePreferenceFrame>());
  return TIBasePreferenceView::GetView();
}

void Initialize() {
  if (initializations++ == 0)
    System::Classes::RegisterClass(
        Constdef::Class_QuorPrice,
        [](System::Classes::TComponent* owner) { return std::make_unique<TIQuorPrice>(owner); });
}

void Finalize() { --initializations; }

} // namespace Quorpriceinternetface

// What the host finds in the package's file.

extern "C" {

QUOR_EXPORT int quorPackageContractVersion() { return Constdef::ContractVersion; }
QUOR_EXPORT void quorPackageInitialize() { Quorpriceinternetface::Initialize(); }
QUOR_EXPORT void quorPackageFinalize() { Quorpriceinternetface::Finalize(); }
}
