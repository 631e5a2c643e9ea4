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
  const auto window = Platform::ToQColor(skin.WindowColour);
  const auto windowText = Platform::ToQColor(skin.WindowTextColour);
  const auto content = Platform::ToQColor(skin.ContentColour);
  const auto contentText = Platform::ToQColor(skin.ContentTextColour);
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
  palette.setColor(QPalette::Highlight, Platform::ToQColor(skin.HighlightColour));
  palette.setColor(QPalette::HighlightedText, Platform::ToQColor(skin.HighlightTextColour));
  for (const auto role : {QPalette::WindowText, QPalette::ButtonText})
    palette.setColor(QPalette::Disabled, role, Faded(windowText));
  palette.setColor(QPalette::Disabled, QPalette::Text, Faded(contentText));
  return palette;
}

/// A built-in skin says all its named colours in its section.
TConfigStore::TSection SectionOf(const TSkin& skin) {
  TConfigStore::TSection section;
  for (const auto& [name, colour] : skin.Colours)
    section.emplace(name, Platform::ColourText(colour));
  return section;
}

std::string SectionNameOf(const TSkin& skin) { return "SKIN_" + skin.Name; }

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
    : config_(config), priceColours_(BuiltInPriceColours().front()) {
  Select(BuiltInSkins().front().Name);
}

TSkinService::~TSkinService() {
  Platform::TcxRootLookAndFeel::Instance().SetSkinPainter(std::nullopt);
  QApplication::setPalette(QPalette());
  QToolTip::setPalette(QPalette());
}

System::TColor TSkinService::GetColour(int index, std::string_view name) {
  return index == 0 ? ColourOr0(skin_.Colours, name) : ColourOr0(skin_.StandardColours, index);
}

std::string TSkinService::CurrentSkinSection() { return SectionNameOf(skin_); }

bool TSkinService::Select(std::string_view name) {
  const auto* found = Find(BuiltInSkins(), name);
  if (!found)
    return false;
  const TSkin skin = InPriceColours(*found, priceColours_);
  Apply(skin, SectionOf(skin));
  return true;
}

bool TSkinService::SelectPriceColours(std::string_view name) {
  const auto* found = Find(BuiltInPriceColours(), name);
  if (!found)
    return false;
  priceColours_ = *found;
  Select(skin_.Name);
  return true;
}

void TSkinService::Replace(const std::map<std::string, System::TColor>& colours,
                           const TConfigStore::TSection& section) {
  auto skin = skin_;
  skin.Name = "Custom";
  skin.Colours.clear();
  skin.StandardColours.clear();
  for (const auto& [name, colour] : colours) {
    if (const auto number = Text::ParseInteger(name))
      skin.StandardColours[*number] = colour;
    else
      skin.Colours.emplace(name, colour);
  }
  Apply(std::move(skin), section);
}

void TSkinService::Apply(TSkin skin, TConfigStore::TSection section) {
  config_.ReplaceSection(SectionNameOf(skin_), {});
  skin_ = std::move(skin);
  config_.ReplaceSection(SectionNameOf(skin_), std::move(section));
  Platform::TcxRootLookAndFeel::Instance().SetSkinPainter(Platform::TSkinPainter{
      Platform::ToQColor(skin_.ContentColour), Platform::ToQColor(skin_.ContentTextColour)});
  QApplication::setPalette(PaletteOf(skin_));
  QToolTip::setPalette(PaletteOf(skin_)); // has one of its own
  if (OnChanged)
    OnChanged();
}

} // namespace Terminal
