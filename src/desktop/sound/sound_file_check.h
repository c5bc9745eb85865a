#pragma once

#include <memory>

#include "platform/media_check.h"

namespace marlex {

/// Inspects files on a thread of its own, one after the other. A file whose contents have not
/// changed since is opened but not read again, so that drives and networks have little to do. A
/// drive that does not answer holds up the inspection of the other files, which count as what they
/// were.
class SoundFileCheck : public MediaCheck {
 public:
  SoundFileCheck();
  ~SoundFileCheck() override;
  SoundFileCheck(const SoundFileCheck&) = delete;
  SoundFileCheck& operator=(const SoundFileCheck&) = delete;

  MediaState Song(const std::string& path) override;
  MediaState Message(const std::string& path) override;

 private:
  class Body;
  std::shared_ptr<Body> Inside;
};

}  // namespace marlex
