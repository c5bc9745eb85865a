#include "screen/painted_contrast.h"

#include <gtest/gtest.h>

#include <cmath>

#include "desktop/windows/backdrop.h"
#include "desktop/windows/contrast.h"
#include "desktop/windows/glyphs.h"
#include "screen/painted_pixels.h"
#include "screen/painted_texts.h"

namespace marlex {
namespace {

constexpr std::size_t kStrays = 2;

/// The view of a viewport; any other part itself.
const QWidget& Named(const QWidget& part) {
  auto* view = qobject_cast<const QAbstractScrollArea*>(part.parentWidget());
  return view && !part.isWindow() ? *view : part;
}

bool IsToolTip(const QWidget& part) { return part.objectName() == "qtooltip_label"; }

/// The states that change the look of a part.
std::string StateOf(const QWidget& part) {
  std::string state;
  if (!part.isEnabled()) state += " off";
  if (part.hasFocus()) state += " focused";
  const auto* button = qobject_cast<const QAbstractButton*>(&part);
  if (button && button->isChecked()) state += " on";
  for (const char* property : {"lit", "air"}) {
    for (const QWidget* at = &part; at && !at->isWindow(); at = at->parentWidget()) {
      const QString value = at->property(property).toString();
      if (!value.isEmpty()) state += " " + value.toStdString();
    }
  }
  return state;
}

std::string KindOf(const QWidget& part) {
  const QWidget& named = Named(part);
  const std::string face = named.property("face").toString().toStdString();
  const std::string kind = IsToolTip(named) ? "tool tip" : named.metaObject()->className();
  return kind + (face.empty() ? "" : " " + face) + StateOf(named);
}

bool HasBorder(const QWidget& part) {
  const QString face = part.property("face").toString();
  const QString air = part.property("air").toString();
  if (!air.isEmpty()) return air != "silence" && air != "music";
  if (IsToolTip(part) || qobject_cast<const QMenu*>(&part)) return true;
  if (qobject_cast<const QLabel*>(&part))
    return QStringList({"lamp", "busy", "notice", "warning", "path"}).contains(face);
  const bool isFramedView = !face.isEmpty() && (qobject_cast<const QListView*>(&part) ||
                                                qobject_cast<const QTableView*>(&part));
  return isFramedView || qobject_cast<const QPushButton*>(&part) ||
         qobject_cast<const QComboBox*>(&part) || qobject_cast<const QLineEdit*>(&part);
}

template <class Option>
Option OptionOf(const QWidget& part) {
  Option option;
  option.initFrom(&part);
  return option;
}

/// Strong pixels that may belong to something else. A sign of a few dots has none to spare.
std::size_t StraysOf(const QString& text) { return text.size() < 3 ? 0 : kStrays; }

/// Whether a text at that place of a part says something that cannot be done now.
bool IsDisabled(const QWidget& part, const QPointF& place) {
  const auto* menu = qobject_cast<const QMenu*>(&part);
  const QAction* item = menu ? menu->actionAt(place.toPoint()) : nullptr;
  return !part.isEnabled() || (item && !item->isEnabled());
}

/// The places of a text of which each has one ground: pieces of a text on a backdrop, which changes
/// from left to right; any other text itself.
std::vector<QRectF> PlacesOnOneGround(const QWidget& part, const QRectF& text) {
  constexpr int kPiece = 60;
  if (!dynamic_cast<const Backdrop*>(part.parentWidget())) return {text};
  const int count = qMax(1, int(text.width()) / kPiece);
  const qreal width = text.width() / count;
  std::vector<QRectF> places;
  for (int piece = 0; piece < count; ++piece)
    places.emplace_back(text.left() + piece * width, text.top(), width, text.height());
  return places;
}

/// The part of a slider or scroll bar that moves.
QRect KnobOf(const QAbstractSlider& slider, QStyle::ComplexControl kind, QStyle::SubControl knob) {
  auto option = OptionOf<QStyleOptionSlider>(slider);
  option.orientation = slider.orientation();
  option.minimum = slider.minimum();
  option.maximum = slider.maximum();
  option.pageStep = slider.pageStep();
  option.sliderPosition = option.sliderValue = slider.value();
  option.upsideDown = slider.invertedAppearance();
  return slider.style()->subControlRect(kind, &option, knob, &slider);
}

}  // namespace

void PaintedContrasts::Measure(QWidget& window, const std::string& where) {
  Window = &window;
  Where = where;
  Picture = window.grab().toImage();
  QList<QWidget*> parts = window.findChildren<QWidget*>();
  parts.prepend(&window);
  for (QWidget* part : parts) {
    const bool isShown = part == &window || (part->isVisible() && !part->isWindow());
    if (!isShown || part->size().isEmpty()) continue;
    MeasureTexts(*part);
    if (HasBorder(*part)) MeasureBorder(*part);
    MeasureMarks(*part);
  }
}

void PaintedContrasts::MeasureTexts(QWidget& part) {
  const QRectF room(OriginOf(part), part.size());
  for (const PaintedTexts::Piece& piece : PaintedTexts::Of(part)) {
    const QRectF text = piece.Place.translated(room.topLeft()) & room;
    for (const QRectF& place : PlacesOnOneGround(part, text)) AddText(part, place, piece.Text);
  }
}

void PaintedContrasts::MeasureBorder(QWidget& part) {
  const QRect area(OriginOf(part), part.size());
  Add("border: " + KindOf(part), BorderContrast(Picture, area, &part == Window), kVisible, part);
}

void PaintedContrasts::MeasureMarks(QWidget& part) {
  if (dynamic_cast<GlyphSign*>(&part)) AddMark(part, part.rect());
  if (auto* button = qobject_cast<QPushButton*>(&part)) MeasureGlyph(*button);
  if (qobject_cast<QCheckBox*>(&part) || qobject_cast<QRadioButton*>(&part))
    MeasureChoice(*qobject_cast<QAbstractButton*>(&part));
  if (auto* bar = qobject_cast<QScrollBar*>(&part)) MeasureScrollBar(*bar);
  if (auto* slider = qobject_cast<QSlider*>(&part)) MeasureSlider(*slider);
  if (auto* list = qobject_cast<QListView*>(&part)) MeasureSelection(*list);
  if (auto* menu = qobject_cast<QMenu*>(&part)) MeasureTicks(*menu);
  if (qobject_cast<QComboBox*>(&part))
    AddMark(part, QRect(part.width() - 28, 6, 22, part.height() - 12), " arrow");
}

/// A picture that says alone what the button does.
void PaintedContrasts::MeasureGlyph(QPushButton& button) {
  constexpr QMargins kBorder(6, 6, 6, 6);
  if (!button.icon().isNull() && button.text().isEmpty())
    AddMark(button, button.rect().marginsRemoved(kBorder));
}

void PaintedContrasts::MeasureChoice(QAbstractButton& choice) {
  constexpr QMargins kBorder(3, 3, 3, 3);
  const bool isCheck = qobject_cast<QCheckBox*>(&choice) != nullptr;
  const auto option = OptionOf<QStyleOptionButton>(choice);
  const QRect box = choice.style()->subElementRect(
      isCheck ? QStyle::SE_CheckBoxIndicator : QStyle::SE_RadioButtonIndicator, &option, &choice);
  AddEdge(choice, " box", BorderContrast(Picture, box.translated(OriginOf(choice))));
  if (choice.isChecked()) AddMark(choice, box.marginsRemoved(kBorder));
}

void PaintedContrasts::MeasureScrollBar(QScrollBar& bar) {
  if (bar.maximum() == 0) return;
  const QRect knob = KnobOf(bar, QStyle::CC_ScrollBar, QStyle::SC_ScrollBarSlider);
  const bool isVertical = bar.orientation() == Qt::Vertical;
  const QPointF along = isVertical ? QPointF(0, 1) : QPointF(1, 0);
  const double length = isVertical ? knob.height() : knob.width();
  const double room = isVertical ? bar.height() : bar.width();
  const double start = isVertical ? knob.top() : knob.left();
  // The free groove is on the longer side of the knob.
  const double outside = start > room - start - length ? -length / 2 - 4 : length / 2 + 4;
  AddEdge(bar, " knob",
          EdgeContrast(Picture, {QPointF(knob.center() + OriginOf(bar)), along, outside}));
}

void PaintedContrasts::MeasureSlider(QSlider& slider) {
  constexpr int kFromEnd = 12;
  const QPoint origin = OriginOf(slider);
  const QRect knob = KnobOf(slider, QStyle::CC_Slider, QStyle::SC_SliderHandle);
  const double middle = slider.rect().center().x() + origin.x();
  const double outside = 1 - slider.width() / 2.0;
  AddEdge(
      slider, " knob",
      EdgeContrast(Picture, {QPointF(middle, knob.center().y() + origin.y()), {1, 0}, outside}));
  for (const int y : {kFromEnd, slider.height() - kFromEnd}) {
    if (std::abs(y - knob.center().y()) < knob.height()) continue;
    AddEdge(slider, " groove",
            EdgeContrast(Picture, {QPointF(middle, origin.y() + y), {0.2, 0}, outside * 5}));
  }
}

/// The bar before the entry that is selected.
void PaintedContrasts::MeasureSelection(QListView& list) {
  const QModelIndex current = list.currentIndex();
  if (!current.isValid() || !list.selectionModel()->isSelected(current)) return;
  const QRect entry = list.visualRect(current);
  if (!list.viewport()->rect().contains(entry)) return;
  const QPoint place = OriginOf(*list.viewport()) + QPoint(entry.left(), entry.center().y());
  AddEdge(list, " selected", EdgeContrast(Picture, {QPointF(place), {1, 0}}));
}

void PaintedContrasts::MeasureTicks(QMenu& menu) {
  constexpr int kRoomForTick = 26;
  for (QAction* action : menu.actions()) {
    if (!action->isChecked() || !action->isVisible()) continue;
    const QRect item = menu.actionGeometry(action);
    AddMark(menu, QRect(item.left() + 2, item.top(), kRoomForTick, item.height()), " tick");
  }
}

/// Pieces that are scrolled out of view but for an edge are left out.
void PaintedContrasts::AddText(const QWidget& part, const QRectF& place, const QString& text) {
  if (place.width() < 3 || place.height() < 6) return;
  const std::vector<QRgb> pixels = PixelsOf(Picture, place);
  const QColor ground = GroundOf(pixels);
  const bool isCell = qobject_cast<QTableView*>(part.parentWidget()) != nullptr;
  const bool isDisabled = IsDisabled(part, place.center() - OriginOf(part));
  std::string kind = "text: " + KindOf(part);
  if (isCell) kind += " on " + ground.name().toStdString();
  if (isDisabled && part.isEnabled()) kind += " off";
  Add(kind, InkContrast(pixels, ground, StraysOf(text)), kReadable, part, text);
}

void PaintedContrasts::AddMark(const QWidget& part, const QRect& area, const char* which) {
  const std::vector<QRgb> pixels = PixelsOf(Picture, area.translated(OriginOf(part)));
  AddEdge(part, which, InkContrast(pixels, GroundOf(pixels), kStrays));
}

void PaintedContrasts::AddEdge(const QWidget& part, const char* which, double contrast) {
  Add("mark: " + KindOf(part) + which, contrast, kVisible, part);
}

void PaintedContrasts::Add(const std::string& kind, double ratio, double needed,
                           const QWidget& part, const QString& text) {
  const std::string where = Where + " " + Named(part).objectName().toStdString() +
                            (text.isEmpty() ? "" : " \"" + text.toStdString() + "\"");
  const auto [found, isNew] = Kinds.try_emplace(kind, Found{ratio, needed, where});
  if (!isNew && ratio < found->second.Ratio) found->second = {ratio, needed, where};
}

void PaintedContrasts::ExpectEnough() const {
  for (const auto& [kind, found] : Kinds)
    EXPECT_GE(found.Ratio, found.Needed) << kind << ", " << found.Where;
}

double PaintedContrasts::Lowest(const std::string& kind) const {
  const auto found = Kinds.find(kind);
  return found == Kinds.end() ? 0 : found->second.Ratio;
}

QString PaintedContrasts::Report() const {
  QString report;
  for (const auto& [kind, found] : Kinds) {
    report += QString("%1  %2  (%3)\n")
                  .arg(found.Ratio, 5, 'f', 2)
                  .arg(QString::fromStdString(kind), QString::fromStdString(found.Where));
  }
  return report;
}

}  // namespace marlex
