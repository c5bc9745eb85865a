#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "platform/media_check.h"

namespace marlex {

/// Inspects files on a thread of its own, one after the other. A good file that has not changed
/// since its last inspection is opened but not read again, so that drives and networks have little
/// to do; a bad one is, since its drive may have been at fault. A drive that does not answer holds
/// up the inspection of the other files, which keep their last state.
class SoundFileCheck : public MediaCheck {
 public:
  SoundFileCheck();
  ~SoundFileCheck() override;
  SoundFileCheck(const SoundFileCheck&) = delete;
  SoundFileCheck& operator=(const SoundFileCheck&) = delete;

  void Watch(std::vector<WatchedFile> files) override { Watched = std::move(files); }
  const std::vector<MediaState>& States() override;

 private:
  class Body;
  std::vector<WatchedFile> Watched;
  std::vector<MediaState> Known;
  std::shared_ptr<Body> Inside;
};

}  // namespace marlex
