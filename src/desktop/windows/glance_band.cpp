#include "desktop/windows/glance_band.h"

#include <QStyle>

#include "desktop/windows/part.h"
#include "desktop/windows/shown_text.h"

namespace marlex {

namespace {

constexpr int kPartOfPixel = 1;  // lost when a text width is rounded

/// The style sheet's name for the look of what is on the air.
const char* FaceOf(OnAir what) {
  switch (what) {
    case OnAir::Music:
      return "music";
    case OnAir::Message:
      return "message";
    case OnAir::Amplifier:
      return "amplifier";
    case OnAir::Wait:
      return "wait";
    case OnAir::Call:
      return "call";
    case OnAir::Silence:
      break;
  }
  return "silence";
}

}  // namespace

GlanceBand::GlanceBand(QWidget& window)
    : OnAirBox(Part<QWidget>(window, "paneOnAir")),
      OnAirSign(Part<QWidget>(window, "paneOnAirSign")),
      OnAirName(Part<QLabel>(window, "paneOnAirName")),
      NextBox(Part<QWidget>(window, "paneNext")),
      NextTime(Part<QLabel>(window, "paneNextTime")),
      NextMessages(Part<QLabel>(window, "paneNextMessages")) {
  for (QLabel* text : {&OnAirName, &NextTime, &NextMessages}) text->setTextFormat(Qt::PlainText);
  PaintOnAir(Painted);
  NextBox.hide();
}

void GlanceBand::Paint(const Glance& glance) {
  if (glance == Painted) return;
  if (glance.What != Painted.What || glance.Name != Painted.Name) PaintOnAir(glance);
  NextTime.setText(ShownText(glance.Next.Time).trimmed());
  NextTime.setVisible(!NextTime.text().isEmpty());
  NextMessages.setText(ShownText(glance.Next.Messages));
  NextBox.setVisible(glance.Next != ComingRow());
  Painted = glance;
}

/// The name of a sound may be shortened, a word of the system may not.
void GlanceBand::MakeRoom() {
  OnAirName.ensurePolished();
  const int whole = OnAirName.fontMetrics().horizontalAdvance(OnAirName.text());
  OnAirName.setMinimumWidth(IsOwnWord ? whole + kPartOfPixel : 0);
}

void GlanceBand::PaintOnAir(const Glance& glance) {
  OnAirName.setText(ShownText(glance.Name));
  IsOwnWord = glance.What >= OnAir::Amplifier;
  MakeRoom();
  const char* face = FaceOf(glance.What);
  if (OnAirBox.property("air") == face) return;
  OnAirBox.setProperty("air", face);
  OnAirSign.setProperty("glyph", face);
  for (QWidget* part : {&OnAirBox, &OnAirSign, static_cast<QWidget*>(&OnAirName)}) {
    part->style()->unpolish(part);
    part->style()->polish(part);
  }
  OnAirSign.update();
}

}  // namespace marlex
