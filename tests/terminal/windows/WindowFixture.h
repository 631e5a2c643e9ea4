#pragma once

#include "terminal/Fixture.h"
#include "terminal/script/input/Input.h"
#include "terminal/services/Services.h"
#include "terminal/windows/MainWindow.h"

#include <QAction>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace Terminal {

/// What the terminal's window works with, and a folder for what it keeps.
class TWindowTest : public testing::Test {
protected:
  TWindowTest() { Services.Profile.Grant({"QuorPrice"}); }

  std::unique_ptr<TMainWindow> NewWindow() {
    return std::make_unique<TMainWindow>(
        TMainWindow::TParts{Services, Descriptor, Player, Feed, State, Desk, SourceOptions});
  }

  /// Null when the window has no action of that text.
  static QAction* ActionOf(const QWidget& window, const QString& text) {
    for (auto* action : window.findChildren<QAction*>())
      if (action->text() == text)
        return action;
    return nullptr;
  }

  /// Chooses from the menu, and waits for what that brings about. Fails where there is no such
  /// entry.
  static void Choose(const QWidget& window, const QString& text) {
    auto* action = ActionOf(window, text);
    ASSERT_NE(action, nullptr) << text.toStdString();
    action->trigger();
    Input::Deliver();
  }

  QTemporaryDir Folder;
  TServices Services;
  Fixture::TDescriptor Descriptor;
  TMarketPlayer Player;
  TMarketFeed Feed{Services, Player};
  TOrderDesk Desk;
  Feed::TSourceOptions SourceOptions;
  TSavedState State{Folder.filePath(QStringLiteral("state.sqlite"))};
};

} // namespace Terminal
