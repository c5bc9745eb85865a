// A desktop portal that shows nothing: portal ANSWER. It answers each request for files with the
// path in the file ANSWER, or as cancelled where that is empty, and prints a line for each request.

#include <QtDBus>

#include <cstdio>

/// The part of the portal that a file dialog uses, version 3 of org.freedesktop.portal.FileChooser.
class FileChooser : public QDBusAbstractAdaptor {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.FileChooser")
  Q_PROPERTY(uint version READ Version)

 public:
  FileChooser(QObject* portal, const QString& answer)
      : QDBusAbstractAdaptor(portal), Answer(answer) {}

  static uint Version() { return 3; }

 public slots:
  QDBusObjectPath OpenFile(const QString& /*parent*/, const QString& title,
                           const QVariantMap& options) {
    return Handle("open", title, options);
  }
  QDBusObjectPath SaveFile(const QString& /*parent*/, const QString& title,
                           const QVariantMap& options) {
    return Handle("save", title, options);
  }

 private:
  /// Prints what is asked for, and answers a little later, as somebody who chooses a file would.
  QDBusObjectPath Handle(const char* action, const QString& title, const QVariantMap& options) {
    constexpr int kAnswerAfterMs = 300;
    printf("%s \"%s\" multiple=%d modal=%d in %s\n", action, qPrintable(title),
           options["multiple"].toBool(), options["modal"].toBool(),
           options["current_folder"].toByteArray().constData());
    fflush(stdout);
    const QString request =
        "/org/freedesktop/portal/desktop/request/test/" + QString::number(++Count);
    QTimer::singleShot(kAnswerAfterMs, this, [this, request] { Respond(request); });
    return QDBusObjectPath(request);
  }

  void Respond(const QString& request) const {
    constexpr uint kChosen = 0, kCancelled = 1;
    QFile file(Answer);
    const QString path = file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : "";
    const QStringList uris{QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded)};
    QDBusMessage response =
        QDBusMessage::createSignal(request, "org.freedesktop.portal.Request", "Response");
    response << (path.isEmpty() ? kCancelled : kChosen) << QVariantMap{{"uris", uris}};
    QDBusConnection::sessionBus().send(response);
  }

  const QString Answer;  // path of the file with the answer
  int Count = 0;
};

/// Reports a changed setting of the desktop when it is asked to.
class Settings : public QDBusAbstractAdaptor {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

 public:
  explicit Settings(QObject* portal) : QDBusAbstractAdaptor(portal) {}

 public slots:
  void Change(const QString& group, const QString& key, const QString& value) {
    QDBusMessage report = QDBusMessage::createSignal(
        "/org/freedesktop/portal/desktop", "org.freedesktop.portal.Settings", "SettingChanged");
    report << group << key << QVariant::fromValue(QDBusVariant(value));
    QDBusConnection::sessionBus().send(report);
  }
};

int main(int count, char** words) {
  QCoreApplication application(count, words);
  QObject portal;
  new FileChooser(&portal, words[1]);
  new Settings(&portal);
  QDBusConnection bus = QDBusConnection::sessionBus();
  const bool isUp = bus.registerObject("/org/freedesktop/portal/desktop", &portal) &&
                    bus.registerService("org.freedesktop.portal.Desktop");
  if (!isUp) return 1;
  printf("ready\n");
  fflush(stdout);
  return QCoreApplication::exec();
}

#include "portal.moc"
