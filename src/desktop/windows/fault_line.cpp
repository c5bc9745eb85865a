#include "desktop/windows/fault_line.h"

#include <QStringList>

#include "desktop/windows/shown_text.h"
#include "platform/runtime_failure.h"

namespace marlex {

namespace {

constexpr std::size_t kMostInTip = 12;  // as many as fit a low screen

template <class T>
T& Part(QWidget& window, const char* name) {
  auto* part = window.findChild<T*>(name);
  if (!part) throw RuntimeFailure(std::string("The main window has no ") + name);
  return *part;
}

/// The faults, a line for each.
QString AllOf(const std::vector<std::string>& faults) {
  QStringList lines;
  for (const std::string& fault : faults) {
    lines.append(lines.size() == int(kMostInTip) ? "..." : ShownText(fault));
    if (lines.size() > int(kMostInTip)) break;
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
  More.setText("+" + QString::number(faults.size() - 1));
  More.setVisible(faults.size() > 1);
  Box.setToolTip(ShownToolTip(all.toStdString()));
  Box.setAccessibleName(all);
  Box.setVisible(!faults.empty());
}

}  // namespace marlex
