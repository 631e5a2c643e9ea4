#pragma once

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QMenu>
#include <QPushButton>
#include <QTimer>

/// Components that are Qt's own, under the names of the system.
namespace Platform {

using TcxComboBox = QComboBox; ///< text hint: placeholderText
using TcxButton = QPushButton;
using TcxCheckBox = QCheckBox;
using TdxBarManager = QObject; ///< owns the bar buttons
using TdxBarButton = QAction;  ///< "never visible" and "always visible" are its visible property
using TdxBarPopupMenu = QMenu;
using TTimer = QTimer;

} // namespace Platform
