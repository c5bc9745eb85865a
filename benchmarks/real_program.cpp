#include "real_program.h"

#include <chrono>
#include <stdexcept>
#include <thread>

#include "desktop/process/posix_process.h"
#include "places.h"
#include "sound/wait.h"
#include "windows/frm_main.h"

namespace marlex::bench {

stage::StageOptions ProgramOptions() {
  stage::StageOptions options;
  options.Program = MARLEX_BINARY_DIR "/marlex";
  options.Helpers = MARLEX_BINARY_DIR "/helpers";
  return options;
}

void AwaitOthersEnd() {
  constexpr double kLimitSeconds = 60;
  const auto isAlone = [] { return !PosixProcess().FindWindow(FrmMain::kCaption); };
  if (!stage::WaitUntil(isAlone, kLimitSeconds)) {
    throw std::runtime_error("another Tolvo Marlex runs on this machine");
  }
}

void Sleep(double seconds) { std::this_thread::sleep_for(std::chrono::duration<double>(seconds)); }

}  // namespace marlex::bench
