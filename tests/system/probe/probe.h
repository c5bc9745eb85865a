#pragma once

#include <QByteArray>
#include <QGenericPlugin>
#include <QObject>
#include <QTimer>

#include "widget_state.h"

class QSocketNotifier;

namespace marlex::probe {

/// Looks at the windows of the process that it was loaded into and never changes them. Every change
/// goes as one line over the local socket that MARLEX_PROBE_SOCKET names:
///     ! <steady clock, microseconds> TAB <object> TAB <property> TAB <value>
/// A line "<number> geometry <object> [row column]" on the socket is answered by "= <number> TAB
/// <answer>".
class Probe : public QObject {
 public:
  explicit Probe(QObject* parent);
  ~Probe() override;

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  void Connect(const QByteArray& path);
  void Look();
  void Report(const QString& object, const Properties& now);
  void ReadQueries();
  void Answer(const QString& query);
  void Write(const QString& line);

  int Socket = -1;
  QSocketNotifier* Notifier = nullptr;
  QTimer Clock;
  Snapshot Known;
  QByteArray Received;
  bool Changed = true;   // an event went by since the last look
  bool Looking = false;  // what is painted while we look is painted for us
};

}  // namespace marlex::probe

/// Qt's own door for code that is loaded by the environment: QT_QPA_GENERIC_PLUGINS=marlexprobe.
class ProbePlugin : public QGenericPlugin {
  Q_OBJECT
  Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "probe.json")

 public:
  QObject* create(const QString& key, const QString& arguments) override;
};
