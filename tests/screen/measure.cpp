#include "screen/measure.h"

#include <gtest/gtest.h>

#include "desktop/windows/elided.h"

namespace marlex {
namespace {

std::string Describe(const QWidget& widget, const QString& text) {
  return widget.objectName().toStdString() + " \"" + text.toStdString() + "\" is " +
         std::to_string(widget.width()) + " x " + std::to_string(widget.height());
}

/// A name of the operator's may be longer than its room; a beginning of it is shown always.
template <class T>
void ExpectBeginning(const T& widget) {
  EXPECT_GE(widget.width(), widget.minimumSizeHint().width()) << Describe(widget, widget.text());
  EXPECT_GE(widget.height(), widget.minimumSizeHint().height()) << Describe(widget, widget.text());
}

void ExpectWhole(const QLabel& label) {
  if (label.text().isEmpty()) return;
  if (auto* elided = dynamic_cast<const ElidedLabel*>(&label)) return ExpectBeginning(*elided);
  const QSize need =
      label.wordWrap() ? QSize(label.minimumSizeHint().width(), label.heightForWidth(label.width()))
                       : label.sizeHint();
  EXPECT_GE(label.width(), need.width()) << Describe(label, label.text());
  EXPECT_GE(label.height(), need.height()) << Describe(label, label.text());
}

void ExpectWhole(const QAbstractButton& key) {
  if (auto* elided = dynamic_cast<const ElidedKey*>(&key)) return ExpectBeginning(*elided);
  EXPECT_GE(key.width(), key.sizeHint().width()) << Describe(key, key.text());
  EXPECT_GE(key.height(), key.minimumSizeHint().height()) << Describe(key, key.text());
}

/// The title, wrapped in the frame's width, ends above the first widget of the frame.
void ExpectWhole(const QGroupBox& frame) {
  if (frame.title().isEmpty()) return;
  const QRect room = frame.contentsRect();
  const QRect text = frame.fontMetrics().boundingRect(QRect(0, 0, room.width(), 10000),
                                                      Qt::TextWordWrap, frame.title());
  EXPECT_LE(text.width(), room.width()) << Describe(frame, frame.title());
  for (const QWidget* child : frame.findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
    if (!child->isVisible()) continue;
    EXPECT_GE(child->y(), room.top() + text.height()) << Describe(frame, frame.title());
  }
}

void ExpectWhole(const QTableView& table) {
  const QHeaderView& heading = *table.horizontalHeader();
  for (int column = 0; column < heading.count(); ++column) {
    if (heading.isSectionHidden(column)) continue;
    EXPECT_GE(heading.sectionSize(column), heading.sectionSizeHint(column)) << "column " << column;
  }
}

template <class T>
void ExpectAllWhole(QWidget& window) {
  for (const T* widget : window.findChildren<T*>()) {
    if (!widget->isVisible() || widget->objectName().startsWith("qt_")) continue;
    ExpectWhole(*widget);
    const QRect inWindow(widget->mapTo(&window, QPoint(0, 0)), widget->size());
    EXPECT_TRUE(window.rect().contains(inWindow))
        << widget->objectName().toStdString() << " leaves the window";
    const QRect inParent = widget->geometry();
    const bool isInside = widget->parentWidget()->rect().contains(inParent);
    EXPECT_TRUE(isInside) << widget->objectName().toStdString() << " leaves its frame";
  }
}

/// Widgets of one layout never share a place.
void ExpectNoOverlap(const QWidget& parent) {
  QList<QWidget*> shown;
  for (QWidget* child : parent.findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
    const bool isPart = child->objectName().isEmpty() || child->objectName().startsWith("qt_");
    if (child->isVisible() && !child->isWindow() && !isPart) shown.append(child);
  }
  for (qsizetype one = 0; one < shown.size(); ++one) {
    for (qsizetype other = one + 1; other < shown.size(); ++other) {
      EXPECT_FALSE(shown[one]->geometry().intersects(shown[other]->geometry()))
          << shown[one]->objectName().toStdString() << " lies over "
          << shown[other]->objectName().toStdString();
    }
  }
}

}  // namespace

void ExpectNothingClipped(QWidget& window) {
  ExpectAllWhole<QLabel>(window);
  ExpectAllWhole<QAbstractButton>(window);
  ExpectAllWhole<QGroupBox>(window);
  ExpectAllWhole<QTableView>(window);
  ExpectNoOverlap(window);
  for (const QWidget* widget : window.findChildren<QWidget*>()) {
    if (widget->isVisible()) ExpectNoOverlap(*widget);
  }
}

}  // namespace marlex
