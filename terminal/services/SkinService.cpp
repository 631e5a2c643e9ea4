#include "terminal/services/SkinService.h"

#include "platform/Colour.h"
#include "platform/ColourText.h"
#include "platform/LookAndFeel.h"
#include "text/Numbers.h"

#include <QApplication>
#include <QPalette>
#include <QToolTip>

#include <algorithm>

namespace Terminal {

namespace {

/// Fainter than a text that matters now, and still one that can be read.
QColor Faded(QColor colour) {
  colour.setAlphaF(0.65F);
  return colour;
}

QPalette PaletteOf(const TSkin& skin) {
  const auto window = Platform::ToQColor(skin.Window);
  const auto windowText = Platform::ToQColor(skin.WindowText);
  const auto content = Platform::ToQColor(skin.Content);
  const auto contentText = Platform::ToQColor(skin.ContentText);
  QPalette palette(window, window); // works the shades of frames out
  palette.setColor(QPalette::WindowText, windowText);
  palette.setColor(QPalette::ButtonText, windowText);
  palette.setColor(QPalette::Base, content);
  palette.setColor(QPalette::AlternateBase, window);
  palette.setColor(QPalette::Text, contentText);
  palette.setColor(QPalette::PlaceholderText, Faded(contentText));
  palette.setColor(QPalette::ToolTipBase, content);
  palette.setColor(QPalette::ToolTipText, contentText);
  palette.setColor(QPalette::Link, contentText);
  palette.setColor(QPalette::LinkVisited, contentText);
  palette.setColor(QPalette::Highlight, Platform::ToQColor(skin.Highlight));
  palette.setColor(QPalette::HighlightedText, Platform::ToQColor(skin.HighlightedText));
  for (const auto role : {QPalette::WindowText, QPalette::ButtonText})
    palette.setColor(QPalette::Disabled, role, Faded(windowText));
  palette.setColor(QPalette::Disabled, QPalette::Text, Faded(contentText));
  return palette;
}

/// A built-in skin says all its named colours in its section.
TConfigStore::TSection SectionOf(const TNamedColours& colours) {
  TConfigStore::TSection section;
  for (const auto& [name, colour] : colours.ByName)
    section.emplace(name, Platform::ColourText(colour));
  return section;
}

std::string SectionNameOf(std::string_view skin) { return "SKIN_" + std::string(skin); }

/// Null when none of `all` has the name.
template <typename TNamed>
const TNamed* Find(const std::vector<TNamed>& all, std::string_view name) {
  const auto found =
      std::find_if(all.begin(), all.end(), [&](const TNamed& each) { return each.Name == name; });
  return found == all.end() ? nullptr : &*found;
}

template <typename TMap, typename TKey> System::TColor ColourOr0(const TMap& map, TKey key) {
  const auto found = map.find(key);
  return found == map.end() ? System::clBlack : found->second;
}

} // namespace

TSkinService::TSkinService(TConfigStore& config)
    : config_(config), skin_(&BuiltInSkins().front()),
      priceColours_(&BuiltInPriceColours().front()) {
  Select(skin_->Name);
}

TSkinService::~TSkinService() {
  Platform::TcxRootLookAndFeel::Instance().SetSkinPainter(std::nullopt);
  QApplication::setPalette(QPalette());
  QToolTip::setPalette(QPalette());
}

System::TColor TSkinService::GetColour(int index, std::string_view name) {
  return index == 0 ? ColourOr0(colours_.ByName, name) : ColourOr0(colours_.ByNumber, index);
}

std::string TSkinService::CurrentSkinSection() { return section_; }

bool TSkinService::Select(std::string_view name) {
  const auto* found = Find(BuiltInSkins(), name);
  if (!found)
    return false;
  skin_ = found;
  const auto colours = NamedColours(*skin_, *priceColours_);
  Apply(name, colours, SectionOf(colours));
  return true;
}

bool TSkinService::SelectPriceColours(std::string_view name) {
  const auto* found = Find(BuiltInPriceColours(), name);
  if (!found)
    return false;
  priceColours_ = found;
  if (section_ == SectionNameOf(skin_->Name))
    Select(skin_->Name);
  return true;
}

void TSkinService::Replace(const std::map<std::string, System::TColor>& colours,
                           const TConfigStore::TSection& section) {
  TNamedColours given;
  for (const auto& [name, colour] : colours) {
    if (const auto number = Text::ParseInteger(name))
      given.ByNumber[*number] = colour;
    else
      given.ByName.emplace(name, colour);
  }
  Apply("Custom", std::move(given), section);
}

void TSkinService::Apply(std::string_view name, TNamedColours colours,
                         TConfigStore::TSection section) {
  config_.ReplaceSection(section_, {});
  section_ = SectionNameOf(name);
  colours_ = std::move(colours);
  config_.ReplaceSection(section_, std::move(section));
  Platform::TcxRootLookAndFeel::Instance().SetSkinPainter(Platform::TSkinPainter{
      Platform::ToQColor(skin_->Content), Platform::ToQColor(skin_->ContentText)});
  QApplication::setPalette(PaletteOf(*skin_));
  QToolTip::setPalette(PaletteOf(*skin_)); // has one of its own
  if (OnChanged)
    OnChanged();
}

} // namespace Terminal
