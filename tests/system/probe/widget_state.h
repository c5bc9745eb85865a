#pragma once

#include <QMap>
#include <QString>
#include <QWidget>

namespace marlex::probe {

/// What a person could read off one object of the window: property name to value, all as text.
using Properties = QMap<QString, QString>;

/// Properties of everything that has a name: "frmMain.cmdPlay" to its properties.
using Snapshot = QMap<QString, Properties>;

/// Reads all named widgets and actions of the process. Painted colours are taken from the screen
/// image of a widget that is visible, so they are what a person sees, whichever way the program
/// came to paint them.
Snapshot TakeSnapshot();

/// "frmMain.cmdPlay" for a widget; the window stands first since two windows may use one control
/// name.
QString KeyOf(const QWidget* widget);

/// The visible widget of that name ("cmdPlay", "frmMain.cmdPlay", or "QMessageBox.OK" for a key of
/// an open box); a hidden one when none is visible; null when there is none.
QWidget* FindWidget(const QString& name);

/// Place on the screen, "x y width height", of a widget, of a menu item that is unfolded, or of a
/// cell or list entry
/// ("grdSchedule 1 0", "lstPlaylist 2"); empty when it cannot be seen.
QString GeometryOf(const QStringList& words);

}  // namespace marlex::probe
