#include <gtest/gtest.h>

#include <QApplication>
#include <QTemporaryDir>
#include <memory>

namespace {

/// One QApplication for all tests of the process.
class Application : public ::testing::Environment {
 public:
  void SetUp() override {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("XDG_CONFIG_HOME", Configuration.path().toLocal8Bit());  // not the developer's
    Running = std::make_unique<QApplication>(Count, Arguments);
  }
  void TearDown() override { Running.reset(); }

 private:
  QTemporaryDir Configuration;
  int Count = 1;
  char Name[13] = "window_tests";
  char* Arguments[2] = {Name, nullptr};
  std::unique_ptr<QApplication> Running;
};

const auto* const Registered = ::testing::AddGlobalTestEnvironment(new Application);

}  // namespace
