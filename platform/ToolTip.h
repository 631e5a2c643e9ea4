#pragma once

#include <QString>

namespace Platform {

/// What a tool tip is given to show `text` as it stands, in as many lines as it needs: a text that
/// is given to it directly is taken for markup when it looks like it.
inline QString ToolTipOf(const QString& text) {
  return text.isEmpty() ? QString() : "<p>" + text.toHtmlEscaped() + "</p>";
}

} // namespace Platform
