#pragma once

#include <QMap>
#include <QString>
#include <QWidget>

namespace marlex::probe {

/// What a person could read off one object of the window: property name to value, all as text.
using Properties = QMap<QString, QString>;

/// Properties of everything that has a name: maps "frmMain.cmdPlay" to its properties.
using Snapshot = QMap<QString, Properties>;

/// Reads all named widgets and actions of the process. Colours are taken from the screen image of a
/// visible widget, so they are what a person sees, however the program came to paint them.
Snapshot TakeSnapshot();

/// "frmMain.cmdPlay" for a widget; the name includes the window since two windows may use the same
/// control name.
QString KeyOf(const QWidget* widget);

/// The visible widget of that name ("cmdPlay", "frmMain.cmdPlay", or "QMessageBox.OK" for a button
/// of an open box). If none is visible, a hidden one; null when there is none at all.
QWidget* FindWidget(const QString& name);

/// Place on the screen, "x y width height", of a widget, of an item of an open menu, or of a cell
/// or list entry ("grdSchedule 1 0", "lstPlaylist 2"); empty when it cannot be seen.
QString GeometryOf(const QStringList& words);

}  // namespace marlex::probe
