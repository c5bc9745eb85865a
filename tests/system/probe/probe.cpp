#include "probe.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <time.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QEvent>
#include <QSocketNotifier>
#include <cstring>

#include "screen/parts.h"

namespace marlex::probe {
namespace {

constexpr int kLookEveryMs = 10;

qint64 SteadyMicroseconds() {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC, &now);
  return qint64{now.tv_sec} * 1'000'000 + now.tv_nsec / 1000;
}

QString OneLine(QString text) {
  return text.replace('\\', "\\\\").replace('\n', "\\n").replace('\r', "\\r").replace('\t', ' ');
}

}  // namespace

Probe::Probe(QObject* parent) : QObject(parent) {
  Connect(qgetenv("MARLEX_PROBE_SOCKET"));
  if (Socket < 0) return;
  Notifier = new QSocketNotifier(Socket, QSocketNotifier::Read, this);
  connect(Notifier, &QSocketNotifier::activated, this, [this] { ReadQueries(); });
  connect(&Clock, &QTimer::timeout, this, [this] { Look(); });
  Clock.setTimerType(Qt::PreciseTimer);
  Clock.start(kLookEveryMs);
  QCoreApplication::instance()->installEventFilter(this);
}

Probe::~Probe() {
  if (Socket >= 0) close(Socket);
}

void Probe::Connect(const QByteArray& path) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  if (path.isEmpty() || size_t(path.size()) >= sizeof(address.sun_path)) return;
  std::memcpy(address.sun_path, path.constData(), size_t(path.size()));
  Socket = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  if (::connect(Socket, reinterpret_cast<sockaddr*>(&address), sizeof(address)) == 0) return;
  close(Socket);
  Socket = -1;
}

bool Probe::eventFilter(QObject* object, QEvent* event) {
  if (object != &Clock && object != this && !Looking) Changed = true;
  return QObject::eventFilter(object, event);
}

void Probe::Look() {
  if (!Changed || Looking) return;
  Changed = false;
  Looking = true;
  Snapshot now = TakeSnapshot();
  for (auto object = now.cbegin(); object != now.cend(); ++object)
    Report(object.key(), object.value());
  for (auto object = Known.cbegin(); object != Known.cend(); ++object) {
    if (!now.contains(object.key())) Report(object.key(), {{"visible", "no"}});
  }
  Looking = false;
}

void Probe::Report(const QString& object, const Properties& now) {
  Properties& known = Known[object];
  for (auto property = now.cbegin(); property != now.cend(); ++property) {
    auto old = known.constFind(property.key());
    if (old != known.cend() && *old == property.value()) continue;
    known[property.key()] = property.value();
    Write(QString("! %1\t%2\t%3\t%4")
              .arg(SteadyMicroseconds())
              .arg(object, property.key(), OneLine(property.value())));
  }
}

void Probe::ReadQueries() {
  char buffer[4096];
  ssize_t count = recv(Socket, buffer, sizeof(buffer), MSG_DONTWAIT);
  if (count <= 0) return Notifier->setEnabled(false);
  Received.append(buffer, count);
  for (auto end = Received.indexOf('\n'); end >= 0; end = Received.indexOf('\n')) {
    QString query = QString::fromUtf8(Received.left(end));
    Received.remove(0, end + 1);
    Answer(query);
  }
}

void Probe::Answer(const QString& query) {
  QStringList words = query.split(' ');
  QString answer;
  if (words.size() > 2 && words.at(1) == "geometry") answer = GeometryOf(words.mid(2));
  if (words.size() > 2 && words.at(1) == "parts") {
    QWidget* window = FindWidget(words.at(2));
    if (window && window->isVisible()) answer = PartsOf(*window);
  }
  Write("= " + words.at(0) + "\t" + OneLine(answer));
}

void Probe::Write(const QString& line) {
  QByteArray bytes = line.toUtf8() + '\n';
  // The reader is a test, which empties the socket at once. A reader that has gone away must not
  // end the program.
  send(Socket, bytes.constData(), size_t(bytes.size()), MSG_NOSIGNAL);
}

}  // namespace marlex::probe

QObject* ProbePlugin::create(const QString& key, const QString&) {
  if (key.compare("marlexprobe", Qt::CaseInsensitive) != 0) return nullptr;
  return new marlex::probe::Probe(nullptr);  // Qt deletes it, at the end of the application
}
