#pragma once

#include <QIcon>

namespace Terminal {

/// The terminal's own icon: three rows of a price ladder on a dark ground, bids at the left and
/// asks at the right.
QIcon TerminalIcon();

} // namespace Terminal
