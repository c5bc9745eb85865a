#include "desktop/process/syslog.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <string>
#include <vector>

#include "desktop/files/temporary_directory.h"
#include "desktop/process/notify_socket.h"

namespace marlex {
namespace {

using Lines = std::vector<std::string>;

std::string Datagram(const std::string& line) {
  return "<14>marlex[" + std::to_string(getpid()) + "]: " + line;
}

TEST(Syslog, SendsALineToTheLogService) {
  const test::TemporaryDirectory folder;
  const NotifySocket service(folder.Path("log"));
  Syslog log(service.Address());
  log.Write("row 12:01 welcome: play in 1 3");
  log.Write("fault: File not found: Grüße.wav");
  EXPECT_EQ(service.Reports(), (Lines{Datagram("row 12:01 welcome: play in 1 3"),
                                      Datagram("fault: File not found: Grüße.wav")}));
}

TEST(Syslog, KeepsALineWithABreakInOneLine) {
  const test::TemporaryDirectory folder;
  const NotifySocket service(folder.Path("log"));
  Syslog(service.Address())
      .Write(
          "music: play a\nb\t\x1b"
          "c.mp3");
  EXPECT_EQ(service.Reports(), Lines{Datagram("music: play a b  c.mp3")});
}

TEST(Syslog, DropsLinesWhileTheServiceDoesNotReadOrIsGone) {
  const test::TemporaryDirectory folder;
  const std::string address = folder.Path("log");
  Syslog log(address);
  log.Write("before the service starts");
  {
    const NotifySocket service(address);
    for (int line = 0; line < 10'000; ++line) log.Write("a line");
    EXPECT_LT(service.Reports().size(), 10'000u);
    log.Write("again");
    EXPECT_EQ(service.Reports(), Lines{Datagram("again")});
  }
  log.Write("after it has ended");
  unlink(address.c_str());
  const NotifySocket another(address);
  log.Write("another service");
  EXPECT_EQ(another.Reports(), Lines{Datagram("another service")});
}

}  // namespace
}  // namespace marlex
