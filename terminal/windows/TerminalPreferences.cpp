#include "terminal/windows/TerminalPreferences.h"

#include "host/ConstDef.h"
#include "terminal/windows/KeyEdit.h"
#include "terminal/windows/WindowTexts.h"

#include <QFormLayout>
#include <QLineEdit>
#include <QRegularExpressionValidator>
#include <QSpinBox>

#include <algorithm>

namespace Terminal {

namespace {

constexpr std::string_view ShortcutSection = "Shortcuts"; // keys by the shortcuts' names

constexpr int HeadingGap = 8; // pixels
constexpr int CaptionCount = 10;
constexpr int CaptionsInARow = 5;
constexpr int LongestInterval = 5000; // milliseconds, as the next two
constexpr int ShortestInterval = 50;
constexpr int IntervalStep = 50;
constexpr int LastDenominatorMode = 99;

std::string CaptionKey(int number) {
  return std::string(Constdef::KeyPrefix_QtyButton) + std::to_string(number);
}

/// Quantities that a button can copy.
QValidator* CaptionValidator(QObject* parent) {
  static const QRegularExpression caption(QStringLiteral("[1-9][0-9,]{0,8}[KkMm]?"));
  return new QRegularExpressionValidator(caption, parent);
}

/// As they stand in records: without the blanks and in capitals.
QString ExchangeCodes(const QString& typed) {
  QStringList codes;
  for (const auto& code : typed.toUpper().split(QLatin1Char(',')))
    codes.append(code.trimmed());
  codes.removeAll(QString());
  return codes.join(QLatin1Char(','));
}

/// Its own, or else the terminal's for the one that it knows.
std::string DefaultKey(const Viewinterface::TCustomViewShortcut& shortcut) {
  if (shortcut.Key == 0)
    return shortcut.Name == "Res_ActiveQuorPrice" ? "Ctrl+L" : "";
  return QKeySequence(shortcut.Key).toString(QKeySequence::PortableText).toStdString();
}

} // namespace

std::vector<TConfigValue> WindowDefaults(const TShortcuts& shortcuts) {
  std::vector<TConfigValue> values;
  for (const char* caption : {"100", "500", "1K", "2K", "5K", "10K", "20K", "50K", "100K", "500K"})
    values.push_back({std::string(Constdef::Section_QtyButtonCaption),
                      CaptionKey(static_cast<int>(values.size()) + 1), caption});
  for (const auto& shortcut : shortcuts)
    values.push_back({std::string(ShortcutSection), shortcut.Name, DefaultKey(shortcut)});
  return values;
}

QKeySequence ShortcutKey(TConfigStore& config, const std::string& name) {
  return QKeySequence(QString::fromStdString(config.ReadString(ShortcutSection, name)),
                      QKeySequence::PortableText);
}

TTerminalPage::TTerminalPage(TConfigStore& config, const TShortcuts& shortcuts, TKeyUse keyUse)
    : config_(config), defaults_(WindowDefaults(shortcuts)), keyUse_(std::move(keyUse)),
      form_(new QFormLayout(&content_)) {
  AddHeading("Term_InLaterViews");
  AddCaptions();
  AddInterval();
  AddConcealedExchanges();
  AddHeading("Term_AtOnce");
  for (const auto& shortcut : shortcuts)
    AddShortcut(shortcut);
  AddDenominatorMode();
  TTerminalPage::SetLanguage(0);
  TTerminalPage::Reset();
}

QLabel* TTerminalPage::Label(const std::string& key) {
  auto* label = new QLabel;
  texts_.push_back([label, key] { label->setText(WindowText(key.c_str())); });
  return label;
}

void TTerminalPage::AddHeading(const char* key) {
  auto* heading = Label(key);
  QFont bold = heading->font();
  bold.setBold(true);
  heading->setFont(bold);
  heading->setContentsMargins(0, HeadingGap, 0, 0);
  form_->addRow(heading);
}

void TTerminalPage::AddLabelled(const std::string& key, QWidget* box) {
  auto* label = Label(key);
  label->setBuddy(box);
  form_->addRow(label, box);
}

void TTerminalPage::AddHint(QWidget* box, const char* key) {
  texts_.push_back([box, key] { box->setToolTip(WindowText(key)); });
}

void TTerminalPage::AddCaptions() {
  auto* boxes = new QWidget;
  auto* grid = new QGridLayout(boxes);
  grid->setContentsMargins(0, 0, 0, 0);
  for (int number = 1; number <= CaptionCount; ++number) {
    auto* edit = new QLineEdit;
    edit->setObjectName(QStringLiteral("caption%1").arg(number));
    edit->setValidator(CaptionValidator(edit));
    grid->addWidget(edit, (number - 1) / CaptionsInARow, (number - 1) % CaptionsInARow);
    values_.push_back({std::string(Constdef::Section_QtyButtonCaption),
                       CaptionKey(number),
                       [edit] { return edit->text(); },
                       [edit](const QString& text) { edit->setText(text); },
                       {}});
  }
  AddHint(boxes, "Term_CaptionsHint");
  AddLabelled("Term_QuantityButtons", boxes);
}

void TTerminalPage::AddInterval() {
  auto* box = new QSpinBox;
  box->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  box->setObjectName(QStringLiteral("updateInterval"));
  box->setRange(ShortestInterval, LongestInterval);
  box->setSingleStep(IntervalStep);
  texts_.push_back([box] { box->setSuffix(WindowText("Term_Milliseconds")); });
  values_.push_back({config_.CurrentSection(),
                     std::string(Constdef::Key_UpdateInterval),
                     [box] { return QString::number(box->value()); },
                     [box](const QString& text) { box->setValue(text.toInt()); },
                     {}});
  AddLabelled("Term_UpdateInterval", box);
}

void TTerminalPage::AddConcealedExchanges() {
  auto* edit = new QLineEdit;
  edit->setObjectName(QStringLiteral("concealedExchanges"));
  values_.push_back({config_.CurrentSection(),
                     std::string(Constdef::Key_ConcealedExchanges),
                     [edit] { return ExchangeCodes(edit->text()); },
                     [edit](const QString& text) { edit->setText(text); },
                     {}});
  AddHint(edit, "Term_ConcealedHint");
  AddLabelled("Term_ConcealedExchanges", edit);
}

void TTerminalPage::AddShortcut(const Viewinterface::TCustomViewShortcut& shortcut) {
  auto* edit = new TKeyEdit;
  edit->setClearButtonEnabled(true);
  auto* use = new QLabel;
  use->setObjectName(QStringLiteral("keyUse"));
  const auto showUse = [this, edit, use] {
    const QString user = keyUse_(edit->keySequence());
    use->setText(user.isEmpty() ? user : WindowText("Term_KeyInUse").arg(user));
    use->setVisible(!user.isEmpty());
  };
  QObject::connect(edit, &QKeySequenceEdit::keySequenceChanged, use, showUse);
  texts_.push_back(showUse);
  const auto text = [edit] { return edit->keySequence().toString(QKeySequence::PortableText); };
  const auto setText = [edit](const QString& keys) {
    edit->setKeySequence(QKeySequence(keys, QKeySequence::PortableText));
  };
  values_.push_back({std::string(ShortcutSection), shortcut.Name, text, setText, {}});
  AddLabelled(shortcut.Name, edit);
  form_->addRow(QString(), use);
}

void TTerminalPage::AddDenominatorMode() {
  auto* box = new QSpinBox;
  box->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  box->setObjectName(QStringLiteral("denominatorMode"));
  box->setRange(0, LastDenominatorMode);
  values_.push_back({config_.CurrentSection(),
                     std::string(Constdef::Key_DenominatorMode),
                     [box] { return QString::number(box->value()); },
                     [box](const QString& text) { box->setValue(text.toInt()); },
                     {}});
  AddHint(box, "Term_DenominatorHint");
  AddLabelled("Term_DenominatorMode", box);
}

bool TTerminalPage::SetLanguage(int) {
  for (const auto& take : texts_)
    take();
  return true;
}

bool TTerminalPage::Execute() {
  TConfigStore::TUserAction action(config_);
  for (const auto& value : values_) {
    const QString text = value.Text();
    const bool isUsed = value.Section == ShortcutSection && !keyUse_(QKeySequence(text)).isEmpty();
    if (text != value.Stored && !isUsed)
      config_.WriteString(value.Section, value.Key, text.toStdString(), true);
  }
  return Reset();
}

bool TTerminalPage::Reset() {
  for (auto& value : values_) {
    value.SetText(QString::fromStdString(config_.ReadString(value.Section, value.Key)));
    value.Stored = value.Text();
  }
  return true;
}

bool TTerminalPage::ResetFactory() {
  for (const auto& value : values_) {
    const auto given = std::find_if(defaults_.begin(), defaults_.end(), [&](const auto& other) {
      return other.Section == value.Section && other.Key == value.Key;
    });
    value.SetText(given == defaults_.end() ? QString() : QString::fromStdString(given->Value));
  }
  return true;
}

TTerminalPreferences::TTerminalPreferences(std::unique_ptr<TTerminalPage> page)
    : TIBasePreferenceView(nullptr) {
  AddView(std::move(page));
}

std::string TTerminalPreferences::GetName() { return WindowText("Term_Terminal").toStdString(); }

} // namespace Terminal
