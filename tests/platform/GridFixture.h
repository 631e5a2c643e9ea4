#pragma once

#include "platform/Grid.h"

#include <QApplication>
#include <QPaintEvent>
#include <QTest>

#include <gtest/gtest.h>

#include <string>
#include <vector>

/// Texts by record; the column tag is the position in the record.
class TTableSource : public Platform::TcxCustomDataSource {
public:
  std::vector<std::vector<std::string>> Rows;
  mutable int Reads = 0;

  int GetRecordCount() const override { return static_cast<int>(Rows.size()); }
  void GetDisplayText(int record, int column, std::string& text) const override {
    ++Reads;
    text = Rows[static_cast<std::size_t>(record)][static_cast<std::size_t>(column)];
  }
};

/// Regions that a widget was asked to paint.
class TPaintWatch : public QObject {
public:
  std::vector<QRegion> Regions;

  explicit TPaintWatch(QWidget* widget) { widget->installEventFilter(this); }

  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint)
      Regions.push_back(static_cast<QPaintEvent*>(event)->region());
    return false;
  }
};

/// A grid of three columns (tags 0, 1 and 2; 40, 60 and 50 pixels wide, the second right-aligned)
/// and four records 20 pixels high.
class TGridTest : public ::testing::Test {
protected:
  static constexpr int RowHeight = 20;

  TGridTest() {
    Source.Rows = {{"a0", "10", "c0"}, {"a1", "11", "c1"}, {"a2", "12", "c2"}, {"a3", "13", "c3"}};
    Level = new Platform::TcxGridLevel("Lv", &Grid, View);
    Grid.resize(170, 100);
    View->BeginUpdate();
    View->SetDataRowHeight(RowHeight);
    Columns = {View->CreateColumn(0, 40, false), View->CreateColumn(1, 60, true),
               View->CreateColumn(2, 50, false)};
    View->SetDataSource(&Source);
    View->EndUpdate();
  }

  void Show() {
    Grid.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&Grid));
    QApplication::processEvents();
  }

  QPoint Middle(int record, int column) const {
    return View->CellBounds(record, Columns[static_cast<std::size_t>(column)]).center();
  }

  std::string Text(int record, int column) const {
    return View->Cell(record, Columns[static_cast<std::size_t>(column)])->Text;
  }

  TTableSource Source; // outlives the view
  Platform::TcxGrid Grid{"Grid"};
  Platform::TcxGridTableView* View = new Platform::TcxGridTableView("View", &Grid);
  Platform::TcxGridLevel* Level = nullptr;
  std::vector<Platform::TcxGridColumn*> Columns;
};
