#include "screen/measure.h"

#include <gtest/gtest.h>

#include "desktop/windows/elided.h"
#include "screen/measure_items.h"
#include "screen/painted_texts.h"

namespace marlex {
namespace {

using Piece = PaintedTexts::Piece;

std::string Describe(const QWidget& widget, const QString& text) {
  return widget.objectName().toStdString() + " \"" + text.toStdString() + "\" is " +
         std::to_string(widget.width()) + " x " + std::to_string(widget.height());
}

/// The operator's names may be longer than the space for them; at least their beginning is shown.
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

void ExpectWhole(const QAbstractButton& button) {
  if (auto* elided = dynamic_cast<const ElidedButton*>(&button)) return ExpectBeginning(*elided);
  EXPECT_GE(button.width(), button.sizeHint().width()) << Describe(button, button.text());
  EXPECT_GE(button.height(), button.minimumSizeHint().height()) << Describe(button, button.text());
}

/// The title, wrapped to the frame's width, ends above the first widget of the frame.
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

/// The combo box has room for every one of its entries.
void ExpectWhole(const QComboBox& box) {
  QStyleOptionComboBox option;
  option.initFrom(&box);
  const QSize room =
      box.style()
          ->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &box)
          .size();
  EXPECT_GE(room.height(), box.fontMetrics().height()) << Describe(box, box.currentText());
  for (int entry = 0; entry < box.count(); ++entry) {
    EXPECT_GE(room.width(), box.fontMetrics().horizontalAdvance(box.itemText(entry)))
        << Describe(box, box.itemText(entry));
  }
}

/// The typed text may be longer than the line, but not higher.
void ExpectWhole(const QLineEdit& line) {
  QStyleOptionFrame option;
  option.initFrom(&line);
  const QRect room = line.style()->subElementRect(QStyle::SE_LineEditContents, &option, &line);
  EXPECT_GE(room.height(), line.fontMetrics().height()) << Describe(line, line.text());
  const int margins = 2 * line.fontMetrics().averageCharWidth();
  EXPECT_GE(room.width(), line.fontMetrics().horizontalAdvance(line.placeholderText()) + margins)
      << Describe(line, line.placeholderText());
}

template <class T>
void ExpectAllWhole(QWidget& window) {
  for (const T* widget : window.findChildren<T*>()) {
    if (!widget->isVisible() || widget->isWindow()) continue;
    if (widget->objectName().startsWith("qt_")) continue;
    ExpectWhole(*widget);
    const QRect inWindow(widget->mapTo(&window, QPoint(0, 0)), widget->size());
    EXPECT_TRUE(window.rect().contains(inWindow))
        << widget->objectName().toStdString() << " leaves the window";
    const QRect inParent = widget->geometry();
    const bool isInside = widget->parentWidget()->rect().contains(inParent);
    EXPECT_TRUE(isInside) << widget->objectName().toStdString() << " leaves its frame";
  }
}

bool IsViewport(const QWidget& widget) {
  auto* view = qobject_cast<QAbstractItemView*>(widget.parentWidget());
  return view && view->viewport() == &widget && !qobject_cast<QHeaderView*>(view);
}

/// Whether a text may be longer than the widget that paints it: a name, which the tool tip shows in
/// full, or what the operator types.
bool TakesAnyText(const QWidget& widget) {
  auto* line = qobject_cast<const QLineEdit*>(&widget);
  return (line && !line->text().isEmpty()) || dynamic_cast<const ElidedLabel*>(&widget) ||
         dynamic_cast<const ElidedButton*>(&widget);
}

/// Returns the texts that a widget paints, and expects each to be inside it and not shortened.
QList<Piece> ExpectPaintedWhole(QWidget& widget) {
  QList<Piece> pieces = PaintedTexts::Of(widget);
  const QRectF room = QRectF(widget.rect()).adjusted(-0.5, -0.5, 0.5, 0.5);
  for (const Piece& piece : TakesAnyText(widget) ? QList<Piece>() : pieces) {
    EXPECT_FALSE(piece.Text.contains(kLeftOut)) << Describe(widget, piece.Text);
    EXPECT_TRUE(room.contains(piece.Place))
        << Describe(widget, piece.Text) << ", and its text " << Corners(piece.Place);
  }
  ExpectApart(pieces);
  return pieces;
}

/// No widget covers a text that another one paints, even in different frames.
void ExpectUncovered(QWidget& painter, const QList<Piece>& pieces, const QWidget& window,
                     const QList<QWidget*>& shown) {
  for (const QWidget* other : shown) {
    if (other == &painter || other->isAncestorOf(&painter)) continue;
    const QRectF covered(other->mapTo(&window, QPoint(0, 0)), other->size());
    for (const Piece& piece : pieces) {
      const QRectF place = piece.Place.translated(painter.mapTo(&window, QPoint(0, 0)));
      EXPECT_FALSE(covered.intersects(place & QRectF(window.rect())))
          << other->objectName().toStdString() << " lies over " << Describe(painter, piece.Text);
    }
  }
}

void ExpectTextsWhole(QWidget& window) {
  QList<QWidget*> shown;
  for (QWidget* widget : window.findChildren<QWidget*>()) {
    if (widget->isVisible() && !widget->isWindow()) shown.append(widget);
  }
  for (QWidget* widget : shown) {
    if (IsViewport(*widget)) continue;
    ExpectUncovered(*widget, ExpectPaintedWhole(*widget), window, shown);
  }
}

/// Widgets of the same layout never overlap.
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
  if (auto* menu = qobject_cast<QMenu*>(&window)) return ExpectItemsWhole(*menu);
  ExpectAllWhole<QLabel>(window);
  ExpectAllWhole<QAbstractButton>(window);
  ExpectAllWhole<QGroupBox>(window);
  ExpectAllWhole<QTableView>(window);
  ExpectAllWhole<QComboBox>(window);
  ExpectAllWhole<QLineEdit>(window);
  for (QAbstractItemView* view : window.findChildren<QAbstractItemView*>()) {
    const bool isItsOwn = !qobject_cast<QHeaderView*>(view);
    if (view->isVisible() && isItsOwn) ExpectItemsWhole(*view);
  }
  for (QMenuBar* bar : window.findChildren<QMenuBar*>()) ExpectItemsWhole(*bar);
  for (QMenu* menu : window.findChildren<QMenu*>()) {
    if (menu->menuAction()->isVisible()) ExpectItemsWhole(*menu);
  }
  ExpectTextsWhole(window);
  ExpectNoOverlap(window);
  for (const QWidget* widget : window.findChildren<QWidget*>()) {
    if (widget->isVisible()) ExpectNoOverlap(*widget);
  }
}

}  // namespace marlex
