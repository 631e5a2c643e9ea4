#pragma once

#include "fakes/ViewFakes.h"
#include "preferences/QuorPricePreference.h"

#include <QLineEdit>
#include <QTest>
#include <gtest/gtest.h>

#include <stdexcept>

/// A host, and the preference page on the screen in it, edited as a user edits it.
class TPreferenceTest : public testing::Test {
protected:
  using TRows = std::vector<std::string>;

  static constexpr System::TColor Red = 0x000000FF;
  static constexpr System::TColor Blue = 0x00FF0000;

  /// Makes the page anew and shows it.
  Quorpricepreference::TQuorPricePreferenceFrame& Open() {
    page.reset();
    page = std::make_unique<Quorpricepreference::TQuorPricePreferenceFrame>();
    page->show();
    page->activateWindow();
    (void)QTest::qWaitForWindowActive(page.get());
    return *page;
  }

  template <typename TComponent> TComponent& Find(const char* name) {
    auto* found = page->findChild<TComponent*>(QLatin1String(name));
    if (!found)
      throw std::runtime_error(std::string("no component ") + name);
    return *found;
  }

  QTableView& Grid() { return Find<QTableView>("BrokerIDGrid"); }
  QComboBox& StyleBox() { return Find<QComboBox>("cmbCopyPriceStyle"); }
  QCheckBox& Highlight() { return Find<QCheckBox>("cbBrokerID"); }
  bool IsGridEnabled() { return Find<QWidget>("lgBrokerGrid").isEnabled(); }

  int Column(int tag) {
    const auto& model = *Grid().model();
    for (int column = 0; column < model.columnCount(); ++column)
      if (model.headerData(column, Qt::Horizontal, Qt::UserRole).toInt() == tag)
        return column;
    throw std::runtime_error("no column " + std::to_string(tag));
  }

  QModelIndex Cell(int row, int tag) { return Grid().model()->index(row, Column(tag)); }

  /// A row as "ID colour"; "-" for what is absent.
  TRows Rows() {
    TRows rows;
    for (int row = 0; row < Grid().model()->rowCount(); ++row) {
      const auto id = Cell(row, 45).data(Qt::EditRole);
      const auto colour = Cell(row, 200).data(Qt::EditRole);
      rows.push_back((id.isValid() ? id.toString().toStdString() : "-") + ' ' +
                     (colour.isValid() ? QString::number(colour.toUInt(), 16).toStdString() : "-"));
    }
    return rows;
  }

  void ClickCell(int row, int tag, Qt::MouseButton button = Qt::LeftButton) {
    QTest::mouseClick(Grid().viewport(), button, {}, Grid().visualRect(Cell(row, tag)).center());
    QCoreApplication::processEvents();
  }

  /// The editor that a click opens in the cell.
  template <typename TEditor> TEditor& OpenEditor(int row, int tag) {
    ClickCell(row, tag);
    auto* editor = qobject_cast<TEditor*>(Grid().indexWidget(Cell(row, tag)));
    if (!editor)
      throw std::runtime_error("no editor in column " + std::to_string(tag));
    return *editor;
  }

  /// Types into the cell's editor and leaves it open.
  void TypeID(int row, const char* text) {
    auto& editor = OpenEditor<QLineEdit>(row, 45);
    editor.selectAll();
    QTest::keyClicks(&editor, QString::fromUtf8(text));
  }

  void EnterID(int row, const char* text) {
    TypeID(row, text);
    QTest::keyClick(Grid().indexWidget(Cell(row, 45)), Qt::Key_Return);
    QCoreApplication::processEvents();
  }

  /// One of the named colours, with the keys.
  void EnterColour(int row, System::TColor colour) {
    auto& box = OpenEditor<QComboBox>(row, 200);
    QTest::keyClick(&box, Qt::Key_Home);
    for (int step = 0; step < 11 && box.currentData() != QVariant(colour); ++step)
      QTest::keyClick(&box, Qt::Key_Down);
    if (box.currentData() != QVariant(colour))
      throw std::runtime_error("no such named colour");
  }

  void Press(const char* button) {
    QTest::mouseClick(&Find<QPushButton>(button), Qt::LeftButton);
    QCoreApplication::processEvents();
  }

  void Check(bool checked) {
    if (Highlight().isChecked() != checked)
      QTest::mouseClick(&Highlight(), Qt::LeftButton, {}, QPoint(8, Highlight().height() / 2));
    ASSERT_EQ(Highlight().isChecked(), checked);
  }

  /// With the arrow keys.
  void ChooseStyle(int index) {
    while (StyleBox().currentIndex() < index)
      QTest::keyClick(&StyleBox(), Qt::Key_Down);
    while (StyleBox().currentIndex() > index)
      QTest::keyClick(&StyleBox(), Qt::Key_Up);
  }

  std::string Stored(const char* key) { return host.config.ReadString("USER", key); }

  void Store(const char* ids, const char* colours) {
    host.config.SetCurrent("DetailSpecialBroker", ids);
    host.config.SetCurrent("DetailSpecialBrokerColor", colours);
  }

  /// Values written under a key, in order.
  TRows Written(const char* key) {
    TRows values;
    for (const auto& write : host.config.writes)
      if (write.key == key)
        values.push_back(write.value);
    return values;
  }

  Fakes::TViewFakes host;
  std::unique_ptr<Quorpricepreference::TQuorPricePreferenceFrame> page;
};
