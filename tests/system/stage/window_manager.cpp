#include "window_manager.h"

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>

namespace marlex::stage {
namespace {

template <class Reply>
using Owned = std::unique_ptr<Reply, decltype(&std::free)>;

template <class Reply>
Owned<Reply> Own(Reply* reply) {
  return {reply, &std::free};
}

xcb_atom_t Atom(xcb_connection_t* server, const std::string& name) {
  const auto cookie = xcb_intern_atom(server, 0, uint16_t(name.size()), name.c_str());
  const auto reply = Own(xcb_intern_atom_reply(server, cookie, nullptr));
  return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

std::string TitleOf(xcb_connection_t* server, xcb_window_t window) {
  constexpr uint32_t kLongest = 256;
  const auto cookie = xcb_get_property(server, 0, window, Atom(server, "_NET_WM_NAME"),
                                       XCB_GET_PROPERTY_TYPE_ANY, 0, kLongest);
  const auto reply = Own(xcb_get_property_reply(server, cookie, nullptr));
  if (!reply) return "";
  return {static_cast<const char*>(xcb_get_property_value(reply.get())),
          size_t(xcb_get_property_value_length(reply.get()))};
}

/// Without a window manager the programs' windows are direct children of the root.
xcb_window_t FindWindow(xcb_connection_t* server, const std::string& title) {
  const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(server)).data->root;
  const auto tree = Own(xcb_query_tree_reply(server, xcb_query_tree(server, root), nullptr));
  if (!tree) return XCB_WINDOW_NONE;
  const xcb_window_t* windows = xcb_query_tree_children(tree.get());
  for (int window = 0; window < xcb_query_tree_children_length(tree.get()); ++window) {
    if (TitleOf(server, windows[window]) == title) return windows[window];
  }
  return XCB_WINDOW_NONE;
}

void SendClose(xcb_connection_t* server, xcb_window_t window) {
  xcb_client_message_event_t message{};
  message.response_type = XCB_CLIENT_MESSAGE;
  message.format = 32;
  message.window = window;
  message.type = Atom(server, "WM_PROTOCOLS");
  message.data.data32[0] = Atom(server, "WM_DELETE_WINDOW");
  message.data.data32[1] = XCB_CURRENT_TIME;
  xcb_send_event(server, 0, window, XCB_EVENT_MASK_NO_EVENT,
                 reinterpret_cast<const char*>(&message));
  xcb_flush(server);
}

}  // namespace

bool CloseWindow(const std::string& display, const std::string& title) {
  const std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> server(
      xcb_connect(display.c_str(), nullptr), &xcb_disconnect);
  if (xcb_connection_has_error(server.get())) return false;
  const xcb_window_t window = FindWindow(server.get(), title);
  if (window == XCB_WINDOW_NONE) return false;
  SendClose(server.get(), window);
  // The answer shows that the message was sent before.
  free(xcb_get_input_focus_reply(server.get(), xcb_get_input_focus(server.get()), nullptr));
  return true;
}

ForeignWindow::ForeignWindow(const std::string& display, Kind kind)
    : Server(xcb_connect(display.c_str(), nullptr)), Window(0), Locks(kind == Kind::Lock) {
  if (xcb_connection_has_error(Server)) return;
  constexpr uint16_t kSide = 300;
  const xcb_screen_t& screen = *xcb_setup_roots_iterator(xcb_get_setup(Server)).data;
  const uint16_t width = Locks ? screen.width_in_pixels : kSide;
  const uint16_t height = Locks ? screen.height_in_pixels : kSide;
  const uint32_t noManager = Locks ? 1 : 0;
  Window = xcb_generate_id(Server);
  xcb_create_window(Server, XCB_COPY_FROM_PARENT, Window, screen.root, 0, 0, width, height, 0,
                    XCB_WINDOW_CLASS_INPUT_OUTPUT, screen.root_visual, XCB_CW_OVERRIDE_REDIRECT,
                    &noManager);
  xcb_map_window(Server, Window);
  if (Locks) {
    const auto reply =
        Own(xcb_grab_keyboard_reply(Server,
                                    xcb_grab_keyboard(Server, 0, Window, XCB_CURRENT_TIME,
                                                      XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC),
                                    nullptr));
    Grabbed = reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
  }
  xcb_flush(Server);
}

ForeignWindow::~ForeignWindow() { xcb_disconnect(Server); }

bool ForeignWindow::HasKeyboard() const {
  if (Locks) return Grabbed;
  const auto reply = Own(xcb_get_input_focus_reply(Server, xcb_get_input_focus(Server), nullptr));
  return reply && reply->focus == Window;
}

}  // namespace marlex::stage
