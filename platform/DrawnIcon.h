#pragma once

#include <QIcon>

#include <functional>

class QPainter;

namespace Platform {

/// An icon that is drawn afresh at each size and pixel ratio, and so is sharp at all of them.
/// `draw` paints on a square of 16 by 16 units, with a pen in the palette's colour of button
/// texts, and may change the painter as it likes.
Q_DECL_EXPORT QIcon DrawnIcon(std::function<void(QPainter& painter)> draw);

} // namespace Platform
