#include "desktop/sound/sound_engine.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <map>
#include <thread>

#include "desktop/sound/end_reports.h"
#include "desktop/sound/output_keeper.h"
#include "desktop/sound/render_path.h"
#include "desktop/sound/sound_devices.h"
#include "desktop/sound/steady_time.h"
#include "desktop/sound/stream_mixer.h"

namespace marlex {
namespace {

constexpr std::int64_t kFarewellUs = kUsPerSecond;  // the destructor waits for decoding threads

}  // namespace

class SoundEngine::Body : public OutputSource {
 public:
  explicit Body(EventLoop& loop)
      : Loop(loop),
        Family(std::make_shared<StreamFamily>()),
        Mixer([](void* self,
                 const SoundStream& stream) { return static_cast<Body*>(self)->ReportEnd(stream); },
              this),
        Path(Mixer, Wave, Master) {}

  void Open(const SoundOptions& options, const std::shared_ptr<Body>& self);
  void Close();

  bool RenderBlock(float* stereo, int frames, std::int64_t delayUs) override;
  int Rewind(int least, int most) override { return Path.Rewind(least, most); }
  bool NeedsDelay() const override { return Mixer.HeardMatters(); }
  void OutputChanged() override {
    if (Keeper) Keeper->OutputChanged();
  }
  void Wake() {
    if (Keeper) Keeper->Wake();
  }
  void Ended(std::uint64_t stream);

  EventLoop& Loop;
  SoundLine Master;
  SoundLine Wave;
  SoundLine Microphone{true};
  const std::shared_ptr<StreamFamily> Family;
  StreamMixer Mixer;
  std::map<std::uint64_t, std::function<void()>> Listeners;  // of the playing streams, by number
  bool HasOutput = false;
  bool HasMicrophone = false;
  std::string CardName;
  std::function<CardAddress()> Address;
  std::function<bool()> IsPretended;
  std::atomic<bool> MicrophoneGone{false};
  std::unique_ptr<EndReports> Reports;
  std::unique_ptr<OutputKeeper> Keeper;

 private:
  SoundDevice FindDevice(const SoundOptions& options);
  bool ReportEnd(const SoundStream& stream);
  void PostEnd(std::uint64_t stream);

  RenderPath Path;
  std::weak_ptr<Body> Self;
  std::int64_t HeardAllUs = 0;  // from now to the end of the block being rendered
};

SoundDevice SoundEngine::Body::FindDevice(const SoundOptions& options) {
  const MicrophoneLines lines = {Microphone, Master, MicrophoneGone};
  SoundDevice device;
  if (options.UseServer) device = FindServerDevice(lines);
  if (!device.Output && options.UseCard) device = FindCardDevice(options.CardDevice, lines);
  return device;
}

void SoundEngine::Body::Open(const SoundOptions& options, const std::shared_ptr<Body>& self) {
  Self = self;
  if (options.Offline) return;
  Reports = std::make_unique<EndReports>([this](std::uint64_t stream) { PostEnd(stream); });
  SoundDevice device = FindDevice(options);
  HasOutput = device.Output != nullptr;
  HasMicrophone = HasOutput && device.HasMicrophone;
  CardName = device.CardName;
  Address = device.Address;
  IsPretended = device.IsPretended;
  Keeper = std::make_unique<OutputKeeper>(*this);
  Keeper->Start(std::move(device.Output), std::move(device.Reopen));
  for (SoundLine* line : {&Master, &Wave, &Microphone}) line->OnChange = [this] { Wake(); };
}

/// Ends everything that renders or reports; a thread that is stuck in a drive is left to itself.
void SoundEngine::Body::Close() {
  for (SoundLine* line : {&Master, &Wave, &Microphone}) line->OnChange = nullptr;
  if (Keeper) Keeper->Stop();
  Reports.reset();
  Listeners.clear();
  Mixer.StopAll();
  const std::int64_t due = SteadyUs() + kFarewellUs;
  while (Family->Threads > 0 && SteadyUs() < due)
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
}

bool SoundEngine::Body::RenderBlock(float* stereo, int frames, std::int64_t delayUs) {
  if (Keeper) Keeper->CountBlock();
  HeardAllUs = delayUs + UsOf(frames);
  return Path.Render(stereo, frames);
}

/// Called on the rendering thread. The stream's last frame is heard before the end of the block, by
/// as much as the stream left the block empty.
bool SoundEngine::Body::ReportEnd(const SoundStream& stream) {
  if (!Reports) {  // offline: this is the system's thread
    PostEnd(stream.Id());
    return true;
  }
  if (stream.Report() == EndReport::kHandedOver) return Reports->Push(stream.Id(), 0);
  const std::int64_t missingUs = UsOf(stream.Missing());
  return Reports->Push(stream.Id(), std::max<std::int64_t>(0, HeardAllUs - missingUs));
}

void SoundEngine::Body::PostEnd(std::uint64_t stream) {
  Loop.Post([weak = Self, stream] {
    if (const auto body = weak.lock()) body->Ended(stream);
  });
}

/// Runs as an event of the loop. A stream that was released in the meantime has no listener any
/// more.
void SoundEngine::Body::Ended(std::uint64_t stream) {
  const auto found = Listeners.find(stream);
  if (found == Listeners.end()) return;
  const std::function<void()> listener = std::move(found->second);
  Listeners.erase(found);
  listener();
}

SoundEngine::SoundEngine(EventLoop& loop, const SoundOptions& options)
    : Inside(std::make_shared<Body>(loop)) {
  Inside->Open(options, Inside);
}

SoundEngine::~SoundEngine() { Inside->Close(); }

SoundLine& SoundEngine::Master() { return Inside->Master; }
SoundLine& SoundEngine::Wave() { return Inside->Wave; }
SoundLine& SoundEngine::Microphone() { return Inside->Microphone; }

bool SoundEngine::HasOutput() const { return Inside->HasOutput; }
bool SoundEngine::HasMicrophone() const { return Inside->HasMicrophone; }
std::string SoundEngine::CardName() const { return Inside->CardName; }
std::function<CardAddress()> SoundEngine::Address() const { return Inside->Address; }
bool SoundEngine::OutputAlive() const { return Inside->Keeper && Inside->Keeper->DeviceAlive(); }

SoundOutlet SoundEngine::Outlet() const {
  if (!OutputAlive()) return SoundOutlet::Gone;
  return Inside->IsPretended() ? SoundOutlet::Pretended : SoundOutlet::Device;
}

bool SoundEngine::MicrophoneIsGone() const {
  return HasMicrophone() && OutputAlive() && Inside->MicrophoneGone;
}

void SoundEngine::Render(float* stereo, int frames) {
  Inside->Mixer.AwaitDecoding(frames);
  Inside->RenderBlock(stereo, frames, 0);
}

std::shared_ptr<SoundStream> SoundEngine::Load(const std::string& path, OpenDecoder open,
                                               EndReport report) {
  return SoundStream::Open(path, open, report, Inside->Family);
}

void SoundEngine::Play(const std::shared_ptr<SoundStream>& stream, std::function<void()> onEnded) {
  const bool fresh = Inside->Listeners.insert_or_assign(stream->Id(), std::move(onEnded)).second;
  stream->Play();
  if (fresh) Inside->Mixer.Add(stream);
  Inside->Wake();
}

void SoundEngine::Release(const std::shared_ptr<SoundStream>& stream) {
  Inside->Listeners.erase(stream->Id());
  Inside->Mixer.Remove(stream);
}

}  // namespace marlex
