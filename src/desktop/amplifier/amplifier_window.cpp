#include "desktop/amplifier/amplifier_window.h"

#include <QHeaderView>
#include <QStyle>
#include <QTableWidget>

#include "amplifier/bytes.h"
#include "amplifier/descriptions.h"
#include "ui_frm_amplifier.h"

namespace marlex {

namespace {

/// What a desk does at this status, for those who have just chosen it.
QString EffectOf(int status) {
  switch (status) {
    case 0:
      return "0: no call at the amplifier. The desk has the loudspeakers.";
    case kLowPriority:
      return "64: a call of low priority. A desk of low priority begins nothing; what is on goes "
             "on.";
    case kHighPriority:
      return "128: a call of high priority. The desk mutes its music and ends its message or call.";
    default:
      return "192: a call of the highest priority. The desk does what it does at 128.";
  }
}

/// The columns are as wide as their texts, and the last one has the rest.
void ArrangeTable(QTableWidget& table) {
  constexpr int kRowHeight = 26;
  QHeaderView& header = *table.horizontalHeader();
  header.setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  for (int column = 0; column + 1 < table.columnCount(); ++column)
    header.setSectionResizeMode(column, QHeaderView::ResizeToContents);
  table.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  table.verticalHeader()->setDefaultSectionSize(kRowHeight);
}

/// The style sheet chooses the colours by this property.
void Light(QLabel& lamp, bool isLit) {
  const QString lit = isLit ? "fed" : "";
  if (lamp.property("lit").toString() == lit && lamp.property("lit").isValid()) return;
  lamp.setProperty("lit", lit);
  lamp.style()->unpolish(&lamp);
  lamp.style()->polish(&lamp);
}

}  // namespace

AmplifierWindow::AmplifierWindow(StandIn& amplifier)
    : Amplifier(amplifier), Widgets(std::make_unique<Ui_frmAmplifier>()) {
  Widgets->setupUi(this);
  Lamps = {Widgets->lblCurrentZone_0, Widgets->lblCurrentZone_1, Widgets->lblCurrentZone_2,
           Widgets->lblCurrentZone_3, Widgets->lblCurrentZone_4, Widgets->lblCurrentZone_5};
  Keys = {{Widgets->cmdFree, 0},
          {Widgets->cmdLower, kLowPriority},
          {Widgets->cmdHigher, kHighPriority},
          {Widgets->cmdBoth, kPriorityBits}};
  for (const Key& key : Keys) {
    connect(key.Button, &QPushButton::clicked, this,
            [this, status = key.Status] { Amplifier.SetStatus(status); });
  }
  ArrangeTable(*Widgets->grdBytes);
  ShowAmplifier();
}

AmplifierWindow::~AmplifierWindow() = default;

void AmplifierWindow::ShowAmplifier() {
  ShowZones();
  ShowStatus();
  ShowNewBytes();
}

void AmplifierWindow::ShowLine(const std::string& text) {
  Widgets->lblLine->setText(QString::fromStdString(text));
}

void AmplifierWindow::ShowZones() {
  const Zones& lit = Amplifier.LitZones();
  for (std::size_t zone = 0; zone < lit.size(); ++zone) {
    Light(*Lamps[zone], lit[zone]);
    Lamps[zone]->setAccessibleName(
        QString("Zone %1 is %2").arg(zone + 1).arg(lit[zone] ? "on" : "off"));
  }
  const std::string level = DescribeLevel(Amplifier.HeardLevel());
  Widgets->lblLevel->setText(level == "no" ? "none" : QString::fromStdString(level));
  Widgets->lblLevel->setAccessibleName("Priority of the desk: " + Widgets->lblLevel->text());
}

/// A click has toggled its key, but a status stays until another is chosen.
void AmplifierWindow::ShowStatus() {
  for (const Key& key : Keys) key.Button->setChecked(key.Status == Amplifier.Status());
  Widgets->lblStatus->setText(EffectOf(Amplifier.Status()));
}

void AmplifierWindow::ShowNewBytes() {
  const std::deque<LineNote>& notes = Amplifier.Notes();
  const std::size_t fresh = std::min(Amplifier.NoteCount() - BytesShown, notes.size());
  if (fresh == 0) return;
  BytesShown = Amplifier.NoteCount();
  for (std::size_t i = notes.size() - fresh; i < notes.size(); ++i) AddByte(notes[i]);
  while (Widgets->grdBytes->rowCount() > static_cast<int>(notes.size()))
    Widgets->grdBytes->removeRow(0);
  Widgets->grdBytes->scrollToBottom();
}

void AmplifierWindow::AddByte(const LineNote& note) {
  const int row = Widgets->grdBytes->rowCount();
  Widgets->grdBytes->insertRow(row);
  const std::string sender = note.FromDesk ? "desk" : "amplifier";
  int column = 0;
  for (const std::string& cell : {note.Time, sender, std::to_string(note.Value), note.Meaning})
    Widgets->grdBytes->setItem(row, column++, new QTableWidgetItem(QString::fromStdString(cell)));
}

}  // namespace marlex
