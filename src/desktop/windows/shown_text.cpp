#include "desktop/windows/shown_text.h"

#include <QTextDocument>

namespace marlex {

QString ShownText(const std::string& text) {
  QString shown = QString::fromStdString(text);
  shown.replace("\r\n", "\n");
  shown.replace('\r', '\n');
  return shown;
}

QString ShownCaption(const std::string& text) { return ShownText(text).replace("&", "&&"); }

QString ShownToolTip(const std::string& text) {
  const QString shown = ShownText(text);
  return Qt::mightBeRichText(shown) ? shown.toHtmlEscaped() : shown;
}

}  // namespace marlex
