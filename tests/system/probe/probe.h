#pragma once

#include <QByteArray>
#include <QGenericPlugin>
#include <QObject>
#include <QTimer>

#include "widget_state.h"

class QSocketNotifier;

namespace marlex::probe {

/// Observes the windows of the process that it was loaded into and never changes them. Reports
/// every change as one line on the local socket that MARLEX_PROBE_SOCKET names:
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
  bool Changed = true;   // an event has been processed since the last look
  bool Looking = false;  // the painting in progress was caused by our own look
};

}  // namespace marlex::probe

/// The entry point that Qt offers to code named in the environment:
/// QT_QPA_GENERIC_PLUGINS=marlexprobe.
class ProbePlugin : public QGenericPlugin {
  Q_OBJECT
  Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "probe.json")

 public:
  QObject* create(const QString& key, const QString& arguments) override;
};
