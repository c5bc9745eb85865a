#include "desktop/windows/fault_line.h"

#include <QStringList>

#include "desktop/windows/part.h"
#include "desktop/windows/shown_text.h"

namespace marlex {

namespace {

constexpr int kMostInTip = 12;  // as many as fit a low screen

/// The faults, a line for each; an ellipsis for those that are too many.
QString AllOf(const std::vector<std::string>& faults) {
  QStringList lines;
  for (const std::string& fault : faults) {
    lines.append(lines.size() == kMostInTip ? "..." : ShownText(fault));
    if (lines.size() > kMostInTip) break;
  }
  return lines.join('\n');
}

}  // namespace

/// The texts let the mouse through, so that the tool tip is that of the line.
FaultLine::FaultLine(QWidget& window)
    : Box(Part<QWidget>(window, "paneFaults")),
      Newest(Part<QLabel>(window, "paneNewestFault")),
      More(Part<QLabel>(window, "paneMoreFaults")) {
  for (auto* part : Box.findChildren<QLabel*>()) {
    part->setTextFormat(Qt::PlainText);
    part->setAttribute(Qt::WA_TransparentForMouseEvents);
  }
  Box.hide();
}

void FaultLine::Paint(const std::vector<std::string>& faults) {
  if (faults == Painted) return;
  Painted = faults;
  const QString all = AllOf(faults);
  Newest.setText(faults.empty() ? QString() : ShownText(faults.front()));
  Newest.setAccessibleName(all);
  More.setText(faults.size() > 1 ? "+" + QString::number(faults.size() - 1) : QString());
  More.setVisible(faults.size() > 1);
  Box.setToolTip(ShownToolTip(all.toStdString()));
  Box.setAccessibleName(all);
  Box.setVisible(!faults.empty());
}

}  // namespace marlex
