#include <QCoreApplication>
#include <memory>

#include <gtest/gtest.h>

namespace {

/// The application object that Qt's loop, timers and notifiers need; one for the whole test
/// program.
class QtApplication : public testing::Environment {
 public:
  void SetUp() override {
    Application = std::make_unique<QCoreApplication>(ArgumentCount, Arguments);
  }
  void TearDown() override { Application.reset(); }

 private:
  int ArgumentCount = 1;
  char Name[13] = "device_tests";
  char* Arguments[2] = {Name, nullptr};
  std::unique_ptr<QCoreApplication> Application;
};

[[maybe_unused]] const testing::Environment* const kApplication =
    testing::AddGlobalTestEnvironment(new QtApplication);

}  // namespace
