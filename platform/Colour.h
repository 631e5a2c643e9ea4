#pragma once

#include <QColor>

#include <cstdint>

namespace Platform {

/// A colour in 32 bits: red in the lowest byte, then green, then blue. A value whose top byte is
/// FF names a system colour by its low byte.
using TColor = std::uint32_t;

/// The colour to paint with. A system colour is looked up in the application's palette: 5 window
/// background (QPalette::Base), 8 window text (QPalette::Text), 15 button face
/// (QPalette::Button), 13 highlight (QPalette::Highlight), 14 highlighted text; any other
/// QPalette::Window.
Q_DECL_EXPORT QColor ToQColor(TColor colour);

/// The 32-bit value of an opaque colour.
Q_DECL_EXPORT TColor FromQColor(const QColor& colour);

} // namespace Platform
