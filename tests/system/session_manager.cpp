#include "session_manager.h"

#include <X11/ICE/ICElib.h>
#include <X11/SM/SMlib.h>
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <thread>
#include <vector>

namespace marlex::stage {
namespace {

constexpr char kEndSession = 'e';
constexpr char kAskAndGoOn = 'a';

/// Accepts everyone who can reach the socket: only one test knows it.
int Welcome(char*) { return True; }

}  // namespace

/// Every call into the library is made on the thread, except those of the constructor.
class SessionManager::Protocol {
 public:
  Protocol() {
    char error[256] = "";
    // The library keeps what it is given here for as long as the process lives.
    static const Status once =
        SmsInitialize("stage", "1", &Protocol::Join, nullptr, Welcome, sizeof error, error);
    if (!once || !IceListenForConnections(&DoorCount, &Doors, sizeof error, error))
      throw std::runtime_error(std::string("No session manager: ") + error);
    for (int i = 0; i < DoorCount; ++i) IceSetHostBasedAuthProc(Doors[i], Welcome);
    char* names = IceComposeNetworkIdList(DoorCount, Doors);
    Names = names;
    std::free(names);
    if (pipe2(Orders, O_CLOEXEC) != 0) throw std::runtime_error("The system has no pipe left.");
    Current = this;
    Thread = std::thread([this] { Serve(); });
  }

  ~Protocol() {
    close(Orders[1]);
    Thread.join();
    close(Orders[0]);
    IceFreeListenObjs(DoorCount, Doors);
    Current = nullptr;
  }

  void Order(char order) {
    if (write(Orders[1], &order, 1) != 1) throw std::runtime_error("The session manager is gone.");
  }

  std::string Names;
  std::atomic<bool> IsReady = false;
  std::atomic<bool> HasGoneOn = false;

 private:
  static Status Join(SmsConn client, SmPointer, unsigned long* mask, SmsCallbacks* callbacks,
                     char**) {
    std::memset(callbacks, 0, sizeof *callbacks);
    *mask = SmsRegisterClientProcMask | SmsInteractRequestProcMask | SmsInteractDoneProcMask |
            SmsSaveYourselfRequestProcMask | SmsSaveYourselfP2RequestProcMask |
            SmsSaveYourselfDoneProcMask | SmsCloseConnectionProcMask | SmsSetPropertiesProcMask |
            SmsDeletePropertiesProcMask | SmsGetPropertiesProcMask;
    callbacks->register_client.callback = [](SmsConn joined, SmPointer, char* former) -> Status {
      if (former) return False;
      SmsRegisterClientReply(joined, SmsGenerateClientID(joined));
      SmsSaveYourself(joined, SmSaveLocal, False, SmInteractStyleNone, False);
      return True;
    };
    callbacks->interact_request.callback = [](SmsConn asking, SmPointer, int) {
      SmsInteract(asking);
    };
    callbacks->interact_done.callback = [](SmsConn, SmPointer, Bool) {};
    callbacks->save_yourself_request.callback = [](SmsConn, SmPointer, int, Bool, int, Bool, Bool) {
    };
    callbacks->save_yourself_phase2_request.callback = [](SmsConn saving, SmPointer) {
      SmsSaveYourselfPhase2(saving);
    };
    callbacks->save_yourself_done.callback = [](SmsConn done, SmPointer, Bool) {
      Current->Saved(done);
    };
    callbacks->close_connection.callback = [](SmsConn leaving, SmPointer, int, char**) {
      Current->Leave(leaving);
    };
    callbacks->set_properties.callback = [](SmsConn, SmPointer, int count, SmProp** properties) {
      for (int i = 0; i < count; ++i) SmFreeProperty(properties[i]);
      std::free(properties);
    };
    callbacks->delete_properties.callback = [](SmsConn, SmPointer, int, char**) {};
    callbacks->get_properties.callback = [](SmsConn, SmPointer) {};
    Current->Clients.push_back(client);
    return True;
  }

  /// The next step after a program's answer: at first, to welcome it.
  void Saved(SmsConn client) {
    if (Asked == kEndSession) {
      SmsDie(client);
    } else if (Asked == kAskAndGoOn) {
      SmsShutdownCancelled(client);
      HasGoneOn = true;
    } else {
      SmsSaveComplete(client);
      IsReady = true;
    }
  }

  void Leave(SmsConn client) {
    std::erase(Clients, client);
    Drop(SmsGetIceConnection(client));
  }

  void Drop(IceConn line) {
    std::erase(Lines, line);
    IceSetShutdownNegotiation(line, False);
    IceCloseConnection(line);
  }

  void Serve() {
    IceSetIOErrorHandler([](IceConn) {});  // a program that disconnects without notice
    for (;;) {
      std::vector<pollfd> waits = {{Orders[0], POLLIN, 0}};
      for (int i = 0; i < DoorCount; ++i)
        waits.push_back({IceGetListenConnectionNumber(Doors[i]), POLLIN, 0});
      const std::vector<IceConn> lines = Lines;
      for (IceConn line : lines) waits.push_back({IceConnectionNumber(line), POLLIN, 0});
      if (poll(waits.data(), waits.size(), -1) < 0) continue;
      if (waits[0].revents && !Obey()) return;
      for (int i = 0; i < DoorCount; ++i) {
        if (waits[size_t(i) + 1].revents) Accept(Doors[i]);
      }
      for (size_t i = 0; i < lines.size(); ++i) {
        if (waits[i + 1 + size_t(DoorCount)].revents) Hear(lines[i]);
      }
    }
  }

  /// False when no program is left to give orders to.
  bool Obey() {
    char order = 0;
    if (read(Orders[0], &order, 1) != 1) return false;
    Asked = order;
    for (SmsConn client : Clients)
      SmsSaveYourself(client, SmSaveBoth, True, SmInteractStyleNone, False);
    return true;
  }

  void Accept(IceListenObj door) {
    IceAcceptStatus status;
    IceConn line = IceAcceptConnection(door, &status);
    if (!line) return;
    while (IceConnectionStatus(line) == IceConnectPending)
      IceProcessMessages(line, nullptr, nullptr);
    if (IceConnectionStatus(line) == IceConnectAccepted) Lines.push_back(line);
  }

  void Hear(IceConn line) {
    if (std::find(Lines.begin(), Lines.end(), line) == Lines.end()) return;
    if (IceProcessMessages(line, nullptr, nullptr) != IceProcessMessagesIOError) return;
    std::erase_if(Clients, [line](SmsConn client) { return SmsGetIceConnection(client) == line; });
    Drop(line);
  }

  static inline Protocol* Current = nullptr;  // the library passes no user data to its callbacks

  int DoorCount = 0;
  IceListenObj* Doors = nullptr;
  int Orders[2] = {-1, -1};
  std::vector<IceConn> Lines;
  std::vector<SmsConn> Clients;
  char Asked = 0;
  std::thread Thread;
};

SessionManager::SessionManager() : Inner(std::make_unique<Protocol>()) {}

SessionManager::~SessionManager() = default;

Environment SessionManager::Variables() const { return {{"SESSION_MANAGER", Inner->Names}}; }

bool SessionManager::HasClient() const { return Inner->IsReady; }

void SessionManager::EndSession() { Inner->Order(kEndSession); }

void SessionManager::AskAndGoOn() { Inner->Order(kAskAndGoOn); }

bool SessionManager::WentOn() const { return Inner->HasGoneOn; }

}  // namespace marlex::stage
