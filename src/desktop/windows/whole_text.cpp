#include "desktop/windows/whole_text.h"

#include <QHelpEvent>
#include <QToolTip>

#include "desktop/windows/shown_text.h"

namespace marlex {

bool ShowWhole(const QEvent& event, QWidget& widget, const QString& text, bool isWhole) {
  if (event.type() != QEvent::ToolTip || isWhole) return false;
  const QPoint place = static_cast<const QHelpEvent&>(event).globalPos();
  QToolTip::showText(place, ShownToolTip(text.toStdString()), &widget);
  return true;
}

}  // namespace marlex
